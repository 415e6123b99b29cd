#include "hosts/recording/Recorded.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"

namespace recording {

namespace {

class RecordedView : public Recorded<word::View> {
 public:
  using Recorded::Recorded;
  int Type() const override { return On("View.Type").Type(); }
  void SetType(int value) override { Put("View.Type", value).SetType(value); }
  int SplitSpecial() const override { return On("View.SplitSpecial").SplitSpecial(); }
  bool ShowAll() const override { return On("View.ShowAll").ShowAll(); }
  void SetShowAll(bool value) override { Put("View.ShowAll", value).SetShowAll(value); }
  bool ShowHiddenText() const override { return On("View.ShowHiddenText").ShowHiddenText(); }
  void SetShowHiddenText(bool value) override { Put("View.ShowHiddenText", value).SetShowHiddenText(value); }
};

class RecordedPane : public Recorded<word::Pane> {
 public:
  using Recorded::Recorded;
  word::ViewPtr View() const override { return Wrap(On("Pane.View").View(), Observer()); }
};

class RecordedTables : public Recorded<word::Tables> {
 public:
  using Recorded::Recorded;
  int Count() const override { return On("Tables.Count").Count(); }
};

Value ToGoToValue(const word::GoToArguments& arguments) {
  Value value = Value::object();
  value["What"] = static_cast<int>(arguments.What);
  if (arguments.Which != 0) value["Which"] = arguments.Which;
  if (!arguments.Name.empty()) value["Name"] = ToValue(arguments.Name);
  return value;
}

class RecordedSelection : public Recorded<word::Selection> {
 public:
  using Recorded::Recorded;
  word::RangePtr Range() const override { return Wrap(On("Selection.Range").Range(), Observer()); }
  word::TablesPtr Tables() const override { return Wrap(On("Selection.Tables").Tables(), Observer()); }
  void Collapse(word::WdCollapseDirection direction) override {
    Call("Selection.Collapse", ToValue(static_cast<int>(direction))).Collapse(direction);
  }
  void HomeKey(word::WdUnits unit) override {
    Call("Selection.HomeKey", ToValue(static_cast<int>(unit))).HomeKey(unit);
  }
  void GoTo(const word::GoToArguments& arguments) override {
    Call("Selection.GoTo", ToGoToValue(arguments)).GoTo(arguments);
  }
};

class RecordedWindow : public Recorded<word::Window> {
 public:
  using Recorded::Recorded;
  word::ViewPtr View() const override { return Wrap(On("Window.View").View(), Observer()); }
  word::PanePtr ActivePane() const override { return Wrap(On("Window.ActivePane").ActivePane(), Observer()); }
  word::SelectionPtr Selection() const override { return Wrap(On("Window.Selection").Selection(), Observer()); }
  void SetSplitVertical(int percent) override { Put("Window.SplitVertical", percent).SetSplitVertical(percent); }
};

}  // namespace

word::ViewPtr Wrap(word::ViewPtr inner, CallObserver& observer) {
  return WrapAs<RecordedView>(std::move(inner), observer);
}
word::PanePtr Wrap(word::PanePtr inner, CallObserver& observer) {
  return WrapAs<RecordedPane>(std::move(inner), observer);
}
word::TablesPtr Wrap(word::TablesPtr inner, CallObserver& observer) {
  return WrapAs<RecordedTables>(std::move(inner), observer);
}
word::SelectionPtr Wrap(word::SelectionPtr inner, CallObserver& observer) {
  return WrapAs<RecordedSelection>(std::move(inner), observer);
}
word::WindowPtr Wrap(word::WindowPtr inner, CallObserver& observer) {
  return WrapAs<RecordedWindow>(std::move(inner), observer);
}

}  // namespace recording
