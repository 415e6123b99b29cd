#include "discovery/CappedSearch.h"

#include <memory>
#include <utility>

#include "addin/clsProgForm.h"
#include "addin/frmKVXProgressFormGetCappedList.h"
#include "addin/modCommonErrorMsgs.h"
#include "discovery/CappedTerms.h"
#include "discovery/FoundTermsLabel.h"
#include "discovery/TermList.h"
#include "discovery/modQuickSort.h"
#include "platform/forms/FormHost.h"

SearchResult SearchCappedTerms(const TermSearch& search, const Host& host, bool ignoreNumbers, FoundTerms& terms) {
  constexpr int kModal = 1;
  const frmKVXProgressFormGetCappedList* shown = nullptr;
  const CappedScan scan{search.document,
                        search.progress,
                        host.characters,
                        ignoreNumbers,
                        [&host] { host.forms.DoEvents(); },
                        [&shown] { return shown->Closed(); }};
  bool done = false;
  auto form = std::make_unique<frmKVXProgressFormGetCappedList>(host, [&] {
    done = TrapErrors(host.messages, u"Build capped terms array failed", [&] {
      if (FindCappedTerms(scan, terms)) QuickSort(terms, 0, static_cast<int>(terms.size()) - 1);
    });
  });
  shown = form.get();
  search.progress.ShowProgress(std::move(form), kModal);
  const bool closed = shown->Closed();
  search.progress.CloseProgress();
  if (closed) return SearchResult::kStopQuietly;
  search.controls.lblTermsInDoc.SetCaption(FoundTermsLabel(TermKind::kCapitals, AnyFound(terms)));
  return done ? SearchResult::kGoOn : SearchResult::kFailed;
}
