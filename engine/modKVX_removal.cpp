#include "engine/modKVX.h"

#include "addin/clsProgForm.h"
#include "addin/modCommonErrorMsgs.h"
#include "platform/BookmarkNames.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"

namespace {

constexpr std::u16string_view kPageStartBookmark = u"IndexPageStart";

constexpr std::u16string_view kUpdateQuestion =
    u"Click Yes if you want to update your existing defined "
    u"terms index without adding additional terms to it."
    u"\r\n\r\n"
    u"If you want to add terms to your defined terms index "
    u"click No and re-index the document."
    u"\r\n\r\n"
    u"If you're unsure about whether your list of terms to be indexed "
    u"has changed, it might be better to re-index the document."
    u"\r\n\r\n"
    u"Note:  Defined But Not Used and Not Found lists will not be updated.  "
    u"Please re-index to update them.";

void GoToFirstPage(const word::ApplicationPtr& application) {
  application->Selection()->GoTo({.What = word::wdGoToPage, .Which = word::wdGoToFirst});
}

bool IsIndexOfTerms(const word::FieldPtr& field) {
  // An entry for a term that is called INDEX would say both words, too.
  if (field->Type() == word::wdFieldIndexEntry) return false;
  const std::u16string code = field->Code()->Text();
  return code.find(u"INDEX") != std::u16string::npos && code.find(u"DefinedTermsIndex") != std::u16string::npos;
}

}  // namespace

void modKVX::ShowStep(std::u16string_view message) {
  progress_.UpdateProgress(message, u"", u"", 0, 0, u"Please wait");
}

bool modKVX::WithScreenHeld(const word::ApplicationPtr& application, std::u16string_view title,
                            const std::function<void()>& work) {
  bool wasUpdating = true;
  const bool done = TrapErrors(messages_, title, [&] {
    wasUpdating = application->ScreenUpdating();
    if (wasUpdating) application->SetScreenUpdating(false);
    progress_.ShowProgress(0);
    work();
  });
  progress_.CloseProgress();
  const bool shown = TrapErrors(messages_, title, [&] {
    application->SetScreenUpdating(wasUpdating);
    if (wasUpdating) application->ScreenRefresh();
  });
  // Nobody can work with a screen that stands still.
  if (!shown) IgnoreErrors([&] { application->SetScreenUpdating(wasUpdating); });
  return done;
}

bool modKVX::RemoveIndexing(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                            bool optionsAccepted) {
  constexpr std::u16string_view kTitle = u"Error removing indexing";
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  const bool removed = WithScreenHeld(application, kTitle, [&] {
    ShowStep(u"Removing index entries");
    marker_.RemoveIndexEntries(application, document, false);
    document->UndoClear();
    ShowStep(u"Removing index");
    marker_.RemoveIndex(application, document, true);
    document->UndoClear();
    ShowStep(u"Removing highlighting from indexed terms");
    marker_.RemoveTermHighlighting(document);
    document->UndoClear();
    GoToFirstPage(application);
    if (!bookmarks->Exists(kPageStartBookmark)) return;
    ShowStep(u"Finishing");
    bookmarks->Item(kPageStartBookmark)->Delete();
  });
  if (!removed) return false;
  return TrapErrors(messages_, kTitle, [&] {
    if (optionsAccepted && bookmarks->Exists(kIndexStartBookmark)) bookmarks->Item(kIndexStartBookmark)->Delete();
    GoToFirstPage(application);
  });
}

bool modKVX::RemoveHighlighting(const word::ApplicationPtr& application, const word::DocumentPtr& document) {
  return WithScreenHeld(application, u"Error removing highlighting", [&] {
    ShowStep(u"Removing highlighting from indexed terms");
    marker_.RemoveTermHighlighting(document);
    document->UndoClear();
    progress_.CloseProgress();
    GoToFirstPage(application);
    messages_.Show(u"Done", u"Highlighting removed from indexed terms.", os::Icon::kInformation, os::Buttons::kOk);
  });
}

bool modKVX::UpdateIndexField(const word::DocumentPtr& document, os::Messages& messages) {
  return TrapErrors(messages, u"Error updating index", [&] {
    if (messages.Show(u"Update only?", kUpdateQuestion, os::Icon::kQuestion, os::Buttons::kYesNo) !=
        os::Pressed::kYes) {
      return;
    }
    const word::FieldsPtr fields = document->Fields();
    const int count = fields->Count();
    for (int index = 1; index <= count; ++index) {
      const word::FieldPtr field = fields->Item(index);
      if (!IsIndexOfTerms(field)) continue;
      field->Update();
      messages.Show(u"Done", u"Defined terms index updated.", os::Icon::kNone, os::Buttons::kOk);
      return;
    }
    messages.Show(u"No defined terms index found",
                  u"No defined terms index found.  Please re-run Kelvarin to create one.", os::Icon::kExclamation,
                  os::Buttons::kOk);
  });
}
