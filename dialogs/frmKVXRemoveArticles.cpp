#include "dialogs/frmKVXRemoveArticles.h"

frmKVXRemoveArticles::frmKVXRemoveArticles(const Host& host, const std::vector<std::u16string>& terms)
    : HelpedForm(host, "frmKVXRemoveArticles", kHelpFormattingTerms) {
  for (const std::u16string& term : terms) lstTerms.AddItem(term);
  txtInstrux.onGotFocus = [this] { lstTerms.SetFocus(); };
  cmdOK.onClick = [this] { End(u"OK"); };
  cmdCancel.onClick = [this] { End(u"Cancel"); };
}

std::vector<std::u16string> frmKVXRemoveArticles::TickedTerms() const {
  std::vector<std::u16string> ticked;
  for (int i = 0; i < lstTerms.ListCount(); ++i) {
    if (lstTerms.Selected(i)) ticked.push_back(lstTerms.List(i));
  }
  return ticked;
}

void frmKVXRemoveArticles::End(std::u16string_view result) {
  SetTag(result);
  Hide();
}

void frmKVXRemoveArticles::OnQueryUnload(forms::UnloadReason) {
  if (Tag() != u"OK") SetTag(u"Cancel");
}
