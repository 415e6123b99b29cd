#pragma once

#include <QWidget>

#include <map>

#include "platform/forms/Form.h"
#include "platform/forms/FormHost.h"

namespace qt {

class FormWindow;

/// Shows forms as windows. Handles of windows are numbers of its own.
class QtFormHost : public forms::FormHost {
 public:
  /// @param mainWindow what forms stand before; outlives the host; may be nullptr
  explicit QtFormHost(QWidget* mainWindow = nullptr) : mainWindow_(mainWindow) {}
  ~QtFormHost() override;
  QtFormHost(const QtFormHost&) = delete;
  QtFormHost& operator=(const QtFormHost&) = delete;

  void ShowModal(forms::Form& form) override;
  void ShowModeless(forms::Form& form) override;
  void Loaded(forms::Form& form) override;
  void Hidden(forms::Form& form) override;
  void Unloaded(forms::Form& form) override;
  void Repaint(forms::Form& form) override;
  void DoEvents() override;
  int TextWidth(forms::Form& form, std::u16string_view text) override;
  void SetHorizontalExtent(forms::Form& form, std::string_view list, int width) override;
  std::intptr_t RemoveCloseBox(std::u16string_view caption) override;
  std::intptr_t WindowHandle(forms::Form& form) override;

  /// The window with a handle; the one in front for 0 and for those that are gone; may be nullptr.
  QWidget* Owner(std::intptr_t handle) const;

 private:
  struct Shown {
    std::intptr_t handle;
    FormWindow* window;
  };
  FormWindow* WindowOf(const forms::Form& form) const;

  QWidget* mainWindow_;
  std::map<const forms::Form*, Shown> windows_;
  std::intptr_t lastHandle_{0};
};

}  // namespace qt
