#pragma once

#include <string>
#include <string_view>

#include "platform/word/Types.h"

/// The two lists below an index: of terms that are not used or used only once, and of terms that are not found. Each is
/// an empty paragraph, a bold heading, the terms one a paragraph and an empty paragraph, covered by its bookmark.

/// Terms separated by CR LF, in ascending order of their code units.
std::u16string SortTermList(std::u16string_view terms);

/// Writes a list of sorted terms; with none, its heading alone. The paragraph that comes to stand behind the list is
/// aligned as it was.
/// @param terms separated by CR LF
/// @throws word::HostError

/// Behind the index, or at the end of the window's selection when there is none.
void WriteNotUsedList(const word::DocumentPtr& document, std::u16string_view terms);
/// Behind the not-used list, or at the end of the selection when there is none. The list becomes the selection.
void WriteNotFoundList(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                       std::u16string_view terms);
