// Each byte adds a piece of WordprocessingML to a document's main part or its footnotes, or closes what is open. The
// document is opened as the program does; its stories are read and laid out, terms are marked, the index is
// inserted, and all is taken away again. Only errors of the host may come of it, and what is written opens again.

#include "DocxDocument.h"
#include "Pieces.h"

#include "hosts/docx/package/Package.h"
#include "hosts/linux/IcuCharacters.h"
#include "marker/MakeTermMarker.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr std::array<Piece, 47> kPieces{{
    {"<w:p>", "</w:p>"},
    {"<w:r>", "</w:r>"},
    {"<w:t xml:space=\"preserve\">", "</w:t>"},
    {"Buyer", ""},
    {"“Buyer” means ", ""},
    {" the Share Price; ", ""},
    {" ", ""},
    {"<w:tab/>", ""},
    {"<w:br/>", ""},
    {"<w:br w:type=\"page\"/>", ""},
    {"<w:fldChar w:fldCharType=\"begin\"/>", ""},
    {"<w:fldChar w:fldCharType=\"separate\"/>", ""},
    {"<w:fldChar w:fldCharType=\"end\"/>", ""},
    {"<w:instrText> XE \"Buyer\" \\f \"DefinedTermsIndex\" </w:instrText>", ""},
    {"<w:instrText> INDEX \\f \"DefinedTermsIndex\" \\c \"2\" </w:instrText>", ""},
    {"<w:instrText> PAGEREF x \\h </w:instrText>", ""},
    {"<w:fldSimple w:instr=\" PAGE \">", "</w:fldSimple>"},
    {"<w:tbl>", "</w:tbl>"},
    {"<w:tr>", "</w:tr>"},
    {"<w:tc>", "</w:tc>"},
    {"<w:rPr><w:b/></w:rPr>", ""},
    {"<w:rPr><w:highlight w:val=\"yellow\"/></w:rPr>", ""},
    {"<w:rPr><w:vanish/></w:rPr>", ""},
    {"<w:pPr><w:pageBreakBefore/></w:pPr>", ""},
    {"<w:pPr><w:sectPr><w:type w:val=\"continuous\"/><w:cols w:num=\"2\"/></w:sectPr></w:pPr>", ""},
    {"<w:pPr><w:numPr><w:ilvl w:val=\"1\"/><w:numId w:val=\"1\"/></w:numPr></w:pPr>", ""},
    {"<w:ins w:id=\"1\" w:author=\"A\">", "</w:ins>"},
    {"<w:del w:id=\"2\" w:author=\"A\">", "</w:del>"},
    {"<w:delText>Buyer</w:delText>", ""},
    {"<w:hyperlink w:anchor=\"a\">", "</w:hyperlink>"},
    {"<w:sdt><w:sdtContent>", "</w:sdtContent></w:sdt>"},
    {"<w:smartTag w:element=\"x\">", "</w:smartTag>"},
    {"<w:bookmarkStart w:id=\"3\" w:name=\"b\"/>", ""},
    {"<w:bookmarkEnd w:id=\"3\"/>", ""},
    {"<w:footnoteReference w:id=\"2\"/>", ""},
    {"<w:noBreakHyphen/>", ""},
    {"<w:softHyphen/>", ""},
    {"<w:sym w:char=\"F0B7\"/>", ""},
    {"<w:drawing/>", ""},
    {"<w:lastRenderedPageBreak/>", ""},
    {"<w:commentReference w:id=\"0\"/>", ""},
    {"<w:txbxContent>", "</w:txbxContent>"},
    {"<w:ruby>", "</w:ruby>"},
    {"<?kelvarin apart?>", ""},
    {"<w:rPr/>", ""},
    {"<w:rPr><w:highlight w:val=\"none\"/></w:rPr>", ""},
    {"<w:rPr> <?x?><w:sz w:val=\"8\"/></w:rPr>", ""},
}};
void ReadAll(const word::DocumentPtr& document) {
  const word::StoryRangesPtr stories = document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    static_cast<void>(story->Text());
    static_cast<void>(story->Information(word::wdNumberOfPagesInDocument));
  }
}

void Work(const DocxDocument& docx) {
  const word::ApplicationPtr application = docx.Application();
  const word::DocumentPtr document = docx.Document();
  ReadAll(document);
  os::IcuCharacters characters;
  const auto marker = MakeTermMarker(characters, EntryWriting::kByPosition);
  marker->BeginIndexing(document);
  TermTable table = marker->BuildTermTable(application, document, {u"Buyer", u"Share Price"}, true);
  const word::StoryRangesPtr stories = document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() >= word::wdCommentsStory) continue;
    for (TermRow& row : table) {
      row.count = marker->MarkTermInStory(document, story, row.term, row.count, story->StoryType(), true, true,
                                          u"IndexAll", u"");
    }
  }
  document->Bookmarks()->Add(u"IndexBKStart", document->Range(0, 0));
  marker->InsertIndex(application, document, 2, u":  \t");
  marker->EndIndexing(document);
  ReadAll(document);
  marker->RemoveIndexEntries(application, document, false);
  marker->RemoveIndex(application, document, true);
  marker->RemoveTermHighlighting(document);
  ReadAll(document);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 400;
  if (size > kLongest) return 0;
  const auto parts = Divided({data, size}, 2);
  DocxDocument::Parts made{.body = XmlOf(kPieces, parts.front())};
  if (parts.size() > 1) made.footnotes = "<w:footnote w:id=\"2\">" + XmlOf(kPieces, parts.back()) + "</w:footnote>";
  try {
    const DocxDocument docx(made, docx::PageSource::kLayout);
    try {
      Work(docx);
    } catch (const word::HostError&) {
      // What cannot be done to such a document; it stays one.
    }
    const DocxDocument again(docx::Package::Open(docx.File()), docx::PageSource::kLayout);
    ReadAll(again.Document());
  } catch (const docx::PackageError&) {
    // Elements in places where they are refused.
  } catch (const word::HostError&) {
  }
  return 0;
}
