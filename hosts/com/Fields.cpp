#include "platform/word/Fields.h"

#include <algorithm>
#include <iterator>

#include "hosts/com/Objects.h"
#include "platform/word/Range.h"

namespace com {

namespace {

/// Fields that mark something and have no result: XE, TC, RD, TA. Word's numbers.
constexpr int kWithoutResult[] = {4, 9, 11, 74};

class Field : public Proxied<word::Field> {
 public:
  using Proxied::Proxied;
  int Type() const override { return word_.Int("Field.Type"); }
  word::RangePtr Code() const override { return MakeRange(word_.Object("Field.Code")); }
  word::RangePtr Result() const override {
    const auto* const last = std::end(kWithoutResult);
    if (std::find(std::begin(kWithoutResult), last, Type()) != last) return nullptr;
    return MakeRange(word_.Object("Field.Result"));
  }
  bool Update() override { return word_.Call("Field.Update").ToBool(); }
  void Delete() override { word_.Call("Field.Delete"); }
};

class Fields : public Proxied<word::Fields> {
 public:
  using Proxied::Proxied;
  int Count() const override { return word_.Int("Fields.Count"); }
  word::FieldPtr Item(int index) const override { return Make("Fields.Item", {index}); }
  word::FieldPtr Add(const word::RangePtr& range, const word::FieldArguments& arguments) override {
    return Make("Fields.Add", {ObjectOf(range), arguments.Type, arguments.Text, arguments.PreserveFormatting});
  }

 private:
  word::FieldPtr Make(std::string_view member, Dispatch::Arguments arguments) const {
    return std::make_shared<Field>(word_.Object(member, arguments));
  }
};

}  // namespace

word::FieldsPtr MakeFields(Dispatch word) { return std::make_shared<Fields>(std::move(word)); }

}  // namespace com
