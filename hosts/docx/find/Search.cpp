#include "hosts/docx/find/Search.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "hosts/docx/find/FindCodes.h"
#include "hosts/docx/find/Pattern.h"
#include "hosts/docx/find/VisibleText.h"

namespace docx {

std::unique_ptr<Pattern> CompilePattern(const FindSettings& settings) {
  return settings.wildcards ? CompileWildcardPattern(settings) : CompilePlainPattern(settings);
}

namespace {

/// How far back a backward search looks first; it doubles.
constexpr Position kFirstBlock = 4'096;

Match ToMatch(const VisibleText& text, const Hit& hit) {
  Match match;
  match.start = text.PositionOf(hit.start);
  match.end = text.PositionOf(hit.end - 1) + 1;
  for (const auto& [begin, end] : hit.groups) {
    GroupSpan span;
    if (begin != Hit::kNone && end != Hit::kNone) {
      // An empty group stands behind the character before it, or before the match's first.
      span.end = end > hit.start ? text.PositionOf(end - 1) + 1 : match.start;
      span.start = begin == end ? span.end : text.PositionOf(begin);
    }
    match.groups.push_back(span);
  }
  return match;
}

std::optional<Match> FindForward(TextSource& source, Pattern& pattern, Position start, Position end) {
  VisibleText text(source, start, end);
  const std::optional<Hit> hit = pattern.FindFirst(text, 0);
  if (!hit) return std::nullopt;
  return ToMatch(text, *hit);
}

std::optional<Match> FindBackward(TextSource& source, const FindSettings& settings, Position start, Position end) {
  Position behind = end;
  Position block = kFirstBlock;
  while (behind > start) {
    const Position from = std::max(start, behind - block);
    VisibleText text(source, from, end);
    // A pattern remembers what it measured in one text.
    const std::unique_ptr<Pattern> pattern = CompilePattern(settings);
    for (std::size_t index = text.Size(); index-- > 0;) {
      if (text.PositionOf(index) >= behind) continue;
      if (const std::optional<Hit> hit = pattern->MatchAt(text, index)) return ToMatch(text, *hit);
    }
    behind = from;
    block *= 2;
  }
  return std::nullopt;
}

std::optional<Match> FindIn(TextSource& source, const FindSettings& settings, Position start, Position end) {
  if (!settings.forward) return FindBackward(source, settings, start, end);
  return FindForward(source, *CompilePattern(settings), start, end);
}

bool Covers(const std::optional<Match>& match, Position start, Position end) {
  return match && match->start == start && match->end == end;
}

}  // namespace

std::optional<Match> Search(TextSource& source, const FindSettings& settings, Position start, Position end) {
  CompilePattern(settings);  // a bad pattern is an error even where there is nothing to search
  if (settings.text.empty()) return std::nullopt;
  if (start < end) {
    std::optional<Match> match = FindIn(source, settings, start, end);
    if (match && !Covers(match, start, end)) return match;
    const bool onward = match.has_value() || settings.wrap == word::wdFindContinue;
    if (!onward) return std::nullopt;
    (settings.forward ? start : end) = settings.forward ? end : start;
  }
  std::optional<Match> match =
      settings.forward ? FindIn(source, settings, end, source.Length()) : FindIn(source, settings, 0, start);
  if (!match && settings.wrap == word::wdFindContinue) match = FindIn(source, settings, 0, source.Length());
  return match;
}

std::vector<Match> SearchAll(TextSource& source, const FindSettings& settings, Position start, Position end) {
  std::vector<Match> matches;
  const std::unique_ptr<Pattern> pattern = CompilePattern(settings);
  if (settings.text.empty()) return matches;
  if (start == end) {
    const bool whole = settings.wrap == word::wdFindContinue;
    if (whole || !settings.forward) start = 0;
    if (whole || settings.forward) end = source.Length();
  }
  VisibleText text(source, start, end);
  std::size_t index = 0;
  while (const std::optional<Hit> hit = pattern->FindFirst(text, index)) {
    matches.push_back(ToMatch(text, *hit));
    index = hit->end;
  }
  return matches;
}

std::optional<Match> Search(const Story& story, const SearchScope& scope, const FindSettings& settings, Position start,
                            Position end) {
  StorySource source(story, scope);
  return Search(source, settings, start, end);
}

KeptSearch::KeptSearch(const Story& story, const SearchScope& scope, FindSettings settings, Position start)
    : atoms_(story.Atoms()),
      version_(atoms_.Version()),
      scope_(scope),
      settings_(std::move(settings)),
      start_(start),
      source_(story, scope_),
      text_(source_, start, source_.Length()),
      pattern_(CompilePattern(settings_)) {}

bool KeptSearch::Serves(const SearchScope& scope, const FindSettings& settings, Position from) const {
  return from >= start_ && atoms_.Version() == version_ && scope.showHidden == scope_.showHidden &&
         scope.showFieldCodes == scope_.showFieldCodes && settings == settings_;
}

std::optional<Match> KeptSearch::Find(Position start, Position end) {
  std::optional<Match> match = FirstFrom(start);
  if (start == end) return match;
  if (Covers(match, start, end)) return FirstFrom(end);
  if (!match || match->start >= end) return std::nullopt;
  // One that reaches beyond the stretch may hide a shorter one.
  return match->end <= end ? match : Search(source_, settings_, start, end);
}

std::optional<Match> KeptSearch::FirstFrom(Position from) {
  // The stretches that were found to hold no match are not searched again.
  const bool known = lastFrom_ >= 0 && from >= lastFrom_ && (!last_ || from <= last_->start);
  if (known) return last_;
  const std::optional<Hit> hit = pattern_->FindFirst(text_, text_.IndexAt(from));
  last_ = hit ? std::optional(ToMatch(text_, *hit)) : std::nullopt;
  lastFrom_ = from;
  return last_;
}

std::vector<Match> SearchAll(const Story& story, const SearchScope& scope, const FindSettings& settings, Position start,
                             Position end) {
  StorySource source(story, scope);
  return SearchAll(source, settings, start, end);
}

std::vector<GroupSpan> SeenParts(TextSource& source, const Match& match) {
  std::vector<GroupSpan> parts;
  for (Position at = match.start; at < match.end;) {
    const TextSource::Stretch stretch = source.StretchAt(at);
    const Position end = std::min(match.end, stretch.start + static_cast<Position>(stretch.text.size()));
    if (stretch.treatment != Treatment::kPassedOver) {
      if (!parts.empty() && parts.back().end == at) {
        parts.back().end = end;
      } else {
        parts.push_back({at, end});
      }
    }
    at = end;
  }
  return parts;
}

std::vector<GroupSpan> SeenParts(const Story& story, const SearchScope& scope, const Match& match) {
  StorySource source(story, scope);
  return SeenParts(source, match);
}

}  // namespace docx
