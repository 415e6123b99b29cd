#pragma once

#include <vector>

#include "platform/word/Types.h"

/// The stories whose text is checked and corrected: main text, footnotes and endnotes, each with the stories linked
/// to it, as far as they hold more than their last paragraph mark.
std::vector<word::RangePtr> SearchedStories(const word::DocumentPtr& document);
