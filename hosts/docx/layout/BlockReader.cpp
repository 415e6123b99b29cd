#include "hosts/docx/layout/BlockReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <utility>

#include "hosts/docx/layout/Colors.h"
#include "hosts/docx/layout/Drawings.h"
#include "hosts/docx/layout/Symbols.h"
#include "hosts/docx/story/StoryBuilder.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/Constants.h"

namespace docx::layout {

namespace {

/// Tables nested deeper are left out; nobody could read them.
constexpr int kDeepest = 40;
/// The same for text boxes in text boxes.
constexpr int kDeepestBox = 3;
constexpr int kMostColumns = 200;
constexpr int kDefaultSideMargin = 115;
constexpr float kNoteRule = 2880;    // twips
constexpr float kWholeRule = 31680;  // as much as there is room for

bool IsElement(XmlNode node) { return node.Type() == XmlType::kElement; }

/// Which of a table style's conditional formats a w:tblLook asks for.
struct TableLook {
  bool firstRow{false};
  bool lastRow{false};
  bool firstColumn{false};
  bool lastColumn{false};
  bool rowBands{true};
};

TableLook ReadLook(const XmlPart& part, XmlNode tblLook) {
  TableLook look;
  if (!tblLook) return look;
  int bits = 0;
  const std::string_view value = ValueOf(part, tblLook);
  std::from_chars(value.data(), value.data() + value.size(), bits, 16);
  const auto flag = [&](const char* name, int bit) {
    const std::string_view text = part.Attribute(tblLook, name).Value();
    return text.empty() ? (bits & bit) != 0 : text == "1" || text == "true" || text == "on";
  };
  look.firstRow = flag("firstRow", 0x20);
  look.lastRow = flag("lastRow", 0x40);
  look.firstColumn = flag("firstColumn", 0x80);
  look.lastColumn = flag("lastColumn", 0x100);
  look.rowBands = !flag("noHBand", 0x200);
  return look;
}

/// A preferred width: twips, or a share of the room.
void ReadWidth(const XmlPart& part, XmlNode width, double& twips, double& share) {
  const std::string_view type = part.Attribute(width, "type").Value();
  const std::string_view text = part.Attribute(width, "w").Value();
  if (type == "pct" || text.ends_with('%')) {
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    share = std::clamp(text.ends_with('%') ? number / 100 : number / 5000, 0.0, 10.0);
  } else if (type == "dxa" || type.empty()) {
    twips = std::max(0, TwipsOf(part, width, "w").value_or(0));
  }
}

int CountRows(const XmlPart& part, XmlNode parent) {
  int rows = 0;
  for (const XmlNode child : parent.Children()) {
    switch (part.TagOf(child)) {
      case Tag::kTr:
        ++rows;
        break;
      default: {
        const Wrapped wrapped = WrappedBy(part, child, Within::kRows);
        if (wrapped.content && !wrapped.deleted) rows += CountRows(part, wrapped.content);
        break;
      }
    }
  }
  return rows;
}

/// The next word of a field's code. @param code loses it
std::string_view TakeWord(std::string_view& code) {
  const std::size_t begin = std::min(code.find_first_not_of(' '), code.size());
  code.remove_prefix(begin);
  std::size_t end = std::min(code.find(' '), code.size());
  const std::size_t slash = code.find('\\', 1);
  end = std::min(end, slash);
  const std::string_view word = code.substr(0, end);
  code.remove_prefix(end);
  return word;
}

std::string InCapitals(std::string_view text) {
  std::string capitals(text);
  std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return capitals;
}

/// The w:fmt of a format switch's word; nullptr for one that is not about numbers.
const char* NumberFormatOf(std::string_view word) {
  const std::string name = InCapitals(word);
  const bool lower = !word.empty() && word.front() >= 'a';
  if (name == "ARABIC") return "decimal";
  if (name == "ARABICDASH") return "numberInDash";
  if (name == "ROMAN") return lower ? "lowerRoman" : "upperRoman";
  if (name == "ALPHABETIC") return lower ? "lowerLetter" : "upperLetter";
  return nullptr;
}

/// Whether a field prints the page that it stands on.
PageFieldCode FieldOfCode(std::string_view code) {
  PageFieldCode field;
  const std::string name = InCapitals(TakeWord(code));
  if (name == "PAGE") field.field = PageField::kPage;
  if (name == "NUMPAGES") field.field = PageField::kPageCount;
  if (name == "SECTIONPAGES") field.field = PageField::kSectionPages;
  if (field.field == PageField::kNone) return field;
  while (!code.empty()) {
    const std::string_view word = TakeWord(code);
    if (!word.starts_with("\\*")) continue;
    if (const char* format = NumberFormatOf(word.size() > 2 ? word.substr(2) : TakeWord(code))) field.format = format;
  }
  return field;
}

/// The character of a w:sym.
std::u16string SymbolOf(const XmlPart& part, XmlNode sym) {
  const std::string_view digits = part.Attribute(sym, "char").Value();
  unsigned code = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
  if (code < 0x20 || code > 0xFFFD || (code >= 0xD800 && code < 0xE000)) code = 0xF0B7;
  return ShownSymbols(std::u16string(1, static_cast<char16_t>(code)), part.Attribute(sym, "font").Value());
}

void AppendMathText(XmlNode math, std::u16string& text) {
  for (XmlNode node = math.FirstChild(); node;) {
    if (LocalName(node) == "t") text += ToUtf16(node.OnlyText().value_or(""));
    if (node.FirstChild() && LocalName(node) != "t") {
      node = node.FirstChild();
      continue;
    }
    while (node != math && !node.NextSibling()) node = node.Parent();
    if (node == math) return;
    node = node.NextSibling();
  }
}

}  // namespace

BlockReader::BlockReader(Formats& formats, const XmlPart& part, const Story* story, NumberCounters& counters,
                         NoteNumbers& notes)
    : formats_(formats), part_(part), counters_(counters), notes_(notes) {
  if (story == nullptr) return;
  atoms_ = &story->Atoms();
  place_ = atoms_->Begin();
}

std::vector<Block> BlockReader::Read(XmlNode container) {
  std::vector<Block> blocks;
  open_.reset();
  ReadBlocks(container, false, nullptr, blocks);
  CloseParagraph(blocks);
  return blocks;
}

void BlockReader::CloseParagraph(std::vector<Block>& into) {
  if (open_ && (into.empty() || !open_->pieces.empty())) into.push_back({std::move(open_)});
  open_.reset();
}

Position BlockReader::Meet(XmlNode element) {
  if (atoms_ == nullptr || atoms_->IsEnd(place_)) return 0;
  const Position at = place_.start;
  if (atoms_->Get(place_).element == element.Data()) {
    place_ = atoms_->Next(place_);
    ++met_;
    lastMet_ = element.Data();
  }
  return at;
}

void BlockReader::ReadBlocks(XmlNode container, bool deleted, const TableValues* cell, std::vector<Block>& into) {
  for (const XmlNode child : container.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kP:
      case Tag::kTbl:
        ReadBlock(child, deleted, cell, into);
        break;
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      default: {
        const Wrapped wrapped = WrappedBy(part_, child, Within::kBlocks);
        if (wrapped.content) ReadBlocks(wrapped.content, deleted || wrapped.deleted, cell, into);
        break;
      }
    }
  }
}

void BlockReader::ReadParagraph(XmlNode element, bool deleted, const TableValues* cell, std::vector<Block>& into) {
  const XmlNode properties = part_.Child(element, Tag::kPPr);
  const XmlNode markProperties = part_.Child(properties, Tag::kRPr);
  const bool goesOn = open_ != nullptr;
  if (!goesOn) {
    open_ = std::make_shared<Paragraph>();
    open_->start = atoms_ == nullptr ? 0 : place_.start;
  }
  open_->look = formats_.Paragraph(part_, properties, cell);
  ReadInlines(element, deleted);
  open_->end = Meet(element);
  open_->mark = &formats_.Text(part_, markProperties, open_->look);
  const bool markGone =
      deleted || part_.Child(markProperties, Tag::kDel) || part_.Child(markProperties, Tag::kMoveFrom);
  open_->section = depth_ == 0 ? part_.Child(properties, Tag::kSectPr) : XmlNode();
  const bool separates = OnOffOf(part_, part_.Child(markProperties, "specVanish")).value_or(false);
  if (markGone || ((open_->mark->hidden || separates) && !open_->section)) return;

  const ParagraphLook& look = open_->look;
  if (look.list != nullptr) {
    const std::string id =
        look.format.numberId.value_or(look.style == nullptr ? "" : look.style->paragraph.numberId.value_or(""));
    SetLabel(*open_, element, counters_.Next(id, *look.list, look.level));
    if (memory_ != nullptr) numbers_.push_back({id, look.list, look.level, open_->label});
  }
  if (const XmlNode frame = part_.Child(properties, "framePr")) ReadFrame(frame);
  into.push_back({std::move(open_)});
}

void BlockReader::SetLabel(Paragraph& paragraph, XmlNode element, std::u16string label) {
  const ParagraphLook& look = paragraph.look;
  const NumberLevel& level = look.list->levels[static_cast<std::size_t>(look.level)];
  paragraph.label = std::move(label);
  paragraph.labelStyle = &formats_.Label(part_, part_.Child(part_.Child(element, Tag::kPPr), Tag::kRPr), look);
  paragraph.suffix = level.suffix;
  paragraph.labelAlignment = level.alignment;
  if (level.format == "none" && paragraph.label.empty()) paragraph.labelStyle = nullptr;
}

void BlockReader::ReadFrame(XmlNode framePr) {
  const std::string_view wrap = part_.Attribute(framePr, "wrap").Value();
  const std::string_view dropCap = part_.Attribute(framePr, "dropCap").Value();
  // In the cells of a table that floats, Word says of each paragraph where the table stands.
  const bool isOfTable = depth_ > 0 && dropCap.empty();
  if (isOfTable || wrap == "notBeside" || wrap == "none") return;
  const auto length = [&](const char* name) { return static_cast<double>(TwipsOf(part_, framePr, name).value_or(0)); };
  Frame frame;
  frame.width = std::max(0.0, length("w"));
  const std::string_view across = part_.Attribute(framePr, "hAnchor").Value();
  if (across != "page") frame.x = length("x");
  const std::string_view down = part_.Attribute(framePr, "vAnchor").Value();
  if (down.empty() || down == "text") frame.y = length("y");
  const std::string_view side = part_.Attribute(framePr, "xAlign").Value();
  if (side == "right" || side == "outside") frame.side = Alignment::kRight;
  if (side == "center") frame.side = Alignment::kCenter;
  frame.spaceAcross = std::max(0.0, length("hSpace"));
  frame.spaceUpright = std::max(0.0, length("vSpace"));
  // One that is placed by the page is somewhere else than the text that it stands with.
  frame.beside = (down.empty() || down == "text") && across != "page" && dropCap != "margin";
  if (dropCap == "drop" && frame.width <= 0) frame.beside = true;
  // A frame without a width is as wide as its text, which so stands at the side where the frame does.
  if (frame.width <= 0 && frame.side != Alignment::kLeft) open_->look.format.alignment = frame.side;
  open_->frame = frame;
}

void BlockReader::ReadInlines(XmlNode parent, bool deleted) {
  for (const XmlNode child : parent.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kR:
        ReadRun(child, deleted);
        break;
      case Tag::kFldSimple:
        Meet(child);
        simpleFields_.push_back(FieldOfCode(part_.Attribute(child, "instr").Value()));
        ReadInlines(child, deleted);
        simpleFields_.pop_back();
        Meet(child);
        break;
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      case Tag::kOMath:
      case Tag::kOMathPara:
        if (!deleted && Shows()) AddMath(child);
        break;
      default: {
        const Wrapped wrapped = WrappedBy(part_, child, Within::kText);
        if (wrapped.content) ReadInlines(wrapped.content, deleted || wrapped.deleted);
        break;
      }
    }
  }
}

void BlockReader::ReadRun(XmlNode run, bool deleted) {
  const XmlNode properties = part_.Child(run, Tag::kRPr);
  style_ = &formats_.Text(part_, properties, open_->look);
  for (const XmlNode child : run.Children()) {
    if (IsElement(child)) ReadContent(child, properties, deleted);
  }
}

void BlockReader::FollowField(XmlNode element, bool deleted) {
  if (deleted) return;
  const std::string_view type = part_.Attribute(element, "fldCharType").Value();
  if (type == "begin") {
    fields_.emplace_back();
    ++codes_;
  } else if (fields_.empty()) {
    return;
  } else if (type == "separate") {
    if (fields_.back().inCode) --codes_;
    fields_.back().inCode = false;
    fields_.back().kind = FieldOfCode(fields_.back().code);
  } else if (type == "end") {
    if (fields_.back().inCode) --codes_;
    fields_.pop_back();
    fewestFields_ = std::min(fewestFields_, fields_.size());
  }
}

PageFieldCode BlockReader::FieldKind() const {
  for (const OpenField& field : fields_) {
    if (field.kind.field != PageField::kNone) return field.kind;
  }
  for (const PageFieldCode& field : simpleFields_) {
    if (field.field != PageField::kNone) return field;
  }
  return {};
}

void BlockReader::ReadContent(XmlNode element, XmlNode rPr, bool deleted) {
  const Position position = Meet(element);
  const Tag tag = part_.TagOf(element);
  if (tag == Tag::kFldChar) {
    FollowField(element, deleted);
    return;
  }
  if (tag == Tag::kInstrText && !deleted && !fields_.empty() && fields_.back().inCode) {
    fields_.back().code += element.OnlyText().value_or("");
  }
  if (tag == Tag::kLastRenderedPageBreak) open_->lastBreaks.push_back(position);
  if (deleted || !Shows() || style_->hidden) return;
  switch (tag) {
    case Tag::kT:
      AddText(StoryBuilder::ReadRunContent(part_, element, false).text, position);
      break;
    case Tag::kTab:
    case Tag::kPTab:
      AddText(u"\t", position, PieceKind::kTab);
      break;
    case Tag::kBr: {
      const std::string_view type = part_.Attribute(element, "type").Value();
      // Word does not break pages so inside a table.
      if (type == "page" && depth_ > 0) break;
      AddText(u"\n", position,
              type == "page"     ? PieceKind::kPageBreak
              : type == "column" ? PieceKind::kColumnBreak
                                 : PieceKind::kLineBreak);
      break;
    }
    case Tag::kCr:
      AddText(u"\n", position, PieceKind::kLineBreak);
      break;
    case Tag::kNoBreakHyphen:
      AddText(u"\u2011", position);
      break;
    case Tag::kSoftHyphen:
      AddText(u"\u00AD", position, PieceKind::kSoftHyphen);
      break;
    case Tag::kSym:
      AddText(SymbolOf(part_, element), position);
      break;
    case Tag::kSeparator:
    case Tag::kContinuationSeparator:
      AddText(u"\u200B", position, PieceKind::kRule);
      open_->pieces.back().width = tag == Tag::kSeparator ? kNoteRule : kWholeRule;
      break;
    case Tag::kFootnoteReference:
    case Tag::kEndnoteReference: {
      const bool own = static_cast<bool>(part_.Attribute(element, "customMarkFollows"));
      AddText(own ? std::u16string() : notes_.Next(tag == Tag::kFootnoteReference), position, PieceKind::kNote,
              element);
      open_->pieces.back().solid = true;
      break;
    }
    case Tag::kFootnoteRef:
    case Tag::kEndnoteRef:
      AddSolid(noteMark_, position);
      ++noteMarks_;
      break;
    case Tag::kDrawing:
    case Tag::kPict:
    case Tag::kObject:
      ReadDrawing(element);
      break;
    case Tag::kAlternateContent:
      for (const XmlNode child : ChosenBranch(part_, element).Children()) {
        if (IsElement(child)) ReadContent(child, rPr, deleted);
      }
      break;
    case Tag::kRuby: {
      // The base is what takes the line's width.
      for (const XmlNode run : part_.Child(element, "rubyBase").Children()) {
        if (part_.Is(run, Tag::kR)) ReadRun(run, deleted);
      }
      break;
    }
    default:
      break;
  }
}

void BlockReader::AddText(std::u16string_view text, Position position, PieceKind kind, XmlNode element) {
  Piece piece;
  piece.kind = kind;
  piece.style = style_;
  piece.position = position;
  piece.start = static_cast<std::uint32_t>(open_->text.size());
  piece.length = static_cast<std::uint32_t>(text.size());
  piece.element = element.Data();
  piece.field = FieldKind();
  open_->text += text;
  if (!text.empty() || kind == PieceKind::kNote) open_->pieces.push_back(piece);
}

void BlockReader::AddSolid(std::u16string_view text, Position position) {
  if (text.empty()) return;
  AddText(text, position);
  open_->pieces.back().solid = true;
}

void BlockReader::AddMath(XmlNode math) {
  if (style_ == nullptr || open_->pieces.empty()) style_ = &formats_.Text(part_, {}, open_->look);
  std::u16string text;
  AppendMathText(math, text);
  AddSolid(text, atoms_ == nullptr ? 0 : place_.start);
}

void BlockReader::AddObject(const Floating& drawing) {
  AddText(u"\uFFFC", atoms_ == nullptr ? 0 : place_.start, PieceKind::kObject);
  Piece& piece = open_->pieces.back();
  piece.width = static_cast<float>(drawing.width);
  piece.height = static_cast<float>(drawing.height);
  piece.picture = static_cast<int>(open_->pictures.size());
  open_->pictures.push_back({drawing.picture, drawing.instead});
}

void BlockReader::ReadDrawing(XmlNode element) {
  for (Drawing& drawing : ReadDrawings(part_, element)) {
    std::string& picture = drawing.floating.picture;
    if (!picture.empty()) picture = pictureNames_ ? pictureNames_(part_, picture) : std::string();
    if (!drawing.inLine && drawing.text) drawing.floating.text = ReadTextBox(drawing);
    if (drawing.inLine) {
      AddObject(drawing.floating);
    } else {
      open_->floats.push_back(drawing.floating);
    }
  }
}

std::shared_ptr<TextBox> BlockReader::ReadTextBox(const Drawing& drawing) {
  if (boxes_ >= kDeepestBox) return nullptr;
  NumberCounters counters;
  NoteNumbers notes;
  BlockReader reader(formats_, part_, nullptr, counters, notes);
  reader.boxes_ = boxes_ + 1;
  reader.pictureNames_ = pictureNames_;
  auto box = std::make_shared<TextBox>();
  box->blocks = reader.Read(drawing.text);
  box->sideInset = drawing.sideInset;
  box->topInset = drawing.topInset;
  box->outlined = drawing.outlined;
  return box;
}

void BlockReader::ReadTable(XmlNode element, bool deleted, std::vector<Block>& into) {
  std::shared_ptr<Paragraph> open = std::move(open_);
  std::shared_ptr<Table> table = ReadTable(element, deleted);
  open_ = std::move(open);
  if (!table->rows.empty()) into.push_back({std::move(table)});
}

std::shared_ptr<Table> BlockReader::ReadTable(XmlNode element, bool deleted) {
  auto table = std::make_shared<Table>();
  if (depth_ >= kDeepest) return table;
  const XmlNode properties = part_.Child(element, "tblPr");
  const SheetStyle* style = formats_.Styles().Table(ValueOf(part_, part_.Child(properties, "tblStyle")));
  ReadWidth(part_, part_.Child(properties, "tblW"), table->width, table->widthShare);
  if (const XmlNode place = part_.Child(properties, "tblpPr")) {
    table->floating = true;
    const int besides =
        std::max(TwipsOf(part_, place, "leftFromText").value_or(0), TwipsOf(part_, place, "rightFromText").value_or(0));
    table->floatingMargin = std::max(0, besides);
    const bool byPage = std::string_view(part_.Attribute(place, "horzAnchor").Value()) == "page";
    if (const auto x = TwipsOf(part_, place, "tblpX"); x && !byPage) table->floatingLeft = *x;
    if (std::string_view(part_.Attribute(place, "tblpXSpec").Value()) == "right") table->alignment = Alignment::kRight;
  }
  table->fixed = std::string_view(part_.Attribute(part_.Child(properties, "tblLayout"), "type").Value()) == "fixed";
  table->indent = TwipsOf(part_, part_.Child(properties, "tblInd"), "w").value_or(0);
  const std::string_view side = ValueOf(part_, part_.Child(properties, "jc"));
  if (side == "center") table->alignment = Alignment::kCenter;
  if (side == "right" || side == "end") table->alignment = Alignment::kRight;
  table->borders = ReadBoxBorders(part_, part_.Child(properties, "tblBorders"));
  for (const XmlNode column : part_.Child(element, "tblGrid").Children(part_.Name("gridCol"))) {
    if (table->grid.size() < kMostColumns) table->grid.push_back(std::max(0, TwipsOf(part_, column, "w").value_or(0)));
  }
  ++depth_;
  ReadRows(element, deleted, style, *table, CountRows(part_, element));
  --depth_;
  return table;
}

void BlockReader::ReadRows(XmlNode parent, bool deleted, const SheetStyle* style, Table& table, int rows) {
  const XmlNode tableNode = [&] {
    XmlNode node = parent;
    while (node && !part_.Is(node, Tag::kTbl)) node = node.Parent();
    return node;
  }();
  const XmlNode tblPr = part_.Child(tableNode, "tblPr");
  const TableLook look = ReadLook(part_, part_.Child(tblPr, "tblLook"));
  const XmlNode borders = part_.Child(tblPr, "tblBorders");
  for (const XmlNode child : parent.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kTr: {
        const XmlNode properties = part_.Child(child, Tag::kTrPr);
        const bool gone = deleted || part_.Child(properties, Tag::kDel);
        Row row;
        row.start = atoms_ == nullptr ? 0 : place_.start;
        const XmlNode height = part_.Child(properties, "trHeight");
        row.height = std::max(0, TwipsOf(part_, height, "val").value_or(0));
        row.exact = std::string_view(part_.Attribute(height, "hRule").Value()) == "exact";
        row.cannotSplit = OnOffOf(part_, part_.Child(properties, "cantSplit")).value_or(false);
        row.header = OnOffOf(part_, part_.Child(properties, "tblHeader")).value_or(false);
        // Half of it is kept on each side of a cell.
        XmlNode spacing = part_.Child(properties, "tblCellSpacing");
        if (!spacing) spacing = part_.Child(tblPr, "tblCellSpacing");
        row.gap = 2 * std::max(0, TwipsOf(part_, spacing, "w").value_or(0));
        const int index = static_cast<int>(table.rows.size());
        std::vector<const char*> places;
        const bool first = look.firstRow && index == 0;
        if (first) places.push_back("firstRow");
        if (look.lastRow && index == rows - 1) places.push_back("lastRow");
        if (look.rowBands && !first && style != nullptr) {
          const int band = (index - (look.firstRow ? 1 : 0)) / style->rowBand;
          places.push_back(band % 2 == 0 ? "band1Horz" : "band2Horz");
        }
        int column = std::max(0, NumberOf(part_, part_.Child(properties, "gridBefore")).value_or(0));
        ReadCells(child, gone, style, places, table, row, column);
        const auto width = [&](const char* name, std::optional<int> ofStyle) {
          return BorderWidth(part_, part_.Child(borders, name)).value_or(ofStyle.value_or(0));
        };
        const TableValues none;
        const TableValues& values = style == nullptr ? none : style->table;
        const double inside = width("insideH", values.borderInside);
        const double top = index == 0 ? width("top", values.borderOutside) : inside;
        const double bottom = index == rows - 1 ? width("bottom", values.borderOutside) : inside;
        for (const Cell& cell : row.cells) {
          row.topBorder = std::max(row.topBorder, cell.topBorder.value_or(top));
          row.bottomBorder = std::max(row.bottomBorder, cell.bottomBorder.value_or(bottom));
        }
        Meet(child);
        if (!gone && !row.cells.empty()) table.rows.push_back(std::move(row));
        break;
      }
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      default: {
        const Wrapped wrapped = WrappedBy(part_, child, Within::kRows);
        if (wrapped.content) ReadRows(wrapped.content, deleted || wrapped.deleted, style, table, rows);
        break;
      }
    }
  }
}

void BlockReader::ReadCells(XmlNode parent, bool deleted, const SheetStyle* style,
                            const std::vector<const char*>& rowPlaces, Table& table, Row& row, int& column) {
  for (const XmlNode child : parent.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kTc: {
        const XmlNode properties = part_.Child(child, "tcPr");
        Cell cell;
        cell.column = column;
        cell.span = std::clamp(NumberOf(part_, part_.Child(properties, "gridSpan")).value_or(1), 1, kMostColumns);
        column += cell.span;
        std::vector<const char*> places = rowPlaces;
        XmlNode tbl = child.Parent();
        while (tbl && !part_.Is(tbl, Tag::kTbl)) tbl = tbl.Parent();
        const XmlNode tblPr = part_.Child(tbl, "tblPr");
        const TableLook look = ReadLook(part_, part_.Child(tblPr, "tblLook"));
        const auto strongest = places.begin();
        if (look.firstColumn && cell.column == 0) places.insert(strongest, "firstCol");
        const TableValues* values = formats_.CellValues(style, places);
        CellMargins margins = ReadCellMargins(part_, part_.Child(properties, "tcMar"));
        margins.Inherit(ReadCellMargins(part_, part_.Child(tblPr, "tblCellMar")));
        if (values != nullptr) margins.Inherit(values->margins);
        cell.top = margins.top.value_or(0);
        cell.bottom = margins.bottom.value_or(0);
        cell.left = margins.left.value_or(kDefaultSideMargin);
        cell.right = margins.right.value_or(kDefaultSideMargin);
        if (const XmlNode merge = part_.Child(properties, "vMerge")) {
          cell.mergedBelow = ValueOf(part_, merge) == "restart";
          cell.mergedAbove = !cell.mergedBelow;
        }
        const XmlNode borders = part_.Child(properties, "tcBorders");
        cell.borders = ReadBoxBorders(part_, borders);
        cell.values = values;
        const std::optional<page::Color> ofStyle = values == nullptr ? std::nullopt : values->shading;
        cell.shading = ShadingColor(part_, part_.Child(properties, "shd")).value_or(ofStyle.value_or(page::kNoColor));
        cell.topBorder = BorderWidth(part_, part_.Child(borders, "top"));
        cell.bottomBorder = BorderWidth(part_, part_.Child(borders, "bottom"));
        const std::string_view upright = ValueOf(part_, part_.Child(properties, "vAlign"));
        cell.lowered = upright == "center" ? 0.5 : upright == "bottom" ? 1 : 0;
        const std::string_view direction = ValueOf(part_, part_.Child(properties, "textDirection"));
        cell.hidesMark = OnOffOf(part_, part_.Child(properties, "hideMark")).value_or(false);
        cell.sideways = direction == "btLr" || direction == "tbRl";
        cell.upwards = direction == "btLr";
        ReadWidth(part_, part_.Child(properties, "tcW"), cell.preferred, cell.preferredShare);
        open_.reset();
        ReadBlocks(child, deleted, values, cell.blocks);
        CloseParagraph(cell.blocks);
        Meet(child);
        if (!deleted) row.cells.push_back(std::move(cell));
        break;
      }
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      default: {
        const Wrapped wrapped = WrappedBy(part_, child, Within::kRows);
        if (wrapped.content)
          ReadCells(wrapped.content, deleted || wrapped.deleted, style, rowPlaces, table, row, column);
        break;
      }
    }
  }
}

}  // namespace docx::layout
