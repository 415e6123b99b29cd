#include "discovery/Articles.h"

#include "addin/modCommonErrorMsgs.h"
#include "dialogs/frmKVXRemoveArticles.h"
#include "discovery/SearchedStories.h"
#include "platform/forms/FormHost.h"
#include "platform/os/Characters.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

namespace {

std::u16string_view FirstWord(std::u16string_view term) { return term.substr(0, term.find(u' ')); }

bool IsArticle(std::u16string_view word) { return word == u"a" || word == u"an" || word == u"any" || word == u"the"; }

/// As a search text and a replacement have it, where "^" begins a code.
std::u16string Escaped(std::u16string_view text) {
  std::u16string escaped;
  for (const char16_t unit : text) escaped.append(unit == u'^' ? 2 : 1, unit);
  return escaped;
}

}  // namespace

std::vector<std::u16string> CollectArticleTerms(const FoundTerms& found, os::Characters& characters) {
  std::vector<std::u16string> terms;
  for (const std::u16string& term : found) {
    if (IsArticle(characters.ToLower(FirstWord(term)))) terms.push_back(term);
  }
  return terms;
}

void MoveQuotePastArticle(const word::DocumentPtr& document, std::u16string_view term) {
  const std::u16string_view article = FirstWord(term);
  if (article.size() == term.size()) {
    throw word::HostError(word::kInvalidCall, u"Invalid procedure call or argument", "MoveQuotePastArticle");
  }
  const std::u16string searched = u"\"" + Escaped(term);
  const std::u16string replaced = std::u16string(article) + u" \"" + Escaped(term.substr(article.size() + 1));
  for (const word::RangePtr& story : SearchedStories(document)) {
    const word::FindPtr find = story->Find();
    find->ClearFormatting();
    find->SetText(searched);
    find->Replacement()->SetText(replaced);
    find->SetForward(true);
    find->SetWrap(word::wdFindContinue);
    find->SetFormat(false);
    find->Execute({.Replace = word::wdReplaceAll});
  }
}

bool OfferToMoveQuotes(const word::DocumentPtr& document, const Host& host, const FoundTerms& found) {
  const std::vector<std::u16string> terms = CollectArticleTerms(found, host.characters);
  if (terms.empty()) return false;
  frmKVXRemoveArticles form(host, terms);
  host.forms.ShowModal(form);
  const std::vector<std::u16string> ticked = form.Tag() == u"OK" ? form.TickedTerms() : std::vector<std::u16string>();
  form.Unload();
  for (const std::u16string& term : ticked) {
    TrapErrors(host.messages, u"Error moving quotes", [&] { MoveQuotePastArticle(document, term); });
  }
  if (!ticked.empty()) document->UndoClear();
  return !ticked.empty();
}
