#include "engine/modKVX.h"

#include "addin/modCommonErrorMsgs.h"
#include "platform/word/Application.h"
#include "platform/word/Document.h"
#include "platform/word/Options.h"
#include "platform/word/Window.h"

#include <unordered_set>

std::vector<std::u16string> ChosenTerms(const forms::ListBox& lstTermsInDoc, const forms::ListBox& lstAddTerms) {
  std::vector<std::u16string> chosen;
  std::unordered_set<std::u16string> seen;
  for (const forms::ListBox* list : {&lstTermsInDoc, &lstAddTerms}) {
    for (int i = 0; i < list->ListCount(); ++i) {
      if (!list->Selected(i)) continue;
      if (seen.insert(list->List(i)).second) chosen.push_back(list->List(i));
    }
  }
  return chosen;
}

bool modKVX::RestoreWordState(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                              const SavedWordState& saved) {
  return TrapErrors(messages_, u"Error restoring options", [&] {
    const word::OptionsPtr options = application->Options();
    options->SetAutoFormatAsYouTypeReplaceQuotes(saved.SavedReplaceQuotes);
    marker_.FinishDocument(document);
    document->UndoClear();
    document->ActiveWindow()->View()->SetShowHiddenText(saved.SavedShowHiddenText);
    options->SetCheckSpellingAsYouType(saved.SavedCheckSpelling);
    options->SetCheckGrammarAsYouType(saved.SavedCheckGrammar);
    document->SetShowGrammaticalErrors(saved.SavedShowGrammarErrors);
    document->SetShowSpellingErrors(saved.SavedShowSpellingErrors);
  });
}
