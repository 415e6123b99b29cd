#include "platform/forms/Dump.h"

#include "platform/Text.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace forms {

namespace {

std::u16string Plain(std::string_view text) { return {text.begin(), text.end()}; }

std::u16string Quoted(std::u16string_view text) { return u'"' + std::u16string(text) + u'"'; }

/// The value as it stands behind the name, with its sign of equality; empty for a kind without one.
std::u16string Value(const Control& control) {
  switch (control.ControlKind()) {
    case Kind::kCheckBox:
      return u'=' + Decimal(static_cast<const CheckBox&>(control).Value());
    case Kind::kOptionButton:
      return static_cast<const OptionButton&>(control).Value() ? u"=1" : u"=0";
    case Kind::kComboBox:
      return u'=' + Decimal(static_cast<const ComboBox&>(control).ListIndex());
    case Kind::kListBox:
      return u'=' + Decimal(static_cast<const ListBox&>(control).ListIndex());
    case Kind::kTextBox:
      return u'=' + Quoted(static_cast<const TextBox&>(control).Text());
    case Kind::kTabStrip:
      return u'=' + Decimal(static_cast<const TabStrip&>(control).SelectedTab());
    case Kind::kStatusBar:
      return u'=' + Quoted(static_cast<const StatusBar&>(control).SimpleText());
    default:
      return {};
  }
}

class Writer {
 public:
  explicit Writer(const Form& form) : form_(form) {}

  std::u16string Write() {
    text_ = Plain(form_.Name()) + u' ' + Quoted(form_.Caption()) + u'\n';
    WriteNode(form_.GetLayout(), 0);
    for (const Control* control : form_.Controls()) {
      if (std::find(placed_.begin(), placed_.end(), control) == placed_.end()) WriteControl(*control, 0);
    }
    return text_;
  }

 private:
  void WriteNode(const LayoutNode& node, int depth) {
    int inner = depth;
    if (node.control != nullptr) {
      WriteControl(*node.control, depth);
      placed_.push_back(node.control);
      ++inner;
    }
    for (const LayoutNode& child : node.children) WriteNode(child, inner);
  }

  void WriteControl(const Control& control, int depth) {
    Indent(depth);
    text_ += Plain(KindName(control.ControlKind())) + u' ' + Plain(control.Name());
    if (control.Index() >= 0) text_ += u'(' + Decimal(control.Index()) + u')';
    text_ += Value(control);
    if (!control.Enabled()) text_ += u" disabled";
    if (!control.Visible()) text_ += u" hidden";
    if (form_.DefaultButton() == &control) text_ += u" default";
    if (form_.CancelButton() == &control) text_ += u" cancel";
    if (!control.Caption().empty()) text_ += u' ' + Quoted(control.Caption());
    if (!control.ToolTip().empty()) text_ += u" tip " + Quoted(control.ToolTip());
    text_ += u'\n';
    WriteEntries(control, depth + 1);
  }

  void WriteEntries(const Control& control, int depth) {
    if (control.ControlKind() == Kind::kListBox) {
      const auto& list = static_cast<const ListBox&>(control);
      for (int i = 0; i < list.ListCount(); ++i) WriteEntry(list.Selected(i), list.List(i), depth);
    } else if (control.ControlKind() == Kind::kComboBox) {
      const auto& combo = static_cast<const ComboBox&>(control);
      for (int i = 0; i < combo.ListCount(); ++i) WriteEntry(combo.ListIndex() == i, combo.List(i), depth);
    } else if (control.ControlKind() == Kind::kTabStrip) {
      const auto& strip = static_cast<const TabStrip&>(control);
      for (int i = 0; i < static_cast<int>(strip.Tabs().size()); ++i) {
        WriteEntry(strip.SelectedTab() == i, strip.Tabs()[static_cast<std::size_t>(i)], depth);
      }
    }
  }

  void WriteEntry(bool marked, std::u16string_view entry, int depth) {
    Indent(depth);
    text_ += marked ? u"* " : u"  ";
    text_ += entry;
    text_ += u'\n';
  }

  void Indent(int depth) { text_.append(static_cast<std::size_t>(depth) * 2, u' '); }

  const Form& form_;
  std::u16string text_;
  std::vector<const Control*> placed_;
};

}  // namespace

std::u16string Dump(const Form& form) { return Writer(form).Write(); }

}  // namespace forms
