#include <algorithm>
#include <utility>

#include "hosts/docx/layout/BlockReader.h"
#include "hosts/docx/layout/Colors.h"
#include "hosts/docx/story/StoryBuilder.h"
#include "hosts/docx/xml/XmlText.h"

namespace docx::layout {

namespace {

/// Tables nested deeper are left out; nobody could read them.
constexpr int kDeepest = 40;
constexpr int kMostColumns = 200;
constexpr int kDefaultSideMargin = 115;

/// A preferred width: twips, or a share of the room.
void ReadWidth(const XmlPart& part, XmlNode width, double& twips, double& share) {
  const std::string_view type = part.Attribute(width, "type").Value();
  const std::string_view text = part.Attribute(width, "w").Value();
  if (type == "pct" || text.ends_with('%')) {
    const double number = NumberIn(text);
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

/// What a row says of itself, without its cells. @param tblPr of its table
Row ReadRowFormat(const XmlPart& part, XmlNode trPr, XmlNode tblPr) {
  Row row;
  const XmlNode height = part.Child(trPr, "trHeight");
  row.height = std::max(0, TwipsOf(part, height, "val").value_or(0));
  row.exact = std::string_view(part.Attribute(height, "hRule").Value()) == "exact";
  row.cannotSplit = OnOffOf(part, part.Child(trPr, "cantSplit")).value_or(false);
  row.header = OnOffOf(part, part.Child(trPr, "tblHeader")).value_or(false);
  // Half of it is kept on each side of a cell.
  XmlNode spacing = part.Child(trPr, "tblCellSpacing");
  if (!spacing) spacing = part.Child(tblPr, "tblCellSpacing");
  row.gap = 2 * std::max(0, TwipsOf(part, spacing, "w").value_or(0));
  return row;
}

/// What a cell says of itself, without its content. @param tblPr of its table @param values of its table's style, if
/// any
Cell ReadCellFormat(const XmlPart& part, XmlNode tcPr, XmlNode tblPr, const TableValues* values) {
  Cell cell;
  cell.span = std::clamp(NumberOf(part, part.Child(tcPr, "gridSpan")).value_or(1), 1, kMostColumns);
  CellMargins margins = ReadCellMargins(part, part.Child(tcPr, "tcMar"));
  margins.Inherit(ReadCellMargins(part, part.Child(tblPr, "tblCellMar")));
  if (values != nullptr) margins.Inherit(values->margins);
  cell.top = margins.top.value_or(0);
  cell.bottom = margins.bottom.value_or(0);
  cell.left = margins.left.value_or(kDefaultSideMargin);
  cell.right = margins.right.value_or(kDefaultSideMargin);
  if (const XmlNode merge = part.Child(tcPr, "vMerge")) {
    cell.mergedBelow = ValueOf(part, merge) == "restart";
    cell.mergedAbove = !cell.mergedBelow;
  }
  const XmlNode borders = part.Child(tcPr, "tcBorders");
  cell.borders = ReadBoxBorders(part, borders);
  cell.values = values;
  const std::optional<page::Color> ofStyle = values == nullptr ? std::nullopt : values->shading;
  cell.shading = ShadingColor(part, part.Child(tcPr, "shd")).value_or(ofStyle.value_or(page::kNoColor));
  cell.topBorder = BorderWidth(part, part.Child(borders, "top"));
  cell.bottomBorder = BorderWidth(part, part.Child(borders, "bottom"));
  const std::string_view upright = ValueOf(part, part.Child(tcPr, "vAlign"));
  cell.lowered = upright == "center" ? 0.5 : upright == "bottom" ? 1 : 0;
  const std::string_view direction = ValueOf(part, part.Child(tcPr, "textDirection"));
  cell.hidesMark = OnOffOf(part, part.Child(tcPr, "hideMark")).value_or(false);
  cell.sideways = direction == "btLr" || direction == "tbRl";
  cell.upwards = direction == "btLr";
  ReadWidth(part, part.Child(tcPr, "tcW"), cell.preferred, cell.preferredShare);
  return cell;
}

/// Where a table floats. @param tblpPr its w:tblpPr
void ReadTablePlace(const XmlPart& part, XmlNode tblpPr, Table& table) {
  table.floating = true;
  const int besides =
      std::max(TwipsOf(part, tblpPr, "leftFromText").value_or(0), TwipsOf(part, tblpPr, "rightFromText").value_or(0));
  table.floatingMargin = std::max(0, besides);
  const bool byPage = std::string_view(part.Attribute(tblpPr, "horzAnchor").Value()) == "page";
  if (const auto x = TwipsOf(part, tblpPr, "tblpX"); x && !byPage) table.floatingLeft = *x;
  if (std::string_view(part.Attribute(tblpPr, "tblpXSpec").Value()) == "right") table.alignment = Alignment::kRight;
}

}  // namespace

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
  if (const XmlNode place = part_.Child(properties, "tblpPr")) ReadTablePlace(part_, place, *table);
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
  for (const XmlNode child : parent.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kTr:
        ReadRow(child, deleted, style, table, rows);
        break;
      case Tag::kTc: {
        // A damaged table; what it says still shows.
        Row row;
        row.start = RowStart();
        int column = 0;
        ReadCell(child, deleted, style, {.row = static_cast<int>(table.rows.size())}, row, column);
        if (!row.cells.empty()) table.rows.push_back(std::move(row));
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

void BlockReader::ReadRow(XmlNode element, bool deleted, const SheetStyle* style, Table& table, int rows) {
  const XmlNode properties = part_.Child(element, Tag::kTrPr);
  const XmlNode tblPr = part_.Child(TableAround(part_, element), "tblPr");
  const bool gone = deleted || part_.Child(properties, Tag::kDel);
  Row row = ReadRowFormat(part_, properties, tblPr);
  row.start = RowStart();
  const int index = static_cast<int>(table.rows.size());
  int column = std::max(0, NumberOf(part_, part_.Child(properties, "gridBefore")).value_or(0));
  ReadCells(element, gone, style, {.row = index, .inLastRow = index == rows - 1}, row, column);
  const XmlNode borders = part_.Child(tblPr, "tblBorders");
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
  Meet(element);
  if (!gone && !row.cells.empty()) table.rows.push_back(std::move(row));
}

void BlockReader::ReadCells(XmlNode parent, bool deleted, const SheetStyle* style, const CellPlace& ofRow, Row& row,
                            int& column) {
  for (const XmlNode child : parent.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kTc:
        ReadCell(child, deleted, style, ofRow, row, column);
        break;
      case Tag::kTr:
        // The same of a row in a row.
        ReadCells(child, deleted || part_.Child(part_.Child(child, Tag::kTrPr), Tag::kDel), style, ofRow, row, column);
        Meet(child);
        break;
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      default: {
        const Wrapped wrapped = WrappedBy(part_, child, Within::kRows);
        if (wrapped.content) ReadCells(wrapped.content, deleted || wrapped.deleted, style, ofRow, row, column);
        break;
      }
    }
  }
}

void BlockReader::ReadCell(XmlNode element, bool deleted, const SheetStyle* style, CellPlace place, Row& row,
                           int& column) {
  const XmlNode tblPr = part_.Child(TableAround(part_, element), "tblPr");
  const TableValues* values = nullptr;
  if (style != nullptr) {
    place.column = column;
    place.inLastColumn = EndsRow(part_, element);
    const TableLook look = ReadTableLook(part_, tblPr);
    values = formats_.CellValues(*style, TablePlaces(look, place, style->rowBand, style->columnBand));
  }
  Cell cell = ReadCellFormat(part_, part_.Child(element, "tcPr"), tblPr, values);
  cell.column = column;
  column += cell.span;
  open_.reset();
  ReadBlocks(element, deleted, values, cell.blocks);
  CloseParagraph(cell.blocks);
  Meet(element);
  if (!deleted) row.cells.push_back(std::move(cell));
}

}  // namespace docx::layout
