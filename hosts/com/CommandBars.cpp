#include "platform/office/CommandBars.h"

#include "hosts/com/ClickSink.h"
#include "hosts/com/Objects.h"

namespace com {

namespace {

office::CommandBarControlPtr MakeControl(Dispatch word);
office::CommandBarControlsPtr MakeControls(Dispatch word);

/// A click handler lasts as long as the object that it was set through.
class CommandBarControl : public Proxied<office::CommandBarControl> {
 public:
  using Proxied::Proxied;
  int Id() const override { return word_.Int("CommandBarControl.Id"); }
  office::ControlType Type() const override {
    return static_cast<office::ControlType>(word_.Int("CommandBarControl.Type"));
  }
  std::u16string Caption() const override { return word_.Text("CommandBarControl.Caption"); }
  void SetCaption(std::u16string_view value) override { word_.Put("CommandBarControl.Caption", value); }
  std::u16string Tag() const override { return word_.Text("CommandBarControl.Tag"); }
  void SetTag(std::u16string_view value) override { word_.Put("CommandBarControl.Tag", value); }
  bool BeginGroup() const override { return word_.Bool("CommandBarControl.BeginGroup"); }
  void SetBeginGroup(bool value) override { word_.Put("CommandBarControl.BeginGroup", value); }
  bool Visible() const override { return word_.Bool("CommandBarControl.Visible"); }
  void SetVisible(bool value) override { word_.Put("CommandBarControl.Visible", value); }
  office::CommandBarControlsPtr Controls() const override {
    return MakeControls(word_.Object("CommandBarControl.Controls"));
  }
  void SetClickHandler(office::ClickHandler handler) override {
    clicks_.reset();
    if (!handler) return;
    clicks_ = std::make_unique<ClickConnection>(word_.Object(), std::move(handler),
                                                [session = word_.TheSession()](IDispatch* clicked) {
                                                  return MakeControl({ComPtr<IDispatch>(clicked), session});
                                                });
  }
  void Delete() override { word_.Call("CommandBarControl.Delete"); }

 private:
  std::unique_ptr<ClickConnection> clicks_;
};

class CommandBarControls : public Proxied<office::CommandBarControls> {
 public:
  using Proxied::Proxied;
  int Count() const override { return word_.Int("CommandBarControls.Count"); }
  office::CommandBarControlPtr Item(int index) const override {
    return MakeControl(word_.Object("CommandBarControls.Item", {index}));
  }
  office::CommandBarControlPtr Add(const AddArguments& arguments) override {
    return MakeControl(word_.Object("CommandBarControls.Add", {arguments.Type, arguments.Id, Variant::Missing(),
                                                               Variant::Missing(), arguments.Temporary}));
  }
};

class CommandBar : public Proxied<office::CommandBar> {
 public:
  using Proxied::Proxied;
  office::CommandBarControlsPtr Controls() const override { return MakeControls(word_.Object("CommandBar.Controls")); }
};

class CommandBars : public Proxied<office::CommandBars> {
 public:
  using Proxied::Proxied;
  office::CommandBarPtr Item(std::u16string_view name) const override {
    return std::make_shared<CommandBar>(word_.Object("CommandBars.Item", {name}));
  }
  office::CommandBarControlPtr FindControl(int id) const override {
    const Variant found = word_.Get("CommandBars.FindControl", {Variant::Missing(), id});
    return found.IsNothing() ? nullptr : MakeControl(word_.Wrap(found, "CommandBars.FindControl"));
  }
};

office::CommandBarControlPtr MakeControl(Dispatch word) { return std::make_shared<CommandBarControl>(std::move(word)); }

office::CommandBarControlsPtr MakeControls(Dispatch word) {
  return std::make_shared<CommandBarControls>(std::move(word));
}

}  // namespace

office::CommandBarsPtr MakeCommandBars(Dispatch word) { return std::make_shared<CommandBars>(std::move(word)); }

}  // namespace com
