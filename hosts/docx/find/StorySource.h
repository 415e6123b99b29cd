#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <functional>
#include <vector>

#include "hosts/docx/fields/Fields.h"
#include "hosts/docx/find/TextSource.h"
#include "hosts/docx/story/Story.h"

namespace docx {

/// What of a story a search sees.
struct SearchScope {
  bool showHidden{false};      ///< the window shows hidden text, entries (XE) with their codes included
  bool showFieldCodes{false};  ///< the window shows codes in the place of results
  /// Whether a run's text is hidden by its formatting; empty when none is.
  std::function<bool(XmlNode run)> hidden{};
};

/// A story as a search sees it. The story must not change while it lives.
class StorySource : public TextSource {
 public:
  StorySource(const Story& story, SearchScope scope);

  Position Length() const override { return story_.Length(); }
  Stretch StretchAt(Position position) override;
  MarkKind MarkAt(Position position) override;

 private:
  /// A field that the current atom is inside; its marks are inside it too.
  struct Open {
    FieldSpan span;
    bool showsCode;
  };

  void Seek(Position position);
  void Advance();
  void EnterAtom();
  bool ShowsCode(const FieldSpan& span) const;
  bool ShownByFields(Position position) const;
  bool InHiddenRun(const Atom& atom);
  /// Adds what follows as long as it is searched whatever the window shows.
  void Extend(Stretch& stretch);

  const Story& story_;
  const AtomSequence& atoms_;
  const SearchScope scope_;
  FieldFinder fields_;
  AtomSequence::Place place_;
  AtomSequence::TextBlock block_;
  std::vector<Open> open_;  // outermost first
  Position atomEnd_{-1};
  XmlNode run_;
  bool runHidden_{false};
};

}  // namespace docx
