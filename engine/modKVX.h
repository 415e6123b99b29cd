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

/// Bookmarks that the engine and a run share.
inline constexpr std::u16string_view kIndexBookmark = u"DefinedTermsIndex";
inline constexpr std::u16string_view kIndexStartBookmark = u"IndexBKStart";
inline constexpr std::u16string_view kReturnBookmark = u"ReturnHereBK";

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

  /// Marks every occurrence of the chosen terms in the main text, footnotes and endnotes, and inserts the
  /// index at "IndexBKStart". An error is shown; what was done before it stays done.
  /// @return whether all of it was done
  bool RunIndexing(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                   const std::vector<std::u16string>& chosen, IndexingDialog& dialog, const IndexingOptions& options);

  /// Marks every term of the table in one story.
  /// @param storyType 1, 2 or 3
  /// @return the table with its counts raised
  /// @throws word::HostError
  TermTable IndexStory(const word::DocumentPtr& document, const word::RangePtr& story, TermTable table, int storyType,
                       const IndexingOptions& options);

  /// Puts back what a run changed in Word. Fast save stays as the run left it, on purpose. An error is shown
  /// and ends it; later values then stay as the run set them.
  void RestoreWordState(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                        const SavedWordState& saved);

 private:
  void Index(const word::ApplicationPtr& application, const word::DocumentPtr& document,
             const std::vector<std::u16string>& chosen, IndexingDialog& dialog, const IndexingOptions& options);

  TermMarker& marker_;
  clsProgForm& progress_;
  os::Characters& characters_;
  os::Messages& messages_;
};
