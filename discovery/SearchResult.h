#pragma once

/// What a search for terms came to.
enum class SearchResult : int { kFailed = 0, kGoOn = 1, kStopQuietly = 2 };
