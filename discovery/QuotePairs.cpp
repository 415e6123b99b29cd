#include "discovery/QuotePairs.h"

#include "addin/clsProgForm.h"
#include "addin/modCommonErrorMsgs.h"
#include "dialogs/frmKVXChangeQuotes.h"
#include "discovery/QuoteHighlighting.h"
#include "discovery/SearchedStories.h"
#include "platform/AnsiText.h"
#include "platform/forms/FormHost.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"
#include "settings/Defaults.h"
#include "settings/OptionSettings.h"

namespace {

constexpr std::u16string_view kTitle = u"Mis-matched double quotes";

word::RangePtr StoryOfType(const word::DocumentPtr& document, word::WdStoryType type) {
  const word::StoryRangesPtr stories = document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    word::RangePtr story = stories->Item(i);
    if (story->StoryType() == type) return story;
  }
  throw word::HostError(word::kMemberDoesNotExist, u"The requested member of the collection does not exist.",
                        "Document.StoryRanges");
}

int CountCharacter(const word::DocumentPtr& document, word::WdStoryType type, int code) {
  const word::RangePtr story = StoryOfType(document, type);
  const word::FindPtr find = story->Find();
  find->ClearFormatting();
  find->SetMatchWholeWord(false);
  find->SetMatchWildcards(false);
  find->SetMatchSoundsLike(false);
  find->SetMatchAllWordForms(false);
  find->SetMatchCase(false);
  const char16_t quote = CharFromAnsiCode(code);
  find->SetText({&quote, 1});
  int count = 0;
  find->Execute();
  while (find->Found()) {
    ++count;
    find->Execute();
  }
  return count;
}

QuoteCount Judge(QuoteCodes codes, int open, int close) {
  const auto unbalancedWhenOdd = [](int number) {
    return number % 2 != 0 ? QuoteCount::kUnbalanced : QuoteCount::kBalanced;
  };
  if (codes.open == codes.close) return unbalancedWhenOdd(open);
  // On purpose: low quotes and guillemets pass whatever their counts.
  const bool curlyPair = codes.open == kOpenCurlyQuote && codes.close == kCloseCurlyQuote;
  return curlyPair ? unbalancedWhenOdd(open - close) : QuoteCount::kBalanced;
}

/// The first story whose quotation marks do not pair up; empty: none, or it cannot be told.
word::RangePtr FirstUnbalanced(const QuoteCheck& check, QuoteCodes codes) {
  for (const word::RangePtr& story : SearchedStories(check.search.document)) {
    const QuoteCount count = CountQuotes(check.search.document, story, codes, check.host.messages);
    if (count == QuoteCount::kBalanced) continue;
    return count == QuoteCount::kUnbalanced ? story : nullptr;
  }
  return nullptr;
}

/// The same under progress, which goes whatever comes of it.
word::RangePtr FirstUnbalancedWithProgress(const QuoteCheck& check, QuoteCodes codes) {
  clsProgForm& progress = check.search.progress;
  word::RangePtr unbalanced;
  try {
    progress.ShowProgress(0);
    progress.UpdateProgress(u"Checking quotation marks", u"", u"", 0, 0, u"Please wait");
    unbalanced = FirstUnbalanced(check, codes);
  } catch (...) {
    progress.CloseProgress();
    throw;
  }
  progress.CloseProgress();
  return unbalanced;
}

bool OfferHighlighting(const QuoteCheck& check, const std::u16string& story) {
  const std::u16string text =
      u"There is a mis-matched pair of double quotes in your document's " + story +
      u"."
      u"\r\n\r\n"
      u"Kelvarin cannot index documents where there is an odd number of double quotes.  "
      u"If an open quote is not matched with a close quote, KVX can't recognize where terms begin and end properly - "
      u"the same thing goes if close quotes aren't matched with open quotes."
      u"\r\n\r\n"
      u"You may be seeing this message because the double quotes style in your document doesn't match what KVX is "
      u"looking for.  You can change the double quotes style by clicking No and selecting the correct style."
      u"\r\n\r\n"
      u"Or you can click Yes to let KVX highlight all the double quotes it recognizes in your document to help you "
      u"find the stray one(s)."
      u"\r\n\r\n"
      u"Do you want to highlight the double quotes in your document's " +
      story + u"?";
  return check.host.messages.Show(kTitle, text, os::Icon::kExclamation, os::Buttons::kYesNo) == os::Pressed::kYes;
}

/// @return whether other quotation marks were chosen, which codes then holds
bool OfferOtherQuotes(const QuoteCheck& check, QuoteCodes& codes) {
  if (check.host.messages.Show(kTitle, u"Do you want to change which kind of double quotes KVX should search for?",
                               os::Icon::kQuestion, os::Buttons::kYesNo) != os::Pressed::kYes) {
    return false;
  }
  frmKVXChangeQuotes form(check.host, check.ini);
  check.host.forms.ShowModal(form);
  const bool changed = form.Tag() == u"OK";
  form.Unload();
  if (!changed) return false;
  codes.open = ReadQuoteCode(check.ini, u"OpenQuote", u"147");
  codes.close = ReadQuoteCode(check.ini, u"closeQuote", u"148");
  return true;
}

std::u16string HighlightedNote(const std::u16string& story) {
  return u"Double quotes have been highlighted in your document's " + story +
         u".  You can remove the highlighting from these double quotes by clicking:"
         u"\r\n\r\n"
         u"Tools > Kelvarin > Remove highlighting only"
         u"\r\n\r\n";
}

void ShowCannotIndex(os::Messages& messages, const std::u16string& note) {
  messages.Show(u"Cannot index",
                note +
                    u"Please go through your document to make sure there are no "
                    u"extra double quotation marks before trying to index again.",
                os::Icon::kCritical, os::Buttons::kOk);
}

}  // namespace

std::u16string_view StoryName(word::WdStoryType type) {
  if (type == word::wdFootnotesStory) return u"footnotes";
  return type == word::wdEndnotesStory ? u"endnotes" : u"main body";
}

QuoteCount CountQuotes(const word::DocumentPtr& document, const word::RangePtr& story, QuoteCodes codes,
                       os::Messages& messages) {
  QuoteCount result = QuoteCount::kFailed;
  TrapErrors(messages, u"Error counting quotes", [&] {
    const word::WdStoryType type = story->StoryType();
    const int open = CountCharacter(document, type, codes.open);
    const int close = codes.close == codes.open ? 0 : CountCharacter(document, type, codes.close);
    result = Judge(codes, open, close);
  });
  return result;
}

bool CheckQuotePairs(const QuoteCheck& check, QuoteCodes& codes) {
  while (true) {
    const word::RangePtr unbalanced = FirstUnbalancedWithProgress(check, codes);
    if (!unbalanced) return false;
    const std::u16string story(StoryName(unbalanced->StoryType()));
    if (OfferHighlighting(check, story)) {
      // What could not be highlighted was said; the note must not claim it.
      const bool highlighted = HighlightQuotes(check, codes, unbalanced);
      ShowCannotIndex(check.host.messages, highlighted ? HighlightedNote(story) : std::u16string());
      return true;
    }
    if (OfferOtherQuotes(check, codes)) continue;
    ShowCannotIndex(check.host.messages, u"");
    return true;
  }
}
