#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "hosts/docx/layout/Content.h"
#include "hosts/docx/story/Story.h"

namespace docx::layout {

struct Drawing;

/// Numbers of the notes, by the element that refers to them.
class NoteNumbers {
 public:
  /// @param format the w:numFmt of the notes
  std::u16string Next(bool footnote);
  void SetFormats(std::string footnotes, std::string endnotes);
  /// From the first number on, in the same formats.
  NoteNumbers Fresh() const;

 private:
  int footnotes_{0};
  int endnotes_{0};
  std::string footnoteFormat_{"decimal"};
  std::string endnoteFormat_{"lowerRoman"};
};

/// Reads the blocks of a part as they show in print: without field codes, hidden text and what tracked changes take
/// away. Goes through the elements in the order in which the story does, so that everything gets its position.
class BlockReader {
 public:
  /// @param story nullptr for parts that are no story; what is read has position 0 then
  /// @param counters, notes go on from one reader to the next of a document
  BlockReader(Formats& formats, const XmlPart& part, const Story* story, NumberCounters& counters, NoteNumbers& notes);

  std::vector<Block> Read(XmlNode container);
  /// What stands in a note's text for its own number.
  void SetNoteMark(std::u16string mark) { noteMark_ = std::move(mark); }
  /// Who knows the part's name for the id of a picture's relationship.
  using PictureNames = std::function<std::string(const XmlPart& part, std::string_view id)>;
  void SetPictureNames(PictureNames names) { pictureNames_ = std::move(names); }

 private:
  void ReadBlocks(XmlNode container, bool deleted, const TableValues* cell, std::vector<Block>& into);
  void ReadParagraph(XmlNode paragraph, bool deleted, const TableValues* cell, std::vector<Block>& into);
  /// The last paragraph of its container has no next one to go on in.
  void CloseParagraph(std::vector<Block>& into);
  void ReadInlines(XmlNode parent, bool deleted);
  void ReadRun(XmlNode run, bool deleted);
  void ReadContent(XmlNode element, XmlNode rPr, bool deleted);
  void ReadDrawing(XmlNode element);
  void AddObject(const Floating& drawing);
  void AddMath(XmlNode math);
  /// nullptr for one that lies too deep in others.
  std::shared_ptr<TextBox> ReadTextBox(const Drawing& drawing);
  void AddText(std::u16string_view text, Position position, PieceKind kind = PieceKind::kText, XmlNode element = {});
  /// Text all of which stands at one position.
  void AddSolid(std::u16string_view text, Position position);
  void ReadFrame(XmlNode framePr);
  std::unique_ptr<Table> ReadTable(XmlNode table, bool deleted);
  void ReadRows(XmlNode parent, bool deleted, const SheetStyle* style, Table& table, int rows);
  void ReadCells(XmlNode parent, bool deleted, const SheetStyle* style, const std::vector<const char*>& places,
                 Table& table, Row& row, int& column);
  /// Moves on when the next atom is that element's. @return where it stands
  Position Meet(XmlNode element);
  void FollowField(XmlNode element, bool deleted);
  PageFieldCode FieldKind() const;
  bool Shows() const { return codes_ == 0; }

  Formats& formats_;
  const XmlPart& part_;
  const AtomSequence* atoms_{nullptr};
  AtomSequence::Place place_;
  NumberCounters& counters_;
  NoteNumbers& notes_;
  std::u16string noteMark_;
  PictureNames pictureNames_;

  /// A paragraph whose mark does not show goes on in the next one.
  std::unique_ptr<Paragraph> open_;
  const TextStyle* style_{nullptr};
  /// A field that was begun and not ended.
  struct OpenField {
    bool inCode{true};
    std::string code;
    PageFieldCode kind;
  };
  std::vector<OpenField> fields_;  // outermost first
  int codes_{0};
  int depth_{0};
  int boxes_{0};  // around what is read
};

}  // namespace docx::layout
