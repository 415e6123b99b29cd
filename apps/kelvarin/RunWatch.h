#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/unattended/UnattendedHost.h"

/// Keeps what a run showed a person, and reports its progress.
class RunWatch : public unattended::UnattendedObserver {
 public:
  struct ShownMessage {
    std::u16string title;
    std::u16string text;
    os::Icon icon;
    /// A question, or one in all but its icon that was answered with OK: nothing that anybody is to be told of.
    bool asked;
  };

  /// @param file what progress is shown for; empty: it is not
  explicit RunWatch(std::filesystem::path file) : file_(std::move(file)) {}

  void FormShown(const forms::Form& form) override;
  void FormEnded(const forms::Form& form) override;
  void MessageShown(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons,
                    os::Pressed pressed) override;
  void ProgressShown(const unattended::ProgressState& state, unattended::Transcript::Phase phase) override;

  /// The terms dialog came.
  bool TermsShown() const { return termsShown_; }
  /// The terms that it offered, as its last search found them.
  const std::vector<std::u16string>& Found() const { return found_; }
  const std::vector<ShownMessage>& Messages() const { return messages_; }
  /// One of the messages said that something failed.
  bool ToldAnError() const;

 private:
  void ReadFound(const forms::Form& form);

  std::filesystem::path file_;
  bool termsShown_{false};
  std::vector<std::u16string> found_;
  std::vector<ShownMessage> messages_;
  std::string lastLine_;
};
