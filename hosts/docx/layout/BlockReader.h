#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/docx/layout/BlockMemory.h"
#include "hosts/docx/layout/Content.h"
#include "hosts/docx/layout/NoteNumbers.h"
#include "hosts/docx/story/Story.h"
#include "hosts/docx/styles/TablePlaces.h"

namespace docx::layout {

struct Drawing;

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
  /// What knows the part's blocks from the last reading and gets those of this one. @param memory outlives the reader
  void SetMemory(BlockMemory& memory);

 private:
  void ReadBlocks(XmlNode container, bool deleted, const TableValues* cell, std::vector<Block>& into);
  void ReadBlock(XmlNode element, bool deleted, const TableValues* cell, std::vector<Block>& into);
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
  void ReadTable(XmlNode table, bool deleted, std::vector<Block>& into);
  std::shared_ptr<Table> ReadTable(XmlNode table, bool deleted);
  void ReadRows(XmlNode parent, bool deleted, const SheetStyle* style, Table& table, int rows);
  /// Where a row that is read next stands.
  Position RowStart() const { return atoms_ == nullptr ? 0 : place_.start; }
  void ReadRow(XmlNode row, bool deleted, const SheetStyle* style, Table& table, int rows);
  /// @param ofRow where each cell stands, as far as its row says
  void ReadCells(XmlNode parent, bool deleted, const SheetStyle* style, const CellPlace& ofRow, Row& row, int& column);
  void ReadCell(XmlNode cell, bool deleted, const SheetStyle* style, CellPlace place, Row& row, int& column);
  /// Moves on when the next atom is that element's. @return where it stands
  Position Meet(XmlNode element);
  void FollowField(XmlNode element, bool deleted);
  /// All of it is one position of the text.
  void ReadRuby(XmlNode ruby, Position position);
  PageFieldCode FieldKind() const;
  bool Shows() const { return codes_ == 0; }
  /// Gives a paragraph its number's label.
  void SetLabel(Paragraph& paragraph, XmlNode element, std::u16string label);

  /// How the reading stood when a block began that may be known the next time.
  struct Begun {
    Position start{0};
    std::size_t atoms{0};
    std::size_t fields{0};
    std::size_t numbers{0};
    std::size_t noteMarks{0};
    NoteNumbers notes;
  };
  Begun Begin() const;
  /// Takes a block as it was in the last reading. @return false, and nothing has happened, where it would be another
  /// one
  bool Recall(XmlNode element, KnownBlock& known, const TableValues* cell, std::vector<Block>& into);
  bool CountAgain(XmlNode element, KnownBlock& known);
  /// Where a known block ends in the story; empty when that has other atoms than the block.
  std::optional<AtomSequence::Place> EndOf(const KnownBlock& known) const;
  /// Remembers the block that was read last.
  void Keep(XmlNode element, const Begun& begun, const TableValues* cell, const Block& block, const KnownBlock* before,
            std::unique_ptr<KnownBlock::ByElement> within);

  Formats& formats_;
  const XmlPart& part_;
  const AtomSequence* atoms_{nullptr};
  AtomSequence::Place place_;
  NumberCounters& counters_;
  NoteNumbers& notes_;
  std::u16string noteMark_;
  PictureNames pictureNames_;
  BlockMemory* memory_{nullptr};
  // Of the memory, or of the table that is being read.
  KnownBlock::ByElement* before_{nullptr};
  KnownBlock::ByElement* now_{nullptr};
  // What came by so far.
  std::size_t met_{0};
  const XmlNodeData* lastMet_{nullptr};
  std::size_t noteMarks_{0};
  std::vector<NumberUse> numbers_;
  std::size_t fewestFields_{0};  ///< that were open since the block began

  /// A paragraph whose mark does not show goes on in the next one.
  std::shared_ptr<Paragraph> open_;
  const TextStyle* style_{nullptr};
  /// A field that a mark began and none has ended.
  struct OpenField {
    bool inCode{true};
    std::string code;
    PageFieldCode kind;
  };
  std::vector<OpenField> fields_;  // outermost first
  /// The elements of fields around what is read; marks inside of them do not end them. Outermost first.
  std::vector<PageFieldCode> simpleFields_;
  int codes_{0};
  int depth_{0};
  int boxes_{0};  // around what is read
};

}  // namespace docx::layout
