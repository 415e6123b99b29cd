// Each byte adds a piece of WordprocessingML to one of a document's parts, or closes what is open. The document is laid
// out and all its pages are drawn: every length is a number, everything stands on a page that there is, letters show
// with the positions that they have in the text, and laying out after an edit says the same to the last bit with what
// the layout before left behind as without.

#include "Pieces.h"

#include "hosts/docx/layout/DocumentLayout.h"
#include "hosts/docx/layout/LayoutMemory.h"
#include "hosts/docx/package/Package.h"
#include "platform/page/Display.h"
#include "platform/word/Constants.h"
#include "platform/word/HostError.h"
#include "tests/unit/layout/LaidOut.h"
#include "tests/unit/layout/Told.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

namespace {

#define KVX_DRAWING(kind) \
  "<w:r><w:drawing><wp:" kind " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\""

constexpr std::array<Piece, 92> kPieces{{
    {"<w:p>", "</w:p>"},
    {"<w:pPr>", "</w:pPr>"},
    {"<w:r>", "</w:r>"},
    {"<w:rPr>", "</w:rPr>"},
    {"<w:t xml:space=\"preserve\">", "</w:t>"},
    {"<w:tbl>", "</w:tbl>"},
    {"<w:tblPr>", "</w:tblPr>"},
    {"<w:tblGrid>", "</w:tblGrid>"},
    {"<w:tr>", "</w:tr>"},
    {"<w:trPr>", "</w:trPr>"},
    {"<w:tc>", "</w:tc>"},
    {"<w:tcPr>", "</w:tcPr>"},
    {"<w:sectPr>", "</w:sectPr>"},
    // Texts
    {"Buyer ", ""},
    {"the Share Price shall be payable within thirty days of the Completion Date, and ", ""},
    {"Wordwithoutanyplacetobreakitinaverynarrowcolumnoftext", ""},
    {"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D ", ""},
    {"\xE4\xB8\xAD\xE6\x96\x87\xE3\x80\x82", ""},
    {" ", ""},
    {"<w:tab/>", ""},
    {"<w:br/>", ""},
    {"<w:br w:type=\"@\"/>", ""},
    {"<w:lastRenderedPageBreak/>", ""},
    {"<w:noBreakHyphen/>", ""},
    {"<w:softHyphen/>", ""},
    {"<w:sym w:font=\"Symbol\" w:char=\"F0B7\"/>", ""},
    {"<w:ptab w:alignment=\"@\" w:relativeTo=\"@\" w:leader=\"@\"/>", ""},
    {"<w:footnoteReference w:id=\"#\"/>", ""},
    {"<w:endnoteReference w:id=\"#\"/>", ""},
    {"<w:footnoteRef/>", ""},
    {"<w:ruby><w:rubyBase>", "</w:rubyBase></w:ruby>"},
    {"<w:del>", "</w:del>"},
    {"<w:sdt><w:sdtContent>", "</w:sdtContent></w:sdt>"},
    {"<w:fldSimple w:instr=\"PAGE\">", "</w:fldSimple>"},
    {"<w:fldSimple w:instr=\"NUMPAGES \\* @\">", "</w:fldSimple>"},
    {"<w:fldChar w:fldCharType=\"begin\"/>", ""},
    {"<w:fldChar w:fldCharType=\"separate\"/>", ""},
    {"<w:fldChar w:fldCharType=\"end\"/>", ""},
    {"<w:instrText> SECTIONPAGES </w:instrText>", ""},
    // Drawings
    {KVX_DRAWING("inline") "><wp:extent cx=\"#\" cy=\"#\"/><wp:effectExtent l=\"#\" t=\"#\" r=\"#\" b=\"#\"/>",
     "</wp:inline></w:drawing></w:r>"},
    {KVX_DRAWING("anchor") " distL=\"#\" distR=\"#\" distT=\"#\" distB=\"#\"><wp:positionH relativeFrom=\"@\">"
                           "<wp:posOffset>#</wp:posOffset></wp:positionH><wp:positionV relativeFrom=\"@\">"
                           "<wp:posOffset>#</wp:posOffset></wp:positionV><wp:extent cx=\"#\" cy=\"#\"/>",
     "</wp:anchor></w:drawing></w:r>"},
    {KVX_DRAWING("anchor") "><wp:positionH relativeFrom=\"@\"><wp:align>@</wp:align></wp:positionH><wp:positionV "
                           "relativeFrom=\"@\"><wp:align>@</wp:align></wp:positionV><wp:extent cx=\"914400\" "
                           "cy=\"914400\"/>",
     "</wp:anchor></w:drawing></w:r>"},
    {"<wp:wrapSquare xmlns:wp=\"x\" wrapText=\"@\"/>", ""},
    {"<wp:wrapTopAndBottom xmlns:wp=\"x\"/>", ""},
    {"<wp:wrapTight xmlns:wp=\"x\" wrapText=\"@\"><wp:wrapPolygon><wp:start x=\"#\" y=\"#\"/><wp:lineTo x=\"#\" "
     "y=\"#\"/><wp:lineTo x=\"#\" y=\"#\"/></wp:wrapPolygon></wp:wrapTight>",
     ""},
    {"<w:txbxContent>", "</w:txbxContent>"},
    {"<w:pict><v:shape xmlns:v=\"x\" style=\"position:absolute;width:#pt;height:#in;margin-left:#;margin-top:#;"
     "mso-position-horizontal:@;mso-position-vertical-relative:@\"><w:txbxContent>",
     "</w:txbxContent></v:shape></w:pict>"},
    // Of paragraphs
    {"<w:pStyle w:val=\"@\"/>", ""},
    {"<w:numPr><w:ilvl w:val=\"#\"/><w:numId w:val=\"#\"/></w:numPr>", ""},
    {"<w:ind w:left=\"#\" w:right=\"#\" w:firstLine=\"#\"/>", ""},
    {"<w:ind w:left=\"#\" w:hanging=\"#\"/>", ""},
    {"<w:spacing w:before=\"#\" w:after=\"#\" w:line=\"#\" w:lineRule=\"@\"/>", ""},
    {"<w:spacing w:beforeLines=\"#\" w:afterAutospacing=\"1\"/>", ""},
    {"<w:jc w:val=\"@\"/>", ""},
    {"<w:tabs><w:tab w:val=\"@\" w:pos=\"#\" w:leader=\"@\"/><w:tab w:val=\"@\" w:pos=\"#\"/></w:tabs>", ""},
    {"<w:keepNext/><w:keepLines/>", ""},
    {"<w:pageBreakBefore/>", ""},
    {"<w:contextualSpacing/>", ""},
    {"<w:bidi/>", ""},
    {"<w:framePr w:w=\"#\" w:h=\"#\" w:x=\"#\" w:y=\"#\" w:hSpace=\"#\" w:wrap=\"@\" w:hAnchor=\"@\" w:vAnchor=\"@\" "
     "w:dropCap=\"@\"/>",
     ""},
    {"<w:pBdr><w:top w:val=\"@\" w:sz=\"#\" w:space=\"#\"/><w:between w:val=\"single\" w:sz=\"#\"/></w:pBdr>", ""},
    {"<w:shd w:val=\"@\" w:fill=\"C0C0C0\"/>", ""},
    // Of runs
    {"<w:rStyle w:val=\"@\"/>", ""},
    {"<w:rFonts w:ascii=\"Arial\" w:hAnsi=\"Nowhere\" w:eastAsiaTheme=\"minorEastAsia\"/>", ""},
    {"<w:sz w:val=\"#\"/>", ""},
    {"<w:spacing w:val=\"#\"/><w:w w:val=\"#\"/>", ""},
    {"<w:kern w:val=\"#\"/><w:position w:val=\"#\"/>", ""},
    {"<w:vertAlign w:val=\"@\"/>", ""},
    {"<w:b/><w:caps/>", ""},
    {"<w:vanish/>", ""},
    {"<w:specVanish/>", ""},
    {"<w:rtl/>", ""},
    // Of tables
    {"<w:tblW w:w=\"#\" w:type=\"@\"/>", ""},
    {"<w:tblInd w:w=\"#\" w:type=\"dxa\"/><w:tblLayout w:type=\"@\"/>", ""},
    {"<w:tblpPr w:horzAnchor=\"@\" w:vertAnchor=\"@\" w:tblpX=\"#\" w:tblpY=\"#\" w:leftFromText=\"#\" "
     "w:rightFromText=\"#\"/>",
     ""},
    {"<w:tblStyle w:val=\"Grid\"/><w:tblLook w:val=\"04A0\"/>", ""},
    {"<w:tblCellMar><w:left w:w=\"#\" w:type=\"dxa\"/><w:top w:w=\"#\" w:type=\"@\"/></w:tblCellMar>", ""},
    {"<w:tblCellSpacing w:w=\"#\" w:type=\"dxa\"/>", ""},
    {"<w:tblBorders><w:insideH w:val=\"@\" w:sz=\"#\"/><w:left w:val=\"single\" w:sz=\"#\"/></w:tblBorders>", ""},
    {"<w:gridCol w:w=\"#\"/>", ""},
    {"<w:trHeight w:val=\"#\" w:hRule=\"@\"/>", ""},
    {"<w:cantSplit/><w:tblHeader/>", ""},
    {"<w:gridBefore w:val=\"#\"/>", ""},
    {"<w:tcW w:w=\"#\" w:type=\"@\"/><w:gridSpan w:val=\"#\"/>", ""},
    {"<w:vMerge w:val=\"@\"/>", ""},
    {"<w:textDirection w:val=\"@\"/><w:vAlign w:val=\"@\"/>", ""},
    // Of sections and of the other parts
    {"<w:type w:val=\"@\"/><w:pgNumType w:start=\"#\" w:fmt=\"@\"/>", ""},
    {"<w:pgSz w:w=\"#\" w:h=\"#\"/>", ""},
    {"<w:pgMar w:top=\"#\" w:right=\"#\" w:bottom=\"#\" w:left=\"#\" w:header=\"#\" w:footer=\"#\" w:gutter=\"#\"/>",
     ""},
    {"<w:cols w:num=\"#\" w:space=\"#\"/><w:docGrid w:type=\"@\" w:linePitch=\"#\"/>", ""},
    {"<w:cols w:equalWidth=\"0\"><w:col w:w=\"#\" w:space=\"#\"/><w:col w:w=\"#\"/></w:cols><w:vAlign w:val=\"@\"/>",
     ""},
    {"<w:headerReference w:type=\"@\" w:id=\"rId1\"/><w:footerReference w:type=\"@\" w:id=\"rId1\"/><w:titlePg/>", ""},
}};
#undef KVX_DRAWING

constexpr std::array<Piece, 24> kDefinitions{{
    {"<w:pPr>", "</w:pPr>"},
    {"<w:rPr>", "</w:rPr>"},
    {"<w:style w:type=\"paragraph\" w:styleId=\"@\"><w:basedOn w:val=\"@\"/>", "</w:style>"},
    {"<w:style w:type=\"character\" w:styleId=\"@\"><w:basedOn w:val=\"@\"/>", "</w:style>"},
    {"<w:style w:type=\"table\" w:styleId=\"Grid\">", "</w:style>"},
    {"<w:tblStylePr w:type=\"@\">", "</w:tblStylePr>"},
    {"<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val=\"#\"/></w:rPr></w:rPrDefault></w:docDefaults>", ""},
    {"<w:abstractNum w:abstractNumId=\"#\">", "</w:abstractNum>"},
    {"<w:num w:numId=\"#\"><w:abstractNumId w:val=\"#\"/>", "</w:num>"},
    {"<w:lvl w:ilvl=\"#\"><w:start w:val=\"#\"/><w:numFmt w:val=\"@\"/><w:lvlText w:val=\"%1.%9@\"/>", "</w:lvl>"},
    {"<w:lvlOverride w:ilvl=\"#\"><w:startOverride w:val=\"#\"/></w:lvlOverride>", ""},
    {"<w:numStyleLink w:val=\"@\"/>", ""},
    {"<w:suff w:val=\"@\"/><w:lvlJc w:val=\"@\"/><w:lvlRestart w:val=\"#\"/>", ""},
    {"<w:numPr><w:ilvl w:val=\"#\"/><w:numId w:val=\"#\"/></w:numPr>", ""},
    {"<w:ind w:left=\"#\" w:hanging=\"#\"/>", ""},
    {"<w:spacing w:before=\"#\" w:line=\"#\" w:lineRule=\"@\"/>", ""},
    {"<w:sz w:val=\"#\"/>", ""},
    {"<w:keepNext/>", ""},
    {"<w:defaultTabStop w:val=\"#\"/>", ""},
    {"<w:mirrorMargins/><w:evenAndOddHeaders/>", ""},
    {"<w:footnotePr><w:pos w:val=\"@\"/><w:numStart w:val=\"#\"/><w:numFmt w:val=\"@\"/></w:footnotePr>", ""},
    {"<w:endnotePr><w:pos w:val=\"@\"/></w:endnotePr>", ""},
    {"<w:compat><w:compatSetting w:name=\"compatibilityMode\" w:val=\"#\"/><w:adjustLineHeightInTable/></w:compat>",
     ""},
    {"<w:compat><w:splitPgBreakAndParaMark/><w:noTabHangInd/></w:compat>", ""},
}};

/// The parts of a document, in the order of its bytes.
enum Part : std::size_t { kBody, kFootnotes, kHeader, kStyles, kNumbering, kSettings, kEndnotes, kParts };

void Require(bool good) {
  if (!good) std::abort();
}

void RequireNumbers(std::initializer_list<double> lengths) {
  for (const double length : lengths) Require(std::isfinite(length));
}
void RequireNumbers(const page::Rect& rect) { RequireNumbers({rect.x, rect.y, rect.width, rect.height}); }

void RequireSound(const page::Display& display) {
  RequireNumbers({display.width, display.height});
  Require(display.width > 0 && display.height > 0);
  for (const page::Fill& fill : display.fills) RequireNumbers(fill.area);
  for (const page::Rule& rule : display.rules) RequireNumbers({rule.x, rule.y, rule.toX, rule.toY, rule.width});
  for (const page::Picture& picture : display.pictures) RequireNumbers(picture.area);
  for (const page::Line& line : display.lines) {
    RequireNumbers(line.area);
    RequireNumbers({line.baseline, line.originX, line.originY});
    Require(line.story == 0 || line.start <= line.end);
    for (const page::Run& run : line.runs) {
      Require(run.face < display.faces.size() && run.edges.size() == run.text.size() + 1);
      RequireNumbers({run.baseline, display.faces[run.face].size, display.faces[run.face].stretch});
      for (const float edge : run.edges) Require(std::isfinite(edge));
    }
  }
}

bool IsLetter(char16_t unit) { return unit >= 'a' && unit <= 'z'; }
char16_t Small(char16_t unit) { return unit >= 'A' && unit <= 'Z' ? static_cast<char16_t>(unit + 32) : unit; }

/// Letters are shown with the positions that they have in the text.
void RequireInStep(const page::Display& display, laid::Document& document) {
  for (const page::Line& line : display.lines) {
    if (line.story == 0) continue;
    const docx::Story& story = *document.Parts().Stories(line.story).front();
    const std::u16string text = story.Text(line.start, line.end);
    for (const page::Run& run : line.runs) {
      if (!run.places || run.solid) continue;
      for (std::size_t i = 0; i < run.text.size(); ++i) {
        const std::size_t at = static_cast<std::size_t>(run.position - line.start) + i;
        const char16_t shown = Small(run.text[i]);
        if (IsLetter(shown)) Require(at < text.size() && Small(text[at]) == shown);
      }
    }
  }
}

void RequireSound(const docx::layout::DocumentLayout& layout, laid::Document& document) {
  Require(layout.PageCount() >= 1);
  for (const auto& line : layout.Placed()) {
    RequireNumbers({line.top, line.left, line.height});
    Require(line.page >= 1 && line.page <= layout.PageCount() && line.height >= 0);
  }
  for (const int story : {word::wdMainTextStory, word::wdFootnotesStory, word::wdEndnotesStory}) {
    docx::Position before = 0;
    for (const docx::PageStart& start : layout.Starts(story)) {
      Require(start.position >= before && start.page >= 1 && start.page <= layout.PageCount());
      before = start.position;
    }
  }
  for (int page = 1; page <= layout.PageCount(); ++page) {
    const page::Display display = layout.Draw(page);
    RequireSound(display);
    RequireInStep(display, document);
  }
}

using Parts = std::array<std::string, kParts>;

Parts PartsOf(std::span<const std::uint8_t> bytes) {
  Parts parts;
  std::size_t part = 0;
  for (const auto& ofPart : Divided(bytes, kParts)) {
    const bool defines = part == kStyles || part == kNumbering || part == kSettings;
    parts[part++] = defines ? XmlOf(kDefinitions, ofPart) : XmlOf(kPieces, ofPart);
  }
  return parts;
}

laid::Document Made(const Parts& parts) {
  laid::Document document(parts[kBody]);
  // The first part that is added is the one that sections refer to.
  document.WithHeader(parts[kHeader]);
  document.With("footnotes", "<w:footnote w:id=\"2\">" + parts[kFootnotes] + "</w:footnote>");
  document.With("endnotes", "<w:endnote w:id=\"2\">" + parts[kEndnotes] + "</w:endnote>");
  document.WithStyles(parts[kStyles]);
  document.With("numbering", parts[kNumbering]);
  document.WithSettings(parts[kSettings]);
  return document;
}

void Edit(docx::Story& story) {
  try {
    story.InsertText(story.Length() / 2, u"The Seller shall ");
  } catch (const word::HostError&) {
    // Where no text can be.
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 600;
  if (size > kLongest) return 0;
  try {
    const Parts parts = PartsOf({data, size});
    laid::Document document = Made(parts);
    for (const bool lastBreaks : {false, true}) {
      if (lastBreaks && parts[kBody].find("lastRenderedPageBreak") == std::string::npos) continue;
      docx::layout::LayoutMemory memory;
      const docx::layout::DocumentLayout first(document.Parts(), lastBreaks, &memory);
      RequireSound(first, document);
      Edit(*document.Parts().Stories(word::wdMainTextStory).front());
      const docx::layout::DocumentLayout again(document.Parts(), lastBreaks, &memory);
      const docx::layout::DocumentLayout afresh(document.Parts(), lastBreaks);
      Require(laid::Told(again) == laid::Told(afresh));
    }
  } catch (const docx::PackageError&) {
    // Elements in places where they are refused.
  }
  return 0;
}
