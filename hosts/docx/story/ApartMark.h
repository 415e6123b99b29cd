#pragma once

#include "hosts/docx/xml/XmlNode.h"

namespace docx {

// The instruction <?kelvarin apart?> between two runs: they were equal neighbours before something came between them or
// one was changed. Runs that become neighbours again are joined only where it does not stand, so that a file gets back
// the runs it had.

bool IsApartMark(XmlNode node);
/// Puts a mark behind a run. @return the mark
XmlNode PutApartMark(XmlNode run);
/// Puts one before a text that stood right behind another in one run, which has been divided between them.
void PutApartMarkBefore(XmlNode text);

}  // namespace docx
