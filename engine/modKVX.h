#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/TermMarker.h"
#include "platform/forms/Control.h"
#include "platform/os/Characters.h"
#include "platform/os/Messages.h"
#include "platform/word/Types.h"

class clsProgForm;

/// What the engine asks of the terms dialog while a run indexes.
class IndexingDialog {
 public:
  virtual ~IndexingDialog() = default;
  /// Hides the dialog; it stays loaded.
  virtual void HideWhileIndexing() = 0;
  /// Puts the index in at "IndexBKStart" with the columns and separator that the dialog shows, or, with
  /// updateOnly, brings the present one up to date.
  virtual void IndexInsertOrUpdate(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                                   bool updateOnly) = 0;
  /// Whether the dialog asks for the list at this moment.
  virtual bool IncludesNotUsedList() const = 0;
  virtual bool IncludesNotFoundList() const = 0;
  /// Writes the list of terms that are not used or used only once behind the index. @param terms sorted, separated by
  /// CR LF
  virtual void NotUsedList(const word::DocumentPtr& document, std::u16string_view terms) = 0;
  /// Writes the list of terms that are not found behind the other one.
  virtual void NotFoundList(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                            std::u16string_view terms) = 0;
};

/// What the controls said when the user pressed OK.
struct IndexingOptions {
  bool matchCase{false};
  /// Index the all-capitals form of a term under the term.
  bool indexCaps{false};
  /// "IndexAll", or "IndexDefs" for definitions only.
  std::u16string indexWhat{u"IndexAll"};
};

/// What Word's state was before a run changed it.
struct SavedWordState {
  bool SavedReplaceQuotes{false};
  bool SavedAllowFastSave{false};
  bool SavedCheckSpelling{false};
  bool SavedCheckGrammar{false};
  bool SavedShowGrammarErrors{false};
  bool SavedShowSpellingErrors{false};
  bool SavedShowHiddenText{false};
};

/// The selected found terms, then the selected added ones, in list order, each text once.
std::vector<std::u16string> ChosenTerms(const forms::ListBox& lstTermsInDoc, const forms::ListBox& lstAddTerms);

/// The indexing engine: marks the chosen terms, has the index put in, and puts Word's state back.
class modKVX {
 public:
  /// All outlive the object.
  modKVX(TermMarker& termMarker, clsProgForm& progress, os::Characters& characters, os::Messages& messages)
      : marker_(termMarker), progress_(progress), characters_(characters), messages_(messages) {}
  modKVX(const modKVX&) = delete;
  modKVX& operator=(const modKVX&) = delete;

  /// Marks every occurrence of the chosen terms in the main text, footnotes and endnotes, inserts the index at
  /// "IndexBKStart", and behind it the lists that the dialog asks for. An error is shown; what was done before it stays
  /// done.
  /// @return whether all of it was done
  bool RunIndexing(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                   const std::vector<std::u16string>& chosen, IndexingDialog& dialog, const IndexingOptions& options);

  /// Marks every term of the table in one story.
  /// @param storyType 1, 2 or 3
  /// @return the table with its counts raised
  /// @throws word::HostError
  TermTable IndexStory(const word::DocumentPtr& document, const word::RangePtr& story, TermTable table, int storyType,
                       const IndexingOptions& options);

  /// Takes everything away that marking, the index and its lists put into the document, shows how far it is, and goes
  /// to the first page. An error is shown; steps done before it stay done.
  /// @param optionsAccepted the options dialog of the last run was confirmed, so that "IndexBKStart" is ours
  /// @return whether all of it was done
  bool RemoveIndexing(const word::ApplicationPtr& application, const word::DocumentPtr& document, bool optionsAccepted);

  /// Takes the highlighting of indexed terms away, goes to the first page and says so. Entries, index and lists stay.
  /// @return whether it was done; an error is shown
  bool RemoveHighlighting(const word::ApplicationPtr& application, const word::DocumentPtr& document);

  /// Asks, and then updates the first index of defined terms, or says that there is none.
  /// @return whether no error was shown; a user who says no has had what they wanted
  static bool UpdateIndexField(const word::DocumentPtr& document, os::Messages& messages);

  /// Puts back what a run changed in Word. Fast save stays as the run left it, on purpose. An error is shown
  /// and ends it; later values then stay as the run set them.
  /// @return whether it came to its end
  bool RestoreWordState(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                        const SavedWordState& saved);

 private:
  void Index(const word::ApplicationPtr& application, const word::DocumentPtr& document,
             const std::vector<std::u16string>& chosen, IndexingDialog& dialog, const IndexingOptions& options);
  void ShowStep(std::u16string_view message);
  /// Does work with progress shown and screen updating off, and puts both back however it ends.
  bool WithScreenHeld(const word::ApplicationPtr& application, std::u16string_view title,
                      const std::function<void()>& work);

  TermMarker& marker_;
  clsProgForm& progress_;
  os::Characters& characters_;
  os::Messages& messages_;
};
