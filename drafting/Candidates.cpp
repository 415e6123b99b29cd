#include "drafting/Candidates.h"

#include <algorithm>

#include "addin/clsProgForm.h"
#include "discovery/Articles.h"
#include "discovery/CappedTerms.h"
#include "discovery/LineText.h"
#include "discovery/QuotedTerms.h"
#include "discovery/SearchedStories.h"
#include "discovery/TextSet.h"
#include "drafting/QuoteMarks.h"
#include "platform/forms/Control.h"
#include "platform/forms/Form.h"

namespace drafting {

namespace {

/// More are a sentence that is quoted.
constexpr std::ptrdiff_t kMostWords = 10;

/// The controls that a search writes to, which nobody sees.
class NoDialog : public forms::Form {
 public:
  explicit NoDialog(forms::FormHost& host) : Form(host, "NoDialog") {}
  forms::Layout MakeLayout() override { return {}; }
  forms::ListBox list{*this, "list"};
  forms::Label label{*this, "label"};
  forms::StatusBar status{*this, "status"};
};

bool IsCapital(char16_t unit) { return unit >= u'A' && unit <= u'Z'; }

/// Whether what stands in quotes reads as a term and not as a quotation or a word that is spoken of.
bool IsTermLike(std::u16string_view term) {
  if (term.empty() || !IsCapital(term.front()) || EndsSentenceInside(term)) return false;
  if (LineEnd(term, 0) != term.size()) return false;
  return std::count(term.begin(), term.end(), u' ') < kMostWords;
}

FoundTerms FindQuoted(const CandidateSources& sources, clsProgForm& progress) {
  NoDialog dialog(sources.forms);
  const TermSearch search{
      sources.application,     sources.document, sources.marker, progress, {dialog.list, dialog.label, dialog.status},
      ProgressMode::kStatusBar};
  FoundTerms all;
  // Story by story and by themselves: a term that two stories quote ends neither's contribution here.
  for (const word::RangePtr& story : SearchedStories(sources.document)) {
    const FoundTerms found = FindQuotedTerms(search, story, {}, false, FoundTerms(1));
    all.insert(all.end(), found.begin(), found.end());
  }
  return all;
}

}  // namespace

std::u16string_view WithoutArticle(std::u16string_view term, os::Characters& characters) {
  const bool begins = !CollectArticleTerms({std::u16string(term)}, characters).empty();
  const std::size_t blank = term.find(u' ');
  return begins && blank != std::u16string_view::npos ? term.substr(blank + 1) : term;
}

Candidates FindCandidates(const CandidateSources& sources) {
  Candidates candidates;
  clsProgForm progress(sources.forms);
  TextSet known;
  for (const std::u16string& quoted : FindQuoted(sources, progress)) {
    std::u16string term;
    AppendAsRead(quoted, term);
    term.resize(WithoutPunctuation(term).size());
    if (IsTermLike(WithoutArticle(term, sources.characters)) && known.insert(term).second) {
      candidates.quoted.push_back(term);
    }
  }
  FoundTerms capped;
  FindCappedTerms({sources.document, progress, sources.characters, false, [] {}, [] { return false; }}, capped);
  for (std::u16string& term : capped) {
    if (!term.empty()) candidates.capitalised.push_back(std::move(term));
  }
  return candidates;
}

}  // namespace drafting
