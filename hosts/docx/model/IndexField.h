#pragma once

#include "hosts/docx/fields/Fields.h"
#include "hosts/docx/model/OpenDocument.h"

namespace docx {

/// The result of an INDEX field, in the document's XML as Word lays it out: one paragraph an entry, and, where the code
/// asks for columns, a continuous section of its own that keeps header, footer and page set-up of the section around
/// it.

/// Replaces the result by one computed from the document as it is. @pre the field stands in the main text
void UpdateIndexField(OpenDocument& document, const FieldSpan& field);
/// Removes the field, its sections and the styles that were added for it.
void DeleteIndexField(OpenDocument& document, const FieldSpan& field);

}  // namespace docx
