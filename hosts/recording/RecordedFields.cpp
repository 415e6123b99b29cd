#include "hosts/recording/Recorded.h"
#include "platform/word/Fields.h"
#include "platform/word/Range.h"

namespace recording {

namespace {

class RecordedField : public Recorded<word::Field> {
 public:
  using Recorded::Recorded;
  int Type() const override { return On("Field.Type").Type(); }
  word::RangePtr Code() const override { return Wrap(On("Field.Code").Code(), Observer()); }
  word::RangePtr Result() const override { return Wrap(On("Field.Result").Result(), Observer()); }
  bool Update() override { return Call("Field.Update").Update(); }
  void Delete() override { Call("Field.Delete").Delete(); }
};

Value ToFieldValue(const word::RangePtr& range, const word::FieldArguments& arguments) {
  Value value = Value::object();
  value["Range"] = ToValue(Unwrap(range));
  value["Type"] = arguments.Type;
  value["Text"] = ToValue(arguments.Text);
  value["PreserveFormatting"] = arguments.PreserveFormatting;
  return value;
}

class RecordedFields : public Recorded<word::Fields> {
 public:
  using Recorded::Recorded;
  int Count() const override { return On("Fields.Count").Count(); }
  word::FieldPtr Item(int index) const override { return Wrap(On("Fields.Item").Item(index), Observer()); }
  word::FieldPtr Add(const word::RangePtr& range, const word::FieldArguments& arguments) override {
    return Wrap(Call("Fields.Add", ToFieldValue(range, arguments)).Add(Unwrap(range), arguments), Observer());
  }
};

}  // namespace

word::FieldPtr Wrap(word::FieldPtr inner, CallObserver& observer) {
  return WrapAs<RecordedField>(std::move(inner), observer);
}
word::FieldsPtr Wrap(word::FieldsPtr inner, CallObserver& observer) {
  return WrapAs<RecordedFields>(std::move(inner), observer);
}

}  // namespace recording
