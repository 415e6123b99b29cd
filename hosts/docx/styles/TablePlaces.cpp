#include "hosts/docx/styles/TablePlaces.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace docx {

namespace {

constexpr int kMostColumns = 200;

enum class Way { kBack, kOn };

XmlNode Beside(XmlNode node, Way way) { return way == Way::kOn ? node.NextSibling() : node.PreviousSibling(); }

/// The row beside a row of a table, or the cell beside a cell of a row, whatever wraps the two; empty for none.
XmlNode Neighbour(const XmlPart& part, XmlNode node, Way way) {
  const Tag tag = part.TagOf(node);
  while (true) {
    while (!Beside(node, way)) {
      node = node.Parent();
      if (!node || part.Is(node, Tag::kTr) || part.Is(node, Tag::kTbl)) return {};
    }
    node = Beside(node, way);
    while (!part.Is(node, tag)) {
      const XmlNode inner = way == Way::kOn ? node.FirstChild() : node.LastChild();
      if (!inner) break;
      node = inner;
    }
    if (part.Is(node, tag)) return node;
  }
}

XmlNode Around(const XmlPart& part, XmlNode node, Tag tag) {
  while (node && !part.Is(node, tag)) node = node.Parent();
  return node;
}

/// @param least for what states less or nothing
int Columns(const XmlPart& part, XmlNode element, int least) {
  int columns = least;
  const std::string_view text = part.Attribute(element, "val").Value();
  std::from_chars(text.data(), text.data() + text.size(), columns);
  return std::clamp(columns, least, kMostColumns);
}

}  // namespace

TableLook ReadTableLook(const XmlPart& part, XmlNode tblPr) {
  TableLook look;
  const XmlNode tblLook = part.Child(tblPr, "tblLook");
  if (!tblLook) return look;
  int bits = 0;
  const std::string_view value = part.Attribute(tblLook, "val").Value();
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
  look.columnBands = !flag("noVBand", 0x400);
  return look;
}

std::vector<const char*> TablePlaces(const TableLook& look, const CellPlace& place, int rowBand, int columnBand) {
  const bool top = look.firstRow && place.row == 0;
  const bool bottom = look.lastRow && place.inLastRow;
  const bool left = look.firstColumn && place.column == 0;
  const bool right = look.lastColumn && place.inLastColumn;
  std::vector<const char*> places;
  if (top && left) places.push_back("nwCell");
  if (top && right) places.push_back("neCell");
  if (bottom && left) places.push_back("swCell");
  if (bottom && right) places.push_back("seCell");
  if (left) places.push_back("firstCol");
  if (right) places.push_back("lastCol");
  if (top) places.push_back("firstRow");
  if (bottom) places.push_back("lastRow");
  if (look.rowBands && !top) {
    const int band = (place.row - (look.firstRow ? 1 : 0)) / rowBand;
    places.push_back(band % 2 == 0 ? "band1Horz" : "band2Horz");
  }
  if (look.columnBands && !left) {
    const int band = (place.column - (look.firstColumn ? 1 : 0)) / columnBand;
    places.push_back(band % 2 == 0 ? "band1Vert" : "band2Vert");
  }
  return places;
}

XmlNode CellAround(const XmlPart& part, XmlNode paragraph) {
  XmlNode up = paragraph.Parent();
  while (up && !part.Is(up, Tag::kTc) && !part.Is(up, Tag::kP)) up = up.Parent();
  return part.Is(up, Tag::kTc) ? up : XmlNode();
}

XmlNode TableAround(const XmlPart& part, XmlNode node) { return Around(part, node, Tag::kTbl); }

bool EndsRow(const XmlPart& part, XmlNode cell) { return Neighbour(part, cell, Way::kOn).Empty(); }

CellPlace PlaceOfCell(const XmlPart& part, XmlNode cell, bool bands) {
  CellPlace place;
  const XmlNode row = Around(part, cell, Tag::kTr);
  if (!row) return place;
  place.inLastRow = Neighbour(part, row, Way::kOn).Empty();
  for (XmlNode above = Neighbour(part, row, Way::kBack); above; above = Neighbour(part, above, Way::kBack)) {
    ++place.row;
    if (!bands) break;
  }
  place.inLastColumn = EndsRow(part, cell);
  place.column = Columns(part, part.Child(part.Child(row, Tag::kTrPr), "gridBefore"), 0);
  for (XmlNode left = Neighbour(part, cell, Way::kBack); left; left = Neighbour(part, left, Way::kBack)) {
    place.column += Columns(part, part.Child(part.Child(left, "tcPr"), "gridSpan"), 1);
    if (!bands) break;
  }
  return place;
}

}  // namespace docx
