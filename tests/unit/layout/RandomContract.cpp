#include "tests/unit/layout/RandomContract.h"

#include <string>
#include <utility>

#include "tests/unit/package/RawZip.h"

namespace laid {

namespace {

const std::string kNamespaces =
    " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
    " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\"";

const std::string kStyles =
    "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/>"
    "<w:pPr><w:spacing w:after=\"120\"/></w:pPr></w:style>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Clause\"><w:name w:val=\"Clause\"/><w:basedOn w:val=\"Normal\"/>"
    "<w:pPr><w:numPr><w:numId w:val=\"1\"/></w:numPr><w:jc w:val=\"both\"/></w:pPr></w:style>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Boxed\"><w:name w:val=\"Boxed\"/><w:basedOn w:val=\"Normal\"/>"
    "<w:pPr><w:pBdr><w:top w:val=\"single\" w:sz=\"8\" w:space=\"1\"/><w:bottom w:val=\"single\" w:sz=\"8\" "
    "w:space=\"1\"/></w:pBdr><w:contextualSpacing/></w:pPr></w:style>"
    "<w:style w:type=\"character\" w:styleId=\"Term\"><w:name w:val=\"Term\"/><w:rPr><w:b/></w:rPr></w:style>";

std::string Level(int level, const std::string& format, const std::string& text) {
  const std::string indent = std::to_string(720 * (level + 1));
  return "<w:lvl w:ilvl=\"" + std::to_string(level) + "\"><w:start w:val=\"1\"/><w:numFmt w:val=\"" + format +
         "\"/><w:lvlText w:val=\"" + text + "\"/><w:pPr><w:ind w:left=\"" + indent +
         "\" w:hanging=\"720\"/></w:pPr></w:lvl>";
}

class Writer {
 public:
  explicit Writer(std::mt19937& random) : random_(random) {}

  std::string Body() {
    std::string body = Paragraph();
    for (int block = 10 + Below(25); block > 0; --block) body += Block(0);
    // Something always stands behind the last table.
    return body + Paragraph() + "<w:sectPr>" + SectionProperties() + "</w:sectPr>";
  }
  std::string Notes(const std::string& kind) {
    std::string notes = "<w:" + kind +
                        " w:type=\"separator\" w:id=\"0\"><w:p><w:r><w:separator/></w:r></w:p></w:" + kind +
                        "><w:" + kind +
                        " w:type=\"continuationSeparator\" w:id=\"1\"><w:p><w:r><w:continuationSeparator/></w:r>"
                        "</w:p></w:" +
                        kind + ">";
    const int count = kind == "footnote" ? footnotes_ : endnotes_;
    for (int id = 2; id < count + 2; ++id) {
      notes += "<w:" + kind + " w:id=\"" + std::to_string(id) + "\"><w:p><w:r><w:" + kind + "Ref/></w:r>" +
               Run(Words(3 + Below(40))) + "</w:p>" + (Chance(5) ? Paragraph() : "") + "</w:" + kind + ">";
    }
    return notes;
  }

 private:
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  bool Chance(int oneIn) { return Below(oneIn) == 0; }

  std::string Words(int count) {
    std::string words;
    for (int i = 0; i < count; ++i) {
      words += std::string(static_cast<std::size_t>(1 + Below(9)), static_cast<char>('a' + Below(26)));
      words += Chance(9) ? ", " : Chance(30) ? "-" : " ";
    }
    return words;
  }
  std::string Run(const std::string& text) {
    std::string properties;
    if (Chance(4)) properties += Chance(2) ? "<w:b/>" : "<w:rStyle w:val=\"Term\"/>";
    if (Chance(12)) properties += "<w:kern w:val=\"8\"/>";
    if (Chance(8)) properties += "<w:sz w:val=\"" + std::to_string(16 + Below(20)) + "\"/>";
    if (Chance(25)) properties += "<w:vanish/>";
    return "<w:r><w:rPr>" + properties + "</w:rPr><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
  }
  static std::string FieldMark(const std::string& type) {
    return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>";
  }
  std::string Picture(bool floats) {
    const std::string extent = "<wp:extent cx=\"" + std::to_string(200000 + Below(1500000)) + "\" cy=\"" +
                               std::to_string(100000 + Below(900000)) + "\"/>";
    if (!floats) return "<w:r><w:drawing><wp:inline>" + extent + "</wp:inline></w:drawing></w:r>";
    const std::string down = Chance(3) ? "page" : "paragraph";
    return "<w:r><w:drawing><wp:anchor distT=\"0\" distB=\"0\" distL=\"9000\" distR=\"9000\"><wp:positionH "
           "relativeFrom=\"column\"><wp:posOffset>" +
           std::to_string(Below(3000000)) + "</wp:posOffset></wp:positionH><wp:positionV relativeFrom=\"" + down +
           "\"><wp:posOffset>" + std::to_string(Below(2000000)) + "</wp:posOffset></wp:positionV>" + extent +
           "<wp:wrapSquare wrapText=\"bothSides\"/></wp:anchor></w:drawing></w:r>";
  }
  std::string Inline() {
    switch (Below(24)) {
      case 0:
        return "<w:r><w:tab/></w:r>";
      case 1:
        return "<w:r><w:br/></w:r>";
      case 2:
        return "<w:r><w:footnoteReference w:id=\"" + std::to_string(2 + footnotes_++) + "\"/></w:r>";
      case 3:
        return Chance(2) ? "<w:r><w:endnoteReference w:id=\"" + std::to_string(2 + endnotes_++) + "\"/></w:r>" : "";
      case 4:
        return Picture(Chance(2));
      case 5:
        return FieldMark("begin") + "<w:r><w:instrText> XE \"x\" </w:instrText></w:r>" + FieldMark("end");
      case 6:
        return "<w:fldSimple w:instr=\"PAGE\">" + Run("1") + "</w:fldSimple>";
      case 7:
        return "<w:del w:id=\"" + std::to_string(++ids_) +
               "\" w:author=\"A\"><w:r><w:delText>gone</w:delText></w:r></w:del>";
      case 8:
        return "<w:ins w:id=\"" + std::to_string(++ids_) + "\" w:author=\"A\">" + Run(Words(4)) + "</w:ins>";
      case 9:
        return Chance(3) ? "<w:r><w:br w:type=\"page\"/></w:r>" : "<w:r><w:lastRenderedPageBreak/></w:r>";
      default:
        return Run(Words(1 + Below(30)));
    }
  }
  std::string Paragraph(const std::string& section = {}) {
    std::string properties;
    if (Chance(3)) properties += "<w:pStyle w:val=\"" + std::string(Chance(3) ? "Boxed" : "Clause") + "\"/>";
    if (Chance(12)) properties += "<w:keepNext/>";
    if (Chance(15)) properties += "<w:framePr w:w=\"2000\" w:hSpace=\"100\" w:wrap=\"around\" w:hAnchor=\"text\"/>";
    if (Chance(8)) {
      properties += "<w:numPr><w:ilvl w:val=\"" + std::to_string(Below(3)) + "\"/><w:numId w:val=\"1\"/></w:numPr>";
    }
    if (Chance(15)) properties += "<w:rPr><w:vanish/></w:rPr>";
    std::string content;
    for (int part = Below(6); part > 0; --part) content += Inline();
    return "<w:p><w:pPr>" + properties + section + "</w:pPr>" + content + "</w:p>";
  }
  std::string SectionProperties() {
    std::string properties;
    if (Chance(2)) properties += "<w:type w:val=\"continuous\"/>";
    properties += "<w:pgSz w:w=\"8000\" w:h=\"" + std::string(Chance(2) ? "7000" : "9000") +
                  "\"/><w:pgMar w:top=\"900\" w:bottom=\"900\" w:left=\"900\" w:right=\"900\"/>";
    if (Chance(3)) properties += "<w:cols w:num=\"2\" w:space=\"300\"/>";
    return properties;
  }
  std::string Cell(int depth, const std::string& merge) {
    std::string blocks;
    for (int block = Below(3); block > 0; --block) blocks += Block(depth + 1);
    const std::string sideways = Chance(20) ? "<w:textDirection w:val=\"btLr\"/>" : "";
    return "<w:tc><w:tcPr>" + merge + sideways + "</w:tcPr>" + blocks + Paragraph() + "</w:tc>";
  }
  std::string Table(int depth) {
    std::string rows;
    const bool merges = Chance(3);
    for (int row = 1 + Below(5); row > 0; --row) {
      const std::string merge = merges ? Chance(2) ? "<w:vMerge w:val=\"restart\"/>" : "<w:vMerge/>" : "";
      rows += "<w:tr><w:trPr>" + std::string(Chance(6) ? "<w:tblHeader/>" : "") + (Chance(6) ? "<w:cantSplit/>" : "") +
              "</w:trPr>" + Cell(depth, merge) + Cell(depth, {}) + "</w:tr>";
    }
    const int width = 5000 / (depth + 1);
    const std::string column = "<w:gridCol w:w=\"" + std::to_string(width / 2) + "\"/>";
    return "<w:tbl><w:tblPr/><w:tblGrid>" + column + column + "</w:tblGrid>" + rows + "</w:tbl>";
  }
  std::string Block(int depth) {
    const int kind = Below(12);
    if (kind == 0 && depth < 3) return Table(depth);
    if (kind == 1 && depth == 0) return Paragraph("<w:sectPr>" + SectionProperties() + "</w:sectPr>");
    if (kind == 2) {
      // A field whose result goes over paragraphs.
      return "<w:p>" + FieldMark("begin") + "<w:r><w:instrText>TOC</w:instrText></w:r>" + FieldMark("separate") +
             Run(Words(3)) + "</w:p>" + Paragraph() + "<w:p>" + Run(Words(2)) + FieldMark("end") + "</w:p>";
    }
    return Paragraph();
  }

  std::mt19937& random_;
  int footnotes_{0};
  int endnotes_{0};
  int ids_{0};
};

}  // namespace

std::unique_ptr<docx::Package> RandomContract(std::mt19937& random) {
  Writer writer(random);
  const auto element = [](const std::string& name, const std::string& content) {
    return "<w:" + name + kNamespaces + ">" + content + "</w:" + name + ">";
  };
  auto package = docx::Package::Open(MinimalDocument(kContentTypes, kPackageRelationships,
                                                     element("document", "<w:body>" + writer.Body() + "</w:body>"))
                                         .Bytes());
  const auto add = [&](const std::string& kind, const std::string& content) {
    package->Add("word/" + kind + ".xml", element(kind, content),
                 "application/vnd.openxmlformats-officedocument.wordprocessingml." + kind + "+xml");
    package->AddRelationship("word/document.xml",
                             "http://schemas.openxmlformats.org/officeDocument/2006/relationships/" + kind,
                             "word/" + kind + ".xml");
  };
  add("styles", kStyles);
  add("numbering", "<w:abstractNum w:abstractNumId=\"0\">" + Level(0, "decimal", "%1.") + Level(1, "decimal", "%1.%2") +
                       Level(2, "lowerLetter", "(%3)") +
                       "</w:abstractNum><w:num w:numId=\"1\"><w:abstractNumId w:val=\"0\"/></w:num>");
  add("footnotes", writer.Notes("footnote"));
  add("endnotes", writer.Notes("endnote"));
  return package;
}

}  // namespace laid
