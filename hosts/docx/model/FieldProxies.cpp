#include <optional>
#include <utility>

#include "hosts/docx/fields/FieldCode.h"
#include "hosts/docx/fields/Fields.h"
#include "hosts/docx/model/IndexField.h"
#include "hosts/docx/model/RangeProxy.h"
#include "platform/word/Fields.h"

namespace docx {

namespace {

class FieldProxy : public word::Field {
 public:
  /// @param mark covers the field's begin mark
  explicit FieldProxy(RangeProxyPtr mark) : mark_(std::move(mark)) {}

  // A field that a broken file begins and never ends is no field of any type, but whoever walks all fields comes by it.
  int Type() const override {
    const std::optional<FieldSpan> field = Find("Field.Type");
    return field ? FieldType(FieldCodeText(mark_->StoryOf("Field.Type"), *field)) : word::wdFieldEmpty;
  }

  word::RangePtr Code() const override {
    const std::optional<FieldSpan> field = Find("Field.Code");
    if (!field) return Stretch(mark_->Place().end, mark_->Place().end, true);
    return Stretch(field->CodeStart(), field->separator, true);
  }

  word::RangePtr Result() const override {
    const FieldSpan field = Span("Field.Result");
    return field.HasResult() ? Stretch(field.separator + 1, field.end, false) : nullptr;
  }

  bool Update() override {
    const FieldSpan field = Span("Field.Update");
    Story& story = mark_->StoryOf("Field.Update");
    if (Type() != word::wdFieldIndex || story.Type() != word::wdMainTextStory) return false;
    const std::shared_ptr<OpenDocument> document = mark_->Document("Field.Update");
    document->BeforeChange("Field.Update");
    UpdateIndexField(*document, field);
    return true;
  }

  void Delete() override {
    const FieldSpan field = Span("Field.Delete");
    const std::shared_ptr<OpenDocument> document = mark_->Document("Field.Delete");
    document->BeforeChange("Field.Delete");
    Story& story = mark_->StoryOf("Field.Delete");
    if (Type() == word::wdFieldIndex && story.Type() == word::wdMainTextStory) {
      DeleteIndexField(*document, field);
    } else {
      story.Erase(field.begin, field.Behind());
    }
  }

 private:
  std::optional<FieldSpan> Find(std::string_view member) const {
    const AtomSequence& atoms = mark_->StoryOf(member).Atoms();
    if (mark_->Place().start == mark_->Place().end) {
      throw word::HostError(word::kObjectDeleted, u"Object has been deleted.", member);
    }
    return FieldAt(atoms, atoms.At(mark_->Place().start));
  }

  FieldSpan Span(std::string_view member) const {
    const std::optional<FieldSpan> field = Find(member);
    if (!field) throw word::HostError(word::kCommandFailed, u"The field has no end.", member);
    return *field;
  }

  word::RangePtr Stretch(Position start, Position end, bool code) const {
    auto range = std::make_shared<RangeProxy>(mark_->Document("Field"), mark_->StoryOf("Field"), start, end);
    // The text of a code is wanted as it stands, shown or not.
    range->includeFieldCodes = code;
    range->includeHiddenText = code;
    return range;
  }

  RangeProxyPtr mark_;
};

class FieldsProxy : public word::Fields {
 public:
  explicit FieldsProxy(RangeProxyPtr range) : range_(std::move(range)) {}

  int Count() const override {
    const AtomSequence& atoms = range_->StoryOf("Fields.Count").Atoms();
    return atoms.FieldBeginsBefore(range_->End()) - atoms.FieldBeginsBefore(range_->Start());
  }

  word::FieldPtr Item(int index) const override {
    if (index < 1 || index > Count()) ThrowNoMember("Fields.Item");
    const AtomSequence& atoms = range_->StoryOf("Fields.Item").Atoms();
    return At(atoms.OfFieldBegin(atoms.FieldBeginsBefore(range_->Start()) + index - 1).start);
  }

  word::FieldPtr Add(const word::RangePtr& range, const word::FieldArguments& arguments) override {
    const std::shared_ptr<OpenDocument> document = range_->Document("Fields.Add");
    document->BeforeChange("Fields.Add");
    RangeProxy& place = RangeProxy::Of(range);
    Story& story = place.StoryOf("Fields.Add");
    const Position at = place.Start();
    story.Erase(at, place.End());
    std::u16string code = u" " + Keyword(arguments.Type) + arguments.Text + u" ";
    if (arguments.PreserveFormatting) code += u" \\* MERGEFORMAT ";
    const bool isIndex = FieldType(code) == word::wdFieldIndex;
    std::optional<RevisionStamp> tracked;
    if (const Tracking* own = document->Revisions().Wanted()) tracked = own->Next();
    // An index is a part of the document by itself, not of a link or somebody else's insertion.
    story.InsertField(at, code, tracked ? &*tracked : nullptr,
                      isIndex ? Story::Containers::kDivided : Story::Containers::kHold);
    const word::FieldPtr field = At(story, at);
    if (isIndex) field->Update();
    return field;
  }

 private:
  static std::u16string Keyword(int type) {
    if (type == word::wdFieldIndexEntry) return u"XE ";
    if (type == word::wdFieldIndex) return u"INDEX ";
    return {};
  }

  word::FieldPtr At(Position begin) const { return At(range_->StoryOf("Fields.Item"), begin); }
  word::FieldPtr At(Story& story, Position begin) const {
    return std::make_shared<FieldProxy>(
        std::make_shared<RangeProxy>(range_->Document("Fields.Item"), story, begin, begin + 1));
  }

  RangeProxyPtr range_;
};

}  // namespace

word::FieldsPtr MakeFields(RangeProxyPtr range) { return std::make_shared<FieldsProxy>(std::move(range)); }

}  // namespace docx
