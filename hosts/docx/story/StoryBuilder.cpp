#include "hosts/docx/story/StoryBuilder.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/docx/package/Package.h"
#include "hosts/docx/story/ApartMark.h"
#include "hosts/docx/story/TextElement.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

/// VML that is positioned floats; all other VML stands in the line.
bool Floats(XmlNode picture) {
  for (const XmlNode shape : picture.Children()) {
    if (shape.Attribute("style").Value().find("position:absolute") != std::string_view::npos) return true;
  }
  return false;
}

/// Whether a picture, object or alternate content takes a character of the line.
bool StandsInLine(const XmlPart& part, XmlNode node) {
  switch (part.TagOf(node)) {
    case Tag::kDrawing:
      return !part.Child(node, Tag::kAnchor);
    case Tag::kPict:
    case Tag::kObject:
      return !Floats(node);
    case Tag::kAlternateContent: {
      const XmlNode branch = ChosenBranch(part, node);
      for (const XmlNode child : branch.Children()) {
        if (child.IsElement()) return part.Is(child, Tag::kDrawing) ? StandsInLine(part, child) : !Floats(child);
      }
      return false;
    }
    default:
      return false;
  }
}

}  // namespace

XmlNode ChosenBranch(const XmlPart& part, XmlNode alternate) {
  const XmlNode choice = part.Child(alternate, Tag::kChoice);
  return choice ? choice : part.Child(alternate, Tag::kFallback);
}

Wrapped WrappedBy(const XmlPart& part, XmlNode element, Within within) {
  switch (part.TagOf(element)) {
    case Tag::kSdt:
      return {.content = part.Child(element, Tag::kSdtContent)};
    case Tag::kAlternateContent:
      return within == Within::kRows ? Wrapped{} : Wrapped{.content = ChosenBranch(part, element)};
    case Tag::kIns:
    case Tag::kMoveTo:
      return {.content = element, .inserted = true};
    case Tag::kDel:
    case Tag::kMoveFrom:
      return {.content = element, .deleted = true};
    case Tag::kCustomXml:
      return {.content = element};
    case Tag::kHyperlink:
    case Tag::kSmartTag:
    case Tag::kDir:
    case Tag::kBdo:
      return within == Within::kText ? Wrapped{.content = element} : Wrapped{};
    default:
      return {};
  }
}

StoryBuilder::Piece StoryBuilder::ReadRunContent(const XmlPart& part, XmlNode element, bool deleted) {
  Piece piece;
  piece.atom.element = element.Data();
  piece.atom.deleted = deleted;
  const auto character = [&](char16_t unit) {
    piece.atom.kind = AtomKind::kCharacter;
    piece.text = unit;
  };
  switch (part.TagOf(element)) {
    case Tag::kT:
    case Tag::kDelText:
      piece.text = TextOf(element);
      break;
    case Tag::kInstrText:
    case Tag::kDelInstrText:
      piece.atom.kind = AtomKind::kCode;
      piece.text = TextOf(element);
      break;
    case Tag::kFldChar: {
      const std::string_view type = part.Attribute(element, "fldCharType").Value();
      if (type == "begin") {
        piece.atom.kind = AtomKind::kFieldBegin;
        piece.text = word::kFieldBegin;
      } else if (type == "separate") {
        piece.atom.kind = AtomKind::kFieldSeparator;
        piece.text = word::kFieldSeparator;
      } else if (type == "end") {
        piece.atom.kind = AtomKind::kFieldEnd;
        piece.text = word::kFieldEnd;
      }
      break;
    }
    case Tag::kTab:
    case Tag::kPTab:
      character(word::kTab);
      break;
    case Tag::kBr: {
      const std::string_view type = part.Attribute(element, "type").Value();
      character(type == "page" ? word::kPageBreak : type == "column" ? word::kColumnBreak : word::kLineBreak);
      break;
    }
    case Tag::kCr:
      character(word::kLineBreak);
      break;
    case Tag::kNoBreakHyphen:
      character(word::kNonBreakingHyphen);
      break;
    case Tag::kSoftHyphen:
      character(word::kOptionalHyphen);
      break;
    case Tag::kSym:
      character(word::kSymbol);
      break;
    case Tag::kFootnoteReference:
    case Tag::kEndnoteReference:
    case Tag::kFootnoteRef:
    case Tag::kEndnoteRef:
      character(word::kNoteReference);
      break;
    case Tag::kCommentReference:
      character(word::kCommentMark);
      break;
    case Tag::kSeparator:
      character(3);
      break;
    case Tag::kContinuationSeparator:
      character(4);
      break;
    case Tag::kRuby:
      character(word::kInlineObject);
      break;
    case Tag::kDrawing:
    case Tag::kPict:
    case Tag::kObject:
    case Tag::kAlternateContent:
      if (StandsInLine(part, element)) character(word::kInlineObject);
      break;
    default:
      break;
  }
  piece.atom.length = static_cast<std::uint32_t>(piece.text.size());
  return piece;
}

void StoryBuilder::Add(XmlNode element, AtomKind kind, std::u16string_view text, bool deleted) {
  CountField(kind);
  const Atom atom{element.Data(), static_cast<std::uint32_t>(text.size()), kind, deleted};
  const AtomSequence::Place place = atoms_.Append(atom, text);
  hasRevisions_ = hasRevisions_ || deleted;
  if (text.empty()) return;
  lastIsMark_ = kind == AtomKind::kParagraphMark;
  if (lastIsMark_) lastMark_ = place;
}

void StoryBuilder::CountField(AtomKind kind) {
  if (kind == AtomKind::kFieldBegin || kind == AtomKind::kSimpleBegin) {
    if (++openFields_ <= kMaxFieldDepth) return;
    throw PackageError("is damaged or not accepted: " + part_.PartName() + " has too many fields in one another");
  }
  if (kind == AtomKind::kFieldEnd || kind == AtomKind::kSimpleEnd) openFields_ = std::max(openFields_ - 1, 0);
}

void StoryBuilder::AddWrapped(XmlNode element, Within within, bool deleted, void (StoryBuilder::*add)(XmlNode, bool)) {
  const Wrapped wrapped = WrappedBy(part_, element, within);
  hasRevisions_ = hasRevisions_ || wrapped.inserted;
  if (wrapped.content) (this->*add)(wrapped.content, deleted || wrapped.deleted);
}

void StoryBuilder::AddBlocks(XmlNode container, bool deleted) {
  for (const XmlNode child : container.Children()) {
    if (!child.IsElement()) continue;
    switch (part_.TagOf(child)) {
      case Tag::kP:
        AddParagraph(child, deleted);
        break;
      case Tag::kTbl:
        AddTable(child, deleted);
        break;
      case Tag::kBookmarkStart:
        Add(child, AtomKind::kBookmarkStart, {}, deleted);
        break;
      case Tag::kBookmarkEnd:
        Add(child, AtomKind::kBookmarkEnd, {}, deleted);
        break;
      default:
        AddWrapped(child, Within::kBlocks, deleted, &StoryBuilder::AddBlocks);
        break;
    }
  }
}

void StoryBuilder::AddParagraph(XmlNode paragraph, bool deleted) {
  AddInlines(paragraph, deleted);
  const XmlNode properties = part_.Child(paragraph, Tag::kPPr);
  bool markDeleted = deleted;
  if (marksMayBeDeleted_ && !deleted) {
    const XmlNode markProperties = part_.Child(properties, Tag::kRPr);
    markDeleted = part_.Child(markProperties, Tag::kDel) || part_.Child(markProperties, Tag::kMoveFrom);
  }
  const bool endsSection = properties.MayHold("sectPr") && part_.Child(properties, Tag::kSectPr);
  const char16_t mark = endsSection ? word::kPageBreak : word::kParagraphMark;
  Add(paragraph, AtomKind::kParagraphMark, std::u16string_view(&mark, 1), markDeleted);
}

void StoryBuilder::AddTable(XmlNode table, bool deleted) {
  for (const XmlNode child : table.Children()) {
    if (!child.IsElement()) continue;
    switch (part_.TagOf(child)) {
      case Tag::kTr: {
        const XmlNode properties = part_.Child(child, Tag::kTrPr);
        const bool rowDeleted = deleted || part_.Child(properties, Tag::kDel);
        AddTable(child, rowDeleted);
        Add(child, AtomKind::kRowMark, std::u16string_view(&word::kCellMark, 1), rowDeleted);
        break;
      }
      case Tag::kTc:
        AddCell(child, deleted);
        break;
      case Tag::kBookmarkStart:
        Add(child, AtomKind::kBookmarkStart, {}, deleted);
        break;
      case Tag::kBookmarkEnd:
        Add(child, AtomKind::kBookmarkEnd, {}, deleted);
        break;
      default:
        AddWrapped(child, Within::kRows, deleted, &StoryBuilder::AddTable);
        break;
    }
  }
}

void StoryBuilder::AddCell(XmlNode cell, bool deleted) {
  lastIsMark_ = false;
  AddBlocks(cell, deleted);
  if (lastIsMark_) {
    atoms_.SetCharacter(lastMark_, word::kCellMark);
    lastIsMark_ = false;
  } else {
    Add(cell, AtomKind::kCellMark, std::u16string_view(&word::kCellMark, 1), deleted);
  }
}

void StoryBuilder::AddInlines(XmlNode parent, bool deleted) {
  for (const XmlNode child : parent.Children()) {
    if (!child.IsElement()) {
      if (IsApartMark(child)) apart_.push_back(child);
      continue;
    }
    switch (part_.TagOf(child)) {
      case Tag::kR:
        AddRun(child, deleted);
        break;
      case Tag::kFldSimple: {
        std::u16string begin(1, word::kFieldBegin);
        begin += ToUtf16(part_.Attribute(child, "instr").Value());
        begin += word::kFieldSeparator;
        Add(child, AtomKind::kSimpleBegin, begin, deleted);
        AddInlines(child, deleted);
        Add(child, AtomKind::kSimpleEnd, std::u16string_view(&word::kFieldEnd, 1), deleted);
        break;
      }
      case Tag::kBookmarkStart:
        Add(child, AtomKind::kBookmarkStart, {}, deleted);
        break;
      case Tag::kBookmarkEnd:
        Add(child, AtomKind::kBookmarkEnd, {}, deleted);
        break;
      default:
        AddWrapped(child, Within::kText, deleted, &StoryBuilder::AddInlines);
        break;
    }
  }
}

void StoryBuilder::AddRun(XmlNode run, bool deleted) {
  for (const XmlNode child : run.Children()) {
    if (!child.IsElement()) continue;
    if (part_.Is(child, Tag::kT)) {
      text_.clear();
      AppendTextOf(child, text_);
      if (!text_.empty()) Add(child, AtomKind::kText, text_, deleted);
      continue;
    }
    const Piece piece = ReadRunContent(part_, child, deleted);
    if (piece.atom.length != 0) Add(child, piece.atom.kind, piece.text, deleted);
  }
}

}  // namespace docx
