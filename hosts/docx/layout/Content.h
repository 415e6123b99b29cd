#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "hosts/docx/layout/Borders.h"
#include "hosts/docx/layout/Obstacles.h"
#include "hosts/docx/layout/TextStyle.h"
#include "platform/word/Types.h"

namespace docx::layout {

using word::Position;

enum class PieceKind : std::uint8_t {
  kText,
  kTab,
  kLineBreak,
  kPageBreak,
  kColumnBreak,
  kObject,  ///< a picture in the line
  kNote,    ///< a reference to a footnote or endnote; its number is the text
  kSoftHyphen,
  kRule,  ///< the line over footnotes
};

/// A number that a header prints anew on every page.
enum class PageField : std::uint8_t { kNone, kPage, kPageCount, kSectionPages };

/// What a field prints of the page that it stands on.
struct PageFieldCode {
  PageField field{PageField::kNone};
  const char* format{nullptr};  ///< the w:fmt that it asks for; nullptr for the one of the section
};

struct TextBox;

/// A picture or text box that does not stand in the line. Lengths in twips.
struct Floating {
  enum class Wrap : std::uint8_t { kNone, kSquare, kTopAndBottom };
  /// What a place is counted from.
  enum class From : std::uint8_t { kText, kMargin, kPaper };
  Wrap wrap{Wrap::kNone};
  TextSides sides{TextSides::kBoth};
  /// What text keeps free of, in shares of what is drawn; empty for all of it.
  std::vector<OutlinePoint> outline;
  double width{0};  ///< with its effects
  double height{0};
  // What it keeps free around it.
  double marginTop{0};
  double marginLeft{0};
  double marginBottom{0};
  double marginRight{0};

  // Where it is drawn.
  std::string picture;            ///< the name of a part of the package; empty for what cannot be drawn
  std::u16string instead;         ///< what the document says for who does not see it, or what kind of thing it is
  std::shared_ptr<TextBox> text;  ///< what stands in a text box; nullptr for what is none
  double drawnWidth{0};
  double drawnHeight{0};
  From across{From::kText};
  From down{From::kText};
  double x{0};
  double y{0};
  std::optional<double> sideAcross;  ///< instead of x: 0 on the left, 0.5 in the middle, 1 on the right
  std::optional<double> sideDown;    ///< instead of y
};

/// A stretch of a paragraph that shows in one way. Lengths in twips.
struct Piece {
  PieceKind kind{PieceKind::kText};
  const TextStyle* style{nullptr};
  Position position{0};     ///< of its first unit in the story
  std::uint32_t start{0};   ///< in the paragraph's text
  std::uint32_t length{0};  ///< units of text
  float width{0};           ///< of an object
  float height{0};
  XmlNodeData* element{nullptr};  ///< of a note's reference
  int picture{-1};                ///< of an object, in Paragraph::pictures
  bool solid{false};              ///< all units stand at the position, such as a note's number
  PageFieldCode field;
};

/// Where a frame stands beside the text. Lengths in twips.
struct Frame {
  double width{0};  ///< 0 for that of the text in it
  double x{0};      ///< from the column's edge, for text on the left
  double y{0};      ///< down from where the text goes on
  Alignment side{Alignment::kLeft};
  double spaceAcross{0};  ///< between it and the text beside it
  double spaceUpright{0};
  bool beside{false};  ///< text stands beside it
};

struct MadeLines;

struct Paragraph {
  ParagraphLook look;
  std::u16string text;
  std::vector<Piece> pieces;
  const TextStyle* mark{nullptr};
  std::u16string label;
  const TextStyle* labelStyle{nullptr};
  NumberSuffix suffix{NumberSuffix::kTab};
  Alignment labelAlignment{Alignment::kLeft};
  std::vector<Floating> floats;
  struct Picture {
    std::string name;  ///< of a part of the package; empty for what cannot be drawn
    std::u16string instead;
  };
  std::vector<Picture> pictures;
  /// Where Word began a page when it last laid the document out, in order.
  std::vector<Position> lastBreaks;
  Position start{0};
  Position end{0};  ///< of the mark
  /// A w:sectPr that ends its section behind this paragraph.
  XmlNode section;
  std::optional<Frame> frame;  ///< stands beside the text
  /// Where its lines are kept for the next time that somebody asks for them; nullptr for nowhere.
  std::shared_ptr<MadeLines> made;
};

struct Block;

/// Lengths in twips.
struct Cell {
  std::vector<Block> blocks;
  int column{0};
  int span{1};
  bool mergedAbove{false};  ///< goes on with the cell above
  bool mergedBelow{false};  ///< begins a stretch of merged cells
  double top{0};            ///< margins
  double left{0};
  double bottom{0};
  double right{0};
  std::optional<double> topBorder;  ///< widths; empty for those of the table
  std::optional<double> bottomBorder;
  bool hidesMark{false};     ///< an empty last paragraph does not make its row higher
  double lowered{0};         ///< where its text stands in a higher row: 0 above, 0.5 in the middle, 1 below
  bool sideways{false};      ///< text that runs up or down
  bool upwards{false};       ///< the first of these
  double preferred{0};       ///< width; 0 for none
  double preferredShare{0};  ///< of the table's width
  BoxBorders borders;        ///< its own ones
  page::Color shading{page::kNoColor};
  const TableValues* values{nullptr};  ///< of the table style, for this cell
};

/// Lengths in twips.
struct Row {
  std::vector<Cell> cells;
  double height{0};   ///< that it asks for; 0 for none
  bool exact{false};  ///< no more than that, whatever is in it
  bool cannotSplit{false};
  bool header{false};
  double topBorder{0};  ///< the width of the widest of its cells' borders
  double bottomBorder{0};
  double gap{0};  ///< between its cells, and around them; their borders do not meet then
  Position start{0};
};

/// Lengths in twips.
struct Table {
  std::vector<double> grid;
  std::vector<Row> rows;
  double width{0};       ///< preferred; 0 for none
  double widthShare{0};  ///< preferred, of the text around
  double indent{0};
  Alignment alignment{Alignment::kLeft};
  bool fixed{false};  ///< columns do not look at what is in them
  bool floating{false};
  std::optional<double> floatingLeft;  ///< from the column's edge, when it states that
  double floatingMargin{0};            ///< on both sides, of the text beside it
  BoxBorders borders;                  ///< those that the table states
};

struct Block {
  std::variant<std::shared_ptr<Paragraph>, std::shared_ptr<Table>> content;

  Paragraph* AsParagraph() const {
    const auto* paragraph = std::get_if<std::shared_ptr<Paragraph>>(&content);
    return paragraph == nullptr ? nullptr : paragraph->get();
  }
  Table* AsTable() const {
    const auto* table = std::get_if<std::shared_ptr<Table>>(&content);
    return table == nullptr ? nullptr : table->get();
  }
};

/// Lengths in twips.
struct TextBox {
  std::vector<Block> blocks;
  double sideInset{0};
  double topInset{0};
  bool outlined{false};
};

}  // namespace docx::layout
