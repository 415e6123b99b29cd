#include "hosts/docx/layout/BlockReader.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "hosts/docx/layout/Drawings.h"
#include "hosts/docx/layout/PageFields.h"
#include "hosts/docx/layout/Symbols.h"
#include "hosts/docx/story/StoryBuilder.h"
#include "hosts/docx/xml/Utf.h"

namespace docx::layout {

namespace {

/// Text boxes deeper in each other are left out; nobody could read them.
constexpr int kDeepestBox = 3;
constexpr float kNoteRule = 2880;    // twips
constexpr float kWholeRule = 31680;  // as much as there is room for

bool IsElement(XmlNode node) { return node.Type() == XmlType::kElement; }

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
        simpleFields_.push_back(PageFieldOf(part_.Attribute(child, "instr").Value()));
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
    fields_.back().kind = PageFieldOf(fields_.back().code);
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
    case Tag::kRuby:
      ReadRuby(element, position);
      break;
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

void BlockReader::ReadRuby(XmlNode ruby, Position position) {
  const TextStyle* const around = style_;
  // The base is what takes the line's width.
  for (const XmlNode run : part_.Child(ruby, "rubyBase").Children()) {
    if (!part_.Is(run, Tag::kR)) continue;
    style_ = &formats_.Text(part_, part_.Child(run, Tag::kRPr), open_->look);
    for (const XmlNode text : run.Children()) {
      if (!part_.Is(text, Tag::kT) || style_->hidden) continue;
      AddSolid(StoryBuilder::ReadRunContent(part_, text, false).text, position);
    }
  }
  style_ = around;
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

}  // namespace docx::layout
