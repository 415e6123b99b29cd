#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/docx/find/Search.h"
#include "hosts/docx/model/Proxy.h"
#include "platform/word/Range.h"

namespace docx {

/// What a replacement puts in the place of a match.
struct ReplacementSettings {
  std::u16string text{};
  std::optional<int> highlight{};
  bool format{false};
};

class RangeProxy : public word::Range, public std::enable_shared_from_this<RangeProxy> {
 public:
  RangeProxy(const std::shared_ptr<OpenDocument>& document, Story& story, Position start, Position end);

  static word::RangePtr Make(const std::shared_ptr<OpenDocument>& document, Story& story, Position start, Position end);
  /// The proxy behind a range that was handed out. @throws HostError kCommandFailed for a range of another host
  static RangeProxy& Of(const word::RangePtr& range);

  Position Start() const override;
  Position End() const override;
  void SetStart(Position value) override;
  void SetEnd(Position value) override;
  void SetRange(Position start, Position end) override;
  std::u16string Text() const override;
  void SetText(std::u16string_view value) override;
  word::TextRetrievalModePtr TextRetrievalMode() const override;
  word::WdStoryType StoryType() const override;
  int Information(word::WdInformation type) const override;
  Position StoryLength() const override;
  word::RangePtr NextStoryRange() const override;
  word::RangePtr Duplicate() const override;
  void Collapse(word::WdCollapseDirection direction) override;
  int MoveStart(word::WdUnits unit, int count) override;
  void Select() override;
  void InsertParagraphBefore() override;
  void Delete() override;
  word::FindPtr Find() const override;
  word::CharactersPtr Characters() const override;
  word::FieldsPtr Fields() const override;
  word::RevisionsPtr Revisions() const override;
  word::FontPtr Font() const override;
  word::ParagraphFormatPtr ParagraphFormat() const override;
  int HighlightColorIndex() const override;
  void SetHighlightColorIndex(int value) override;

  // For the other proxies.
  std::shared_ptr<OpenDocument> Document(std::string_view member) const { return Lock(document_, member); }
  /// @throws HostError kObjectDeleted
  Story& StoryOf(std::string_view member) const;
  Anchor& Place() { return anchor_; }

  // The range's own search, which lives as long as the range.
  FindSettings findSettings;
  /// The search that was made last; nullptr: none that can go on.
  std::unique_ptr<KeptSearch> keptSearch;
  ReplacementSettings replacement;
  bool matchSoundsLike{false};
  bool matchAllWordForms{false};
  bool found{false};

  // Its text retrieval mode.
  bool includeFieldCodes{false};
  bool includeHiddenText{false};

 private:
  Position Within(Position value) const;

  std::weak_ptr<OpenDocument> document_;
  Anchor anchor_;
};

using RangeProxyPtr = std::shared_ptr<RangeProxy>;

// What a range's members answer with; each keeps the range.
word::FindPtr MakeFind(RangeProxyPtr range);
word::FontPtr MakeFont(RangeProxyPtr range);
word::ParagraphFormatPtr MakeParagraphFormat(RangeProxyPtr range);
word::FieldsPtr MakeFields(RangeProxyPtr range);
word::RevisionsPtr MakeRevisions(RangeProxyPtr range);

}  // namespace docx
