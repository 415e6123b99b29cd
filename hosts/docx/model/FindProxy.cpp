#include <utility>

#include "hosts/docx/find/Search.h"
#include "hosts/docx/model/RangeProxy.h"
#include "platform/word/Find.h"
#include "platform/word/Replacing.h"

namespace docx {

namespace {

class ReplacementProxy : public word::Replacement {
 public:
  explicit ReplacementProxy(RangeProxyPtr range) : range_(std::move(range)) {}
  void ClearFormatting() override { range_->replacement.highlight.reset(); }
  std::u16string Text() const override { return range_->replacement.text; }
  void SetText(std::u16string_view value) override { range_->replacement.text = value; }
  int Highlight() const override { return range_->replacement.highlight.value_or(word::wdUndefined); }
  void SetHighlight(int value) override { range_->replacement.highlight = value; }

 private:
  RangeProxyPtr range_;
};

class FindProxy : public word::Find {
 public:
  explicit FindProxy(RangeProxyPtr range) : range_(std::move(range)) {}

  // Searches go by text alone: there are no formatting criteria to drop.
  void ClearFormatting() override {}
  std::u16string Text() const override { return Values().text; }
  void SetText(std::u16string_view value) override {
    if (value.size() > kMaxFindText) {
      throw word::HostError(word::kStringTooLong, u"String parameter too long.", "Find.Text");
    }
    Values().text = value;
  }
  bool Forward() const override { return Values().forward; }
  void SetForward(bool value) override { Values().forward = value; }
  int Wrap() const override { return Values().wrap; }
  void SetWrap(int value) override { Values().wrap = value; }
  bool Format() const override { return range_->replacement.format; }
  void SetFormat(bool value) override { range_->replacement.format = value; }
  bool MatchCase() const override { return Values().matchCase; }
  void SetMatchCase(bool value) override { Values().matchCase = value; }
  bool MatchWholeWord() const override { return Values().wholeWord; }
  void SetMatchWholeWord(bool value) override { Values().wholeWord = value; }
  bool MatchWildcards() const override { return Values().wildcards; }
  void SetMatchWildcards(bool value) override { Values().wildcards = value; }
  // Neither kind of search by sound or by word form exists here; the switches only keep what was put.
  bool MatchSoundsLike() const override { return range_->matchSoundsLike; }
  void SetMatchSoundsLike(bool value) override { range_->matchSoundsLike = value; }
  bool MatchAllWordForms() const override { return range_->matchAllWordForms; }
  void SetMatchAllWordForms(bool value) override { range_->matchAllWordForms = value; }
  word::ReplacementPtr Replacement() const override { return std::make_shared<ReplacementProxy>(range_); }

  bool Execute(const word::FindArguments& arguments) override {
    const std::shared_ptr<OpenDocument> document = range_->Document("Find.Execute");
    Story& story = range_->StoryOf("Find.Execute");
    const SearchScope scope = Scope(*document, story);
    const Anchor& place = range_->Place();
    if (arguments.Replace == word::wdReplaceAll) {
      const std::vector<Match> matches = SearchAll(story, scope, Values(), place.start, place.end);
      range_->found = !matches.empty();
      if (range_->found) document->BeforeChange("Find.Execute");
      // From the last to the first, so that positions of those still to come hold.
      for (auto match = matches.rbegin(); match != matches.rend(); ++match) {
        Replace(RangeProxy::Make(document, story, match->start, match->end), document, story, scope, *match);
      }
      return range_->found;
    }
    const std::optional<Match> match = FindNext(story, scope, place);
    range_->found = match.has_value();
    if (!match) return false;
    range_->SetRange(match->start, match->end);
    if (arguments.Replace == word::wdReplaceOne) Replace(range_, document, story, scope, *match);
    return true;
  }

  bool Found() const override { return range_->found; }

 private:
  FindSettings& Values() const { return range_->findSettings; }

  std::optional<Match> FindNext(const Story& story, const SearchScope& scope, const Anchor& place) const {
    const FindSettings& settings = Values();
    if (settings.text.empty() || !settings.forward || settings.wrap != word::wdFindStop) {
      return Search(story, scope, settings, place.start, place.end);
    }
    std::unique_ptr<KeptSearch>& kept = range_->keptSearch;
    if (!kept || !kept->Serves(scope, settings, place.start)) {
      kept = std::make_unique<KeptSearch>(story, scope, settings, place.start);
    }
    return kept->Find(place.start, place.end);
  }

  static SearchScope Scope(OpenDocument& document, Story& story) {
    SearchScope scope;
    scope.showHidden = document.window.showHiddenText || document.window.showAll;
    const Formatting& formats = document.Parts().Formats(story.Part());
    if (formats.MayHide()) scope.hidden = [&formats](XmlNode run) { return formats.Hidden(run); };
    return scope;
  }

  /// With formatting and no text the match stays and is formatted; without either it goes. What the search passed over,
  /// such as an index entry in the middle, stays behind the new text.
  void Replace(const word::RangePtr& range, const std::shared_ptr<OpenDocument>& document, Story& story,
               const SearchScope& scope, const Match& match) const {
    const ReplacementSettings& replacement = range_->replacement;
    const bool formats = replacement.format || replacement.highlight.has_value();
    const std::optional<std::size_t> past =
        Values().wildcards ? std::nullopt : word::CharactersMovedPast(Values().text, replacement.text);
    if (past) {
      MoveFirst(*document, story, SeenParts(story, scope, match), *past);
    } else if (!replacement.text.empty() || !formats) {
      const std::vector<GroupSpan> parts = SeenParts(story, scope, match);
      for (std::size_t part = parts.size(); part-- > 1;) {
        RangeProxy::Make(document, story, parts[part].start, parts[part].end)->Delete();
      }
      range->SetRange(parts.front().start, parts.front().end);
      range->SetText(replacement.text);
    }
    if (replacement.highlight) {
      range->SetHighlightColorIndex(*replacement.highlight != 0 ? word::wdYellow : word::wdNoHighlight);
    }
  }

  /// The position, or where the outermost of the fields begins that begin behind an earlier place and whose result goes
  /// on at the position: what stands in a result goes when the field is updated.
  static Position BeforeFieldsFrom(const AtomSequence& atoms, Position earlier, Position position) {
    Position before = position;
    int ended = 0;
    for (AtomSequence::Place place = atoms.At(position); place.start > earlier && !atoms.IsBegin(place);) {
      place = atoms.Previous(place);
      const AtomKind kind = atoms.Get(place).kind;
      if (kind == AtomKind::kFieldEnd || kind == AtomKind::kSimpleEnd) ++ended;
      if (kind != AtomKind::kFieldBegin && kind != AtomKind::kSimpleBegin) continue;
      if (ended == 0) before = place.start;
      if (ended > 0) --ended;
    }
    return before;
  }

  /// @param parts of the match, as far as it was seen @param past so many of the characters behind the first
  static void MoveFirst(OpenDocument& document, Story& story, const std::vector<GroupSpan>& parts, std::size_t past) {
    document.BeforeChange("Find.Execute");
    // Directly before the character that is to follow.
    Position to = parts.back().end;
    Position seen = parts.front().start;
    auto left = static_cast<Position>(past) + 1;
    for (const GroupSpan& part : parts) {
      if (left < part.end - part.start) {
        to = left > 0 ? part.start + left : BeforeFieldsFrom(story.Atoms(), seen, part.start);
        break;
      }
      left -= part.end - part.start;
      seen = part.end;
    }
    std::optional<Story::TrackedMove> tracked;
    if (const Tracking* own = document.Revisions().Wanted()) tracked = {own->Next(), own->Next()};
    story.MoveCharacter(parts.front().start, to, tracked ? &*tracked : nullptr);
  }

  RangeProxyPtr range_;
};

}  // namespace

word::FindPtr MakeFind(RangeProxyPtr range) { return std::make_shared<FindProxy>(std::move(range)); }

}  // namespace docx
