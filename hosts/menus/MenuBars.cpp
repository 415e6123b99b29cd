#include "hosts/menus/MenuBars.h"

#include "platform/word/HostError.h"

#include <algorithm>
#include <utility>

namespace menus {

namespace {

using Items = std::vector<std::shared_ptr<Item>>;

[[noreturn]] void ThrowDeleted(std::string_view member) {
  throw word::HostError(word::kObjectDeleted, u"Object has been deleted.", member);
}

[[noreturn]] void ThrowNoMember(std::string_view member) {
  throw word::HostError(word::kMemberDoesNotExist, u"The requested member of the collection does not exist.", member);
}

/// The list that holds an item, in this list or below; nullptr when it is nowhere.
Items* HolderOf(Items& items, const Item* wanted) {
  for (const std::shared_ptr<Item>& item : items) {
    if (item.get() == wanted) return &items;
    if (Items* below = HolderOf(item->items, wanted)) return below;
  }
  return nullptr;
}

std::shared_ptr<Item> FindById(const Items& items, int id) {
  for (const std::shared_ptr<Item>& item : items) {
    if (item->id == id) return item;
    if (std::shared_ptr<Item> below = FindById(item->items, id)) return below;
  }
  return nullptr;
}

}  // namespace

struct MenuBars::State {
  Items tools;
  Items elsewhere;
  Observer* observer{nullptr};

  std::shared_ptr<Item> Find(int id) const {
    const std::shared_ptr<Item> here = FindById(tools, id);
    return here ? here : FindById(elsewhere, id);
  }
  /// The list that holds an item; nullptr when it was deleted.
  Items* Holder(const Item* item) {
    Items* here = HolderOf(tools, item);
    return here != nullptr ? here : HolderOf(elsewhere, item);
  }
  void Changed() const {
    if (observer != nullptr) observer->Changed();
  }
};

class MenuBars::Control : public office::CommandBarControl {
 public:
  Control(std::weak_ptr<State> state, std::weak_ptr<Item> item) : state_(std::move(state)), item_(std::move(item)) {}

  office::ControlType Type() const override { return There("CommandBarControl.Type").type; }
  int Id() const override { return There("CommandBarControl.Id").id; }
  std::u16string Caption() const override { return There("CommandBarControl.Caption").caption; }
  void SetCaption(std::u16string_view value) override {
    Item& item = There("CommandBarControl.Caption");
    const bool complete = IsComplete(item);
    item.caption = value;
    Tell(item, complete);
  }
  std::u16string Tag() const override { return There("CommandBarControl.Tag").tag; }
  void SetTag(std::u16string_view value) override {
    Item& item = There("CommandBarControl.Tag");
    const bool complete = IsComplete(item);
    item.tag = value;
    Tell(item, complete);
  }
  bool BeginGroup() const override { return There("CommandBarControl.BeginGroup").beginGroup; }
  void SetBeginGroup(bool value) override {
    There("CommandBarControl.BeginGroup").beginGroup = value;
    state_.lock()->Changed();
  }
  bool Visible() const override { return There("CommandBarControl.Visible").visible; }
  void SetVisible(bool value) override {
    There("CommandBarControl.Visible").visible = value;
    state_.lock()->Changed();
  }
  office::CommandBarControlsPtr Controls() const override;
  void SetClickHandler(office::ClickHandler handler) override {
    There("CommandBarButton.Click").onClick = std::move(handler);
  }
  void Delete() override {
    Item& item = There("CommandBarControl.Delete");
    const std::shared_ptr<State> state = state_.lock();
    Items& holder = *state->Holder(&item);
    const auto place = std::find_if(holder.begin(), holder.end(), [&](const auto& one) { return one.get() == &item; });
    const std::shared_ptr<Item> gone = *place;
    holder.erase(place);
    if (state->observer != nullptr) state->observer->Deleted(*gone);
    state->Changed();
  }

 private:
  static bool IsComplete(const Item& item) { return !item.caption.empty() && !item.tag.empty(); }

  void Tell(const Item& item, bool wasComplete) const {
    const std::shared_ptr<State> state = state_.lock();
    if (!wasComplete && IsComplete(item) && state->observer != nullptr) state->observer->Added(item);
    state->Changed();
  }

  Item& There(std::string_view member) const {
    const std::shared_ptr<State> state = state_.lock();
    const std::shared_ptr<Item> item = item_.lock();
    if (!state || !item || state->Holder(item.get()) == nullptr) ThrowDeleted(member);
    return *item;
  }

  std::weak_ptr<State> state_;
  std::weak_ptr<Item> item_;
};

class MenuBars::Controls : public office::CommandBarControls {
 public:
  /// @param popup empty: the controls of the bar itself
  Controls(std::weak_ptr<State> state, std::shared_ptr<menus::Item> popup)
      : state_(std::move(state)), popup_(std::move(popup)) {}

  int Count() const override { return static_cast<int>(There("CommandBarControls.Count").size()); }
  office::CommandBarControlPtr Item(int index) const override {
    const Items& items = There("CommandBarControls.Item");
    if (index < 1 || index > static_cast<int>(items.size())) ThrowNoMember("CommandBarControls.Item");
    return std::make_shared<Control>(state_, items[static_cast<std::size_t>(index - 1)]);
  }
  office::CommandBarControlPtr Add(const AddArguments& arguments) override {
    Items& items = There("CommandBarControls.Add");
    auto item = std::make_shared<menus::Item>();
    item->type = arguments.Type;
    item->id = arguments.Id;
    item->temporary = arguments.Temporary;
    if (const auto builtIn = arguments.Id > 1 ? state_.lock()->Find(arguments.Id) : nullptr) {
      item->caption = builtIn->caption;
    }
    items.push_back(item);
    state_.lock()->Changed();
    return std::make_shared<Control>(state_, item);
  }

 private:
  Items& There(std::string_view member) const {
    const std::shared_ptr<State> state = state_.lock();
    if (!state) ThrowDeleted(member);
    if (!popup_) return state->tools;
    if (state->Holder(popup_.get()) == nullptr) ThrowDeleted(member);
    return popup_->items;
  }

  std::weak_ptr<State> state_;
  std::shared_ptr<menus::Item> popup_;
};

office::CommandBarControlsPtr MenuBars::Control::Controls() const {
  if (There("CommandBarPopup.Controls").type != office::msoControlPopup) {
    throw word::HostError(word::kMethodNotAvailable, u"This method or property is not available.",
                          "CommandBarPopup.Controls");
  }
  return std::make_shared<MenuBars::Controls>(state_, item_.lock());
}

class MenuBars::Bar : public office::CommandBar {
 public:
  explicit Bar(std::weak_ptr<State> state) : state_(std::move(state)) {}
  office::CommandBarControlsPtr Controls() const override {
    return std::make_shared<MenuBars::Controls>(state_, nullptr);
  }

 private:
  std::weak_ptr<State> state_;
};

class MenuBars::Bars : public office::CommandBars {
 public:
  explicit Bars(std::weak_ptr<State> state) : state_(std::move(state)) {}
  office::CommandBarPtr Item(std::u16string_view name) const override {
    if (name != u"Tools") ThrowNoMember("CommandBars.Item");
    return std::make_shared<Bar>(state_);
  }
  office::CommandBarControlPtr FindControl(int id) const override {
    const std::shared_ptr<State> state = state_.lock();
    if (!state) ThrowDeleted("CommandBars.FindControl");
    const std::shared_ptr<menus::Item> item = state->Find(id);
    return item ? std::make_shared<Control>(state_, item) : nullptr;
  }

 private:
  std::weak_ptr<State> state_;
};

MenuBars::MenuBars(Observer* observer) : state_(std::make_shared<State>()) { state_->observer = observer; }
MenuBars::~MenuBars() = default;

office::CommandBarsPtr MenuBars::CommandBars() const { return std::make_shared<Bars>(state_); }

const std::vector<std::shared_ptr<Item>>& MenuBars::Tools() const { return state_->tools; }

void MenuBars::AddBuiltIn(Item item) {
  state_->tools.push_back(std::make_shared<Item>(std::move(item)));
  state_->Changed();
}

void MenuBars::AddElsewhere(Item item) { state_->elsewhere.push_back(std::make_shared<Item>(std::move(item))); }

bool MenuBars::Click(const std::shared_ptr<Item>& item) {
  if (!item->visible || !item->onClick || state_->Holder(item.get()) == nullptr) return false;
  // The handler may take the button away.
  const office::ClickHandler handler = item->onClick;
  bool cancelDefault = false;
  handler(std::make_shared<Control>(state_, item), cancelDefault);
  return true;
}

}  // namespace menus
