#include "platform/word/Window.h"

#include "hosts/com/Objects.h"
#include "platform/word/Selection.h"

namespace com {

namespace {

class View : public Proxied<word::View> {
 public:
  using Proxied::Proxied;
  int Type() const override { return word_.Int("View.Type"); }
  void SetType(int value) override { word_.Put("View.Type", value); }
  int SplitSpecial() const override { return word_.Int("View.SplitSpecial"); }
  bool ShowAll() const override { return word_.Bool("View.ShowAll"); }
  void SetShowAll(bool value) override { word_.Put("View.ShowAll", value); }
  bool ShowHiddenText() const override { return word_.Bool("View.ShowHiddenText"); }
  void SetShowHiddenText(bool value) override { word_.Put("View.ShowHiddenText", value); }
};

class Pane : public Proxied<word::Pane> {
 public:
  using Proxied::Proxied;
  word::ViewPtr View() const override { return std::make_shared<com::View>(word_.Object("Pane.View")); }
};

class Window : public Proxied<word::Window> {
 public:
  using Proxied::Proxied;
  word::ViewPtr View() const override { return std::make_shared<com::View>(word_.Object("Window.View")); }
  word::PanePtr ActivePane() const override { return std::make_shared<Pane>(word_.Object("Window.ActivePane")); }
  word::SelectionPtr Selection() const override { return MakeSelection(word_.Object("Window.Selection")); }
  void SetSplitVertical(int percent) override { word_.Put("Window.SplitVertical", percent); }
};

class Tables : public Proxied<word::Tables> {
 public:
  using Proxied::Proxied;
  int Count() const override { return word_.Int("Tables.Count"); }
};

class Selection : public Proxied<word::Selection> {
 public:
  using Proxied::Proxied;
  word::RangePtr Range() const override { return MakeRange(word_.Object("Selection.Range")); }
  word::TablesPtr Tables() const override { return std::make_shared<com::Tables>(word_.Object("Selection.Tables")); }
  void Collapse(word::WdCollapseDirection direction) override { word_.Call("Selection.Collapse", {direction}); }
  void HomeKey(word::WdUnits unit) override { word_.Call("Selection.HomeKey", {unit}); }
  void GoTo(const word::GoToArguments& arguments) override {
    const auto given = [](bool there, Variant value) { return there ? std::move(value) : Variant::Missing(); };
    word_.Call("Selection.GoTo", {arguments.What, given(arguments.Which != 0, arguments.Which), Variant::Missing(),
                                  given(!arguments.Name.empty(), arguments.Name)});
  }
};

}  // namespace

word::SelectionPtr MakeSelection(Dispatch word) { return std::make_shared<Selection>(std::move(word)); }

word::WindowPtr MakeWindow(Dispatch word) { return std::make_shared<Window>(std::move(word)); }

}  // namespace com
