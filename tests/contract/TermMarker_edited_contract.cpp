#include "TermMarkerOnDocx.h"

#include "discovery/Articles.h"
#include "platform/word/Constants.h"

#include <functional>

namespace {

/// Marked text that a person has edited since.
class EditedText : public TermMarkerOnDocx {
 protected:
  static std::string Yellow(const std::string& text) { return TextRun(text, "<w:highlight w:val=\"yellow\"/>"); }

  word::RangePtr First(std::u16string_view text) const {
    const auto begin = static_cast<word::Position>(docx_->Text().find(text));
    return docx_->Document()->Range(begin, begin + static_cast<word::Position>(text.size()));
  }
  /// Typed over what stands there, whose formatting it takes.
  void TypeOver(std::u16string_view from, std::u16string_view to) {
    const word::RangePtr range = First(from);
    const int colour = range->HighlightColorIndex();
    range->SetText(to);
    First(to)->SetHighlightColorIndex(colour);
  }
  /// The text without entries, what is yellow of it in brackets.
  std::u16string Shown() const {
    const std::u16string text = docx_->Text();
    std::u16string shown;
    bool isYellow = false;
    bool isEntry = false;
    for (std::size_t index = 0; index + 1 < text.size(); ++index) {
      const auto at = static_cast<word::Position>(index);
      isEntry = isEntry || text[index] == word::kFieldBegin;
      const bool wasYellow = isYellow;
      if (!isEntry) isYellow = docx_->Document()->Range(at, at + 1)->HighlightColorIndex() == word::wdYellow;
      if (wasYellow != isYellow) shown += isYellow ? u'[' : u']';
      if (!isEntry) shown += text[index];
      if (text[index] == word::kFieldEnd) isEntry = false;
    }
    return isYellow ? shown + u']' : shown;
  }
  /// What is left when all is taken away, and when the highlighting alone is.
  void ExpectLeft(const std::u16string& shown, const std::function<void()>& prepare) {
    for (const bool highlightsOnly : {false, true}) {
      prepare();
      if (highlightsOnly) marker_->RemoveTermHighlighting(docx_->Document());
      RemoveAll();
      EXPECT_EQ(Shown(), shown) << highlightsOnly;
    }
  }
};

TEST_F(EditedText, LosesItsHighlightThoughItIsLongerThanItsEntryNow) {
  ExpectLeft(u"the Sole Purchaser\u2019s and Vendors", [&] {
    OpenParagraph(TextRun("the Buyer\u2019s and Sellers"));
    Mark({u"Buyer", u"Sellers"});
    TypeOver(u"Buyer", u"Sole Purchaser");
    TypeOver(u"Sellers", u"Vendors");
  });
}

TEST_F(EditedText, LosesNoHighlightOfTheAuthorsThatItTouches) {
  ExpectLeft(u"see [the ]Purchaser, [Sellers] and Agents", [&] {
    OpenParagraph(TextRun("see ") + Yellow("the ") + TextRun("Buyer, ") + Yellow("Seller") + TextRun(" and Agent"));
    Mark({u"Buyer", u"Seller", u"Agent"});
    TypeOver(u"Buyer", u"Purchaser");
    TypeOver(u"Seller", u"Sellers");
    TypeOver(u"Agent", u"Agents");
  });
}

TEST_F(EditedText, LosesNoHighlightThatRunsOnThroughItsEntry) {
  ExpectLeft(u"now [the Purchaser pays] all", [&] {
    OpenParagraph(TextRun("now the Buyer pays all"));
    Mark({u"Buyer"});
    TypeOver(u"Buyer", u"Purchaser");
    const word::RangePtr passage = First(u"the Purchaser");
    passage->SetEnd(First(u" pays")->End());
    passage->SetHighlightColorIndex(word::wdYellow);
  });
}

TEST_F(EditedText, LosesNoHighlightThatEndsWithTheEntryBeforeIt) {
  ExpectLeft(u"see [the ](1)(two)", [&] {
    OpenParagraph(TextRun("see the (1)(2)"));
    Mark({u"(1)", u"(2)"});
    const word::RangePtr passage = First(u"the (1)" + Entry(u"(1)"));
    passage->SetHighlightColorIndex(word::wdYellow);
    TypeOver(u"(2)", u"(two)");
  });
}

TEST_F(EditedText, LosesItsHighlightThoughItsQuotationMarkWasMovedPastAnArticle) {
  ExpectLeft(u"This is the \u201CAgreement\u201D [or the \u201C]Agreement\u201D.", [&] {
    OpenParagraph(TextRun("This is \u201Cthe Agreement\u201D ") + Yellow("or \u201Cthe ") +
                  TextRun("Agreement\u201D."));
    Mark({u"the Agreement"});
    MoveQuotePastArticle(docx_->Document(), u"the Agreement");
  });
}

TEST_F(EditedText, LosesThePossessiveEndingsHighlightWhereTheTermHadOne) {
  ExpectLeft(u"the ler\u2019s Counsel\u2019s", [&] {
    OpenParagraph(TextRun("the Seller\u2019s Counsel\u2019s"));
    Mark({u"Seller\u2019s", u"Counsel\u2019s"});
    First(u"Sel")->Delete();
  });
}

}  // namespace
