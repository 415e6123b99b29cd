#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/docx/find/FindSettings.h"
#include "hosts/docx/find/Pattern.h"
#include "hosts/docx/find/StorySource.h"
#include "hosts/docx/find/TextSource.h"
#include "hosts/docx/find/VisibleText.h"

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

/// A forward search that goes on from match to match. The compiled pattern and the text that was read are kept, so that
/// all matches of a story together cost its length once.
class KeptSearch {
 public:
  /// @param story outlives the search @param start where the story's text is read from
  /// @throws word::HostError kBadPattern, kStringTooLong
  KeptSearch(const Story& story, const SearchScope& scope, FindSettings settings, Position start);

  /// Whether it is good for such a search: the same as its own, not before its start, in a story that did not change
  /// since.
  bool Serves(const SearchScope& scope, const FindSettings& settings, Position from) const;
  /// What Search() finds forwards with wdFindStop in the stretch. @pre Serves(), and a text is looked for
  std::optional<Match> Find(Position start, Position end);

 private:
  std::optional<Match> FirstFrom(Position from);

  const AtomSequence& atoms_;
  const std::uint64_t version_;
  const SearchScope scope_;
  const FindSettings settings_;
  const Position start_;
  StorySource source_;
  VisibleText text_;
  std::unique_ptr<Pattern> pattern_;
  /// The answer that was given last, and for which position; -1: none.
  std::optional<Match> last_;
  Position lastFrom_{-1};
};

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
