#pragma once

#include <optional>
#include <vector>

#include "hosts/docx/find/FindSettings.h"
#include "hosts/docx/find/StorySource.h"
#include "hosts/docx/find/TextSource.h"

namespace docx {

/// Word's search, by the rules of docs/find.md. A stretch that is not empty is searched inside itself; an empty one,
/// and one that is itself a match, from there to the end of the text in the direction of the search. With
/// wdFindContinue the rest of the text follows, once round.
/// @pre 0 <= start <= end <= source.Length()
/// @return the match, or nothing
/// @throws word::HostError kBadPattern, kStringTooLong
std::optional<Match> Search(TextSource& source, const FindSettings& settings, Position start, Position end);

/// The same in a story.
std::optional<Match> Search(const Story& story, const SearchScope& scope, const FindSettings& settings, Position start,
                            Position end);

/// All matches inside a stretch, in order, none overlapping another: what a replacement of all works on. An empty
/// stretch stands for the text from there to the end in the direction of the search, and with wdFindContinue for all of
/// it; otherwise direction and wrap mean nothing here.
std::vector<Match> SearchAll(TextSource& source, const FindSettings& settings, Position start, Position end);
std::vector<Match> SearchAll(const Story& story, const SearchScope& scope, const FindSettings& settings, Position start,
                             Position end);

/// The parts of a match that the search saw: without the characters that it passed over, such as hidden text.
std::vector<GroupSpan> SeenParts(TextSource& source, const Match& match);
std::vector<GroupSpan> SeenParts(const Story& story, const SearchScope& scope, const Match& match);

}  // namespace docx
