#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/unattended/DialogAnswers.h"

namespace unattended {

/// What a caller wants of "Find and index", each standing for a control of its dialogs. What is absent leaves the
/// choice to the settings. Texts are UTF-8.
struct IndexOptions {
  enum class Search { kQuoted, kCapitals };
  enum class What { kAll, kDefinitions };

  std::optional<Search> search{};
  std::optional<bool> bold{};
  std::optional<bool> highlight{};
  std::optional<bool> matchCase{};
  std::optional<bool> caps{};
  std::optional<bool> ignoreNumbers{};
  /// Windows-1252 codes that the dialog offers: 147, 148, 132, 171 and 187.
  std::optional<int> openQuote{};
  std::optional<int> closeQuote{};
  std::optional<int> columns{};
  std::optional<std::string> separator{};
  std::optional<bool> tab{};
  std::optional<bool> notUsed{};
  std::optional<bool> notFound{};
  /// Acts before tab, which follows it in the dialog.
  std::optional<What> what{};

  /// Terms to add; one that was found is selected instead.
  std::vector<std::string> add{};
  /// A term list, as the machine spells its path; what it adds is selected.
  std::optional<std::string> load{};
  /// Found terms to deselect.
  std::vector<std::string> exclude{};
  /// Deselect every found term first.
  bool onlyAdded{false};
  /// Tick every term whose quote can be moved past its article.
  bool fixArticles{false};
  /// Search only: the terms dialog is cancelled when it comes.
  bool searchOnly{false};
};

/// Answers the dialogs of "Find and index" from options; every other dialog gets its default answer. An option whose
/// control is disabled has no meaning then and is passed over.
class IndexAnswers : public DialogAnswers {
 public:
  explicit IndexAnswers(IndexOptions options);

 protected:
  os::Pressed ChooseButton(std::u16string_view title, os::Buttons buttons) override;
  std::u16string ChooseFile(std::u16string_view title) override;
  void WorkIn(forms::Form& form, const std::function<void()>& stepDone) override;

 private:
  void SetOptions(forms::Form& form, const std::function<void()>& stepDone);
  void LoadList(forms::Form& form, const std::function<void()>& stepDone);
  void MoveArticles(forms::Form& form, const std::function<void()>& stepDone);
  void ChooseTerms(forms::Form& form, const std::function<void()>& stepDone);

  IndexOptions options_;
  /// The term list is still to be named.
  bool loadPending_{false};
};

}  // namespace unattended
