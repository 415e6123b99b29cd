#pragma once

#include <functional>
#include <string>
#include <vector>

#include "hosts/json/Json.h"
#include "platform/word/Types.h"

/// The page, counted from 1 through the whole document, of a position of a story.
using PageOf = std::function<int(int story, word::Position position)>;

/// The document as the object model shows it: stories, bookmarks (the hidden ones too), fields, entries, highlights and
/// our index. The members "pages" and "pagesFrom" are left to the caller.
json::Value Inspect(const word::DocumentPtr& document, const PageOf& pageOf);
