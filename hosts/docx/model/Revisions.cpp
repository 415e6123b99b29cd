#include <cstring>
#include <utility>
#include <vector>

#include "hosts/docx/model/RangeProxy.h"

namespace docx {

namespace {

struct Stretch {
  int type{0};
  Position start{0};
  Position end{0};
};

class RevisionProxy : public word::Revision {
 public:
  RevisionProxy(int type, word::RangePtr range) : type_(type), range_(std::move(range)) {}
  int Type() const override { return type_; }
  word::RangePtr Range() const override { return range_; }

 private:
  int type_;
  word::RangePtr range_;
};

/// The revision element around a run's content, or none.
XmlNode RevisionAround(const XmlPart& part, const Atom& atom, int& type) {
  for (XmlNode node = atom.Node(); node && !part.Is(node, Tag::kBody); node = node.Parent()) {
    switch (part.TagOf(node)) {
      case Tag::kIns:
        type = word::wdRevisionInsert;
        return node;
      case Tag::kDel:
        type = word::wdRevisionDelete;
        return node;
      case Tag::kMoveFrom:
        type = word::wdRevisionMovedFrom;
        return node;
      case Tag::kMoveTo:
        type = word::wdRevisionMovedTo;
        return node;
      default:
        break;
    }
  }
  if (!atom.deleted) return {};
  type = word::wdRevisionDelete;
  return atom.Node();
}

class RevisionsProxy : public word::Revisions {
 public:
  explicit RevisionsProxy(RangeProxyPtr range) : range_(std::move(range)) {
    const Story& story = range_->StoryOf("Range.Revisions");
    if (!story.HasRevisions()) return;
    const AtomSequence& atoms = story.Atoms();
    XmlNode last;
    for (AtomSequence::Place place = atoms.At(range_->Start()); !atoms.IsEnd(place) && place.start < range_->End();
         place = atoms.Next(place)) {
      const Atom& atom = atoms.Get(place);
      if (atom.length == 0) continue;
      int type = 0;
      const XmlNode revision = RevisionAround(story.Part(), atom, type);
      const Position end = place.start + static_cast<Position>(atom.length);
      if (revision && revision == last) {
        stretches_.back().end = end;
      } else if (revision) {
        stretches_.push_back({type, place.start, end});
      }
      last = revision;
    }
  }

  int Count() const override { return static_cast<int>(stretches_.size()); }
  word::RevisionPtr Item(int index) const override {
    if (index < 1 || index > Count()) ThrowNoMember("Revisions.Item");
    const Stretch& stretch = stretches_[static_cast<std::size_t>(index) - 1];
    return std::make_shared<RevisionProxy>(
        stretch.type, RangeProxy::Make(range_->Document("Revisions.Item"), range_->StoryOf("Revisions.Item"),
                                       stretch.start, stretch.end));
  }

 private:
  RangeProxyPtr range_;
  std::vector<Stretch> stretches_;
};

}  // namespace

word::RevisionsPtr MakeRevisions(RangeProxyPtr range) { return std::make_shared<RevisionsProxy>(std::move(range)); }

}  // namespace docx
