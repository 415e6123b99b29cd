#include "tests/fakes/WatchedMenus.h"

#include <utility>

namespace fakes {

namespace {

using OnCall = std::function<void()>;

template <class Interface>
class Watched : public Interface {
 public:
  Watched(std::shared_ptr<Interface> inner, OnCall onCall) : inner_(std::move(inner)), onCall_(std::move(onCall)) {}

 protected:
  Interface& Told() const {
    onCall_();
    return *inner_;
  }
  template <class Proxy, class Object>
  std::shared_ptr<Object> Watch(std::shared_ptr<Object> object) const {
    return object ? std::make_shared<Proxy>(std::move(object), onCall_) : nullptr;
  }

 private:
  std::shared_ptr<Interface> inner_;
  OnCall onCall_;
};

class WatchedControl : public Watched<office::CommandBarControl> {
 public:
  using Watched::Watched;
  office::ControlType Type() const override { return Told().Type(); }
  int Id() const override { return Told().Id(); }
  std::u16string Caption() const override { return Told().Caption(); }
  void SetCaption(std::u16string_view value) override { Told().SetCaption(value); }
  std::u16string Tag() const override { return Told().Tag(); }
  void SetTag(std::u16string_view value) override { Told().SetTag(value); }
  bool BeginGroup() const override { return Told().BeginGroup(); }
  void SetBeginGroup(bool value) override { Told().SetBeginGroup(value); }
  bool Visible() const override { return Told().Visible(); }
  void SetVisible(bool value) override { Told().SetVisible(value); }
  office::CommandBarControlsPtr Controls() const override;
  void SetClickHandler(office::ClickHandler handler) override { Told().SetClickHandler(std::move(handler)); }
  void Delete() override { Told().Delete(); }
};

class WatchedControls : public Watched<office::CommandBarControls> {
 public:
  using Watched::Watched;
  int Count() const override { return Told().Count(); }
  office::CommandBarControlPtr Item(int index) const override { return Watch<WatchedControl>(Told().Item(index)); }
  office::CommandBarControlPtr Add(const AddArguments& arguments) override {
    return Watch<WatchedControl>(Told().Add(arguments));
  }
};

office::CommandBarControlsPtr WatchedControl::Controls() const { return Watch<WatchedControls>(Told().Controls()); }

class WatchedBar : public Watched<office::CommandBar> {
 public:
  using Watched::Watched;
  office::CommandBarControlsPtr Controls() const override { return Watch<WatchedControls>(Told().Controls()); }
};

class WatchedBars : public Watched<office::CommandBars> {
 public:
  using Watched::Watched;
  office::CommandBarPtr Item(std::u16string_view name) const override { return Watch<WatchedBar>(Told().Item(name)); }
  office::CommandBarControlPtr FindControl(int id) const override {
    return Watch<WatchedControl>(Told().FindControl(id));
  }
};

}  // namespace

office::CommandBarsPtr WatchMenus(office::CommandBarsPtr bars, std::function<void()> onCall) {
  if (!onCall) return bars;
  return std::make_shared<WatchedBars>(std::move(bars), std::move(onCall));
}

}  // namespace fakes
