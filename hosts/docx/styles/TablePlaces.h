#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <vector>

#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// Which of a table style's conditional formats a w:tblLook asks for.
struct TableLook {
  bool firstRow{false};
  bool lastRow{false};
  bool firstColumn{false};
  bool lastColumn{false};
  bool rowBands{true};
  bool columnBands{true};
};

/// @param tblPr of the table; may be empty
TableLook ReadTableLook(const XmlPart& part, XmlNode tblPr);

/// Where a cell stands in its table.
struct CellPlace {
  int row{0};
  bool inLastRow{false};
  int column{0};  ///< of the grid
  bool inLastColumn{false};
};

/// The conditional formats of a table's style that a cell gets, as w:tblStylePr calls them, the strongest first.
/// @param rowBand how many rows a band has @param columnBand likewise
std::vector<const char*> TablePlaces(const TableLook& look, const CellPlace& place, int rowBand, int columnBand);

/// The cell that a paragraph stands in; empty for one that stands in none, or in a text box there.
XmlNode CellAround(const XmlPart& part, XmlNode paragraph);
/// The table that a row or cell, or what wraps it, stands in.
XmlNode TableAround(const XmlPart& part, XmlNode node);
/// Whether no cell stands behind this one in its row.
bool EndsRow(const XmlPart& part, XmlNode cell);
/// @param bands whether rows and columns are counted, which takes its time; otherwise those that are not the first are
/// just some later ones
CellPlace PlaceOfCell(const XmlPart& part, XmlNode cell, bool bands);

}  // namespace docx
