#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include "hosts/docx/styles/Formatting.h"

namespace docx {

// Setters of a w:p's direct formatting. A value that already shows changes nothing; one that shows without direct
// formatting takes the direct formatting away. Each returns whether it changed the XML, and then touches the part.

/// Setting another alignment and then the one that showed before gives back the very same XML: what a bare removal
/// could not know stays in the w:pPr meanwhile as a mark, <?kelvarin jc value?>.
/// @param alignment a WdParagraphAlignment @throws std::out_of_range for another number
bool SetAlignment(const Formatting& formatting, XmlNode p, int alignment);
/// Forgets what a w:pPr's alignment was before.
void DropAlignmentMark(XmlNode pPr);
/// In points, kept to a twentieth. Spacing in lines and automatic spacing end on that side, for Word would let them
/// win.
bool SetSpaceBefore(const Formatting& formatting, XmlNode p, double points);
bool SetSpaceAfter(const Formatting& formatting, XmlNode p, double points);

}  // namespace docx
