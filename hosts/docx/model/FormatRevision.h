#pragma once

#include "hosts/docx/story/RevisionStamp.h"

namespace docx {

/// Before a run's formatting is changed: says in the run, as a tracked change, what it was. Where somebody said so
/// before that stands, since it tells of an older state; in an insertion of the same author there is nothing to say.
/// @param tracked nullptr: does nothing
void NoteFormatting(XmlPart& part, XmlNode run, const Tracking* tracked);
/// After the change: takes what this author said away again when the formatting is what it was.
void DropNoteOfEqualFormatting(XmlPart& part, XmlNode run, const Tracking& own);

}  // namespace docx
