#pragma once

#include "hosts/docx/story/Story.h"

namespace docx {

/// The properties of the section that a position of the main text is in.
XmlNode SectionAt(const Story& main, Position position);
/// How wide text runs in a section, in twips: in the narrowest of its columns.
/// @param section may be missing, which is a section of Word's defaults
int ColumnWidth(const XmlPart& part, XmlNode section);

/// Makes a continuous section with columns of its own out of two neighbouring stretches' ends: the section up to the
/// first mark keeps what the section was; the one up to the second mark gets the columns; the rest goes on as before.
/// @param firstMark, secondMark paragraph marks, which become section marks
/// @param tracked what the rest was is noted as a tracked change, since the section marks go when they are refused;
///     nullptr: it is not
void EncloseInSection(Story& main, Position firstMark, Position secondMark, int columns, const Tracking* tracked);
/// Undoes EncloseInSection before the text between is erased. @param firstMark the mark given then
void OpenSection(Story& main, Position firstMark, Position end);

}  // namespace docx
