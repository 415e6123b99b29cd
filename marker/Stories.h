#pragma once

#include "platform/word/Types.h"

#include <vector>

namespace marker {

/// The stories that are marked: main text, footnotes and endnotes.
std::vector<word::RangePtr> MarkedStories(const word::DocumentPtr& document);

/// Every story, text boxes, headers and comments included: what was marked may have been moved there since.
std::vector<word::RangePtr> AllStories(const word::DocumentPtr& document);

}  // namespace marker
