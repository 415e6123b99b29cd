#include "hosts/docx/model/DocumentParts.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "hosts/docx/story/StoryBuilder.h"
#include "hosts/docx/styles/IndexStyles.h"
#include "hosts/docx/xml/XmlWalk.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

// Relationship types differ between transitional and strict documents in their beginning only.
constexpr const char* kStyles = "/styles";
constexpr const char* kSettings = "/settings";
constexpr const char* kRelationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr const char* kStrictRelationships = "http://purl.oclc.org/ooxml/officeDocument/relationships";
constexpr const char* kStylesContentType = "application/vnd.openxmlformats-officedocument.wordprocessingml.styles+xml";

/// Stories that a section's header or footer reference of a type stands for.
int HeaderStoryType(bool header, std::string_view type) {
  if (type == "even") return header ? 6 : 8;
  if (type == "first") return header ? 10 : 11;
  return header ? 7 : 9;
}

bool EndsWithAParagraph(const Story& story) {
  if (story.Length() == 0) return false;
  const AtomSequence& atoms = story.Atoms();
  return atoms.Get(atoms.At(story.Length() - 1)).kind != AtomKind::kRowMark;
}

}  // namespace

DocumentParts::DocumentParts(std::unique_ptr<Package> package) : package_(std::move(package)) {
  mainPart_ = Load(package_->MainDocument());
  XmlNode body = mainPart_->Child(mainPart_->Root(), Tag::kBody);
  if (!body) throw PackageError("is not a Word document: its main part has no body");
  stylesPart_ = LoadRelated(kStyles);
  styles_ = std::make_unique<Styles>(stylesPart_.get());
  AddStory(mainPart_, word::wdMainTextStory, {body});
  main_ = stories_[word::wdMainTextStory].front().get();
  if (EndsWithAParagraph(*main_)) return;
  if (main_->Length() == 0 && mainPart_->Child(body, "altChunk")) {
    throw PackageError("keeps its text in another format, which Word takes in when it opens and saves the document");
  }
  // Where a body holds nothing, or ends with a table, Word shows an empty paragraph. It is not written unless the part
  // is.
  const XmlNode section = mainPart_->Child(body, Tag::kSectPr);
  if (section) {
    body.InsertChildBefore(mainPart_->Name("p"), section);
  } else {
    body.AppendChild(mainPart_->Name("p"));
  }
  stories_.erase(word::wdMainTextStory);
  AddStory(mainPart_, word::wdMainTextStory, {body});
  main_ = stories_[word::wdMainTextStory].front().get();
}

DocumentParts::~DocumentParts() = default;

std::shared_ptr<XmlPart> DocumentParts::Load(const std::string& name) {
  std::shared_ptr<XmlPart>& part = parts_[name];
  if (!part) part = std::make_shared<XmlPart>(name, package_->Read(name));
  return part;
}

std::string DocumentParts::RelatedName(const char* typeEnding) const {
  for (const Relationship& relationship : package_->Relationships(package_->MainDocument())) {
    if (!relationship.external && relationship.type.ends_with(typeEnding) && package_->Has(relationship.target)) {
      return relationship.target;
    }
  }
  return {};
}

std::shared_ptr<XmlPart> DocumentParts::LoadRelated(const char* typeEnding) {
  const std::string name = RelatedName(typeEnding);
  return name.empty() ? nullptr : Load(name);
}

void DocumentParts::AddStory(std::shared_ptr<XmlPart> part, int type, const std::vector<XmlNode>& containers) {
  stories_[type].push_back(std::make_unique<Story>(std::move(part), type, containers));
}

const std::vector<std::unique_ptr<Story>>& DocumentParts::Stories(int type) {
  if (!stories_.contains(type)) {
    stories_[type];
    if (type == word::wdFootnotesStory || type == word::wdEndnotesStory) LoadNotes(type);
    if (type == word::wdCommentsStory) LoadComments();
    if (type == word::wdTextFrameStory) LoadTextBoxes();
    if (type > word::wdTextFrameStory && type <= kLastStoryType) LoadHeadersAndFooters();
  }
  return stories_[type];
}

Story* DocumentParts::StoryBehind(const Story& story) {
  const std::vector<std::unique_ptr<Story>>& stories = Stories(story.Type());
  if (behind_ >= stories.size() || stories[behind_].get() != &story) {
    const auto found =
        std::find_if(stories.begin(), stories.end(), [&](const auto& one) { return one.get() == &story; });
    behind_ = static_cast<std::size_t>(found - stories.begin());
  }
  return ++behind_ < stories.size() ? stories[behind_].get() : nullptr;
}

void DocumentParts::LoadNotes(int type) {
  const bool foot = type == word::wdFootnotesStory;
  const Tag referenceTag = foot ? Tag::kFootnoteReference : Tag::kEndnoteReference;
  if (!mainPart_->Has(referenceTag)) return;
  // A story holds the notes in the order of their references; a note that nothing refers to is in none.
  std::vector<std::string_view> order;
  const AtomSequence& atoms = main_->Atoms();
  for (AtomSequence::Place place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    if (atom.kind == AtomKind::kCharacter && mainPart_->Is(atom.Node(), referenceTag)) {
      order.emplace_back(mainPart_->Attribute(atom.Node(), "id").Value());
    }
  }
  if (order.empty()) return;
  const std::shared_ptr<XmlPart> part = LoadRelated(foot ? "/footnotes" : "/endnotes");
  if (!part) return;
  std::unordered_map<std::string_view, XmlNode> notes;
  for (const XmlNode note : part->Root().Children()) {
    if (part->Is(note, foot ? Tag::kFootnote : Tag::kEndnote)) notes[part->Attribute(note, "id").Value()] = note;
  }
  std::vector<XmlNode> containers;
  for (const std::string_view id : order) {
    const auto note = notes.find(id);
    if (note == notes.end()) continue;
    containers.push_back(note->second);
    notes.erase(note);
  }
  if (!containers.empty()) AddStory(part, type, containers);
}

void DocumentParts::LoadComments() {
  const std::shared_ptr<XmlPart> part = LoadRelated("/comments");
  if (!part) return;
  std::vector<XmlNode> containers;
  for (const XmlNode comment : part->Root().Children()) {
    if (part->Is(comment, Tag::kComment)) containers.push_back(comment);
  }
  if (!containers.empty()) AddStory(part, word::wdCommentsStory, containers);
}

void DocumentParts::LoadTextBoxes() {
  if (!mainPart_->Has(Tag::kTxbxContent)) return;
  std::vector<XmlNode> boxes;
  ForEachElement(mainPart_->Root(), [&](XmlNode node) {
    const Tag tag = mainPart_->TagOf(node);
    if (tag == Tag::kTxbxContent) boxes.push_back(node);
    if (tag == Tag::kAlternateContent) CollectTextBoxTwins(node);
    // The same box stands in every branch of an alternate content; the branch that is shown counts.
    return tag != Tag::kFallback || !mainPart_->Child(node.Parent(), Tag::kChoice);
  });
  for (const XmlNode box : boxes) AddStory(mainPart_, word::wdTextFrameStory, {box});
  if (!twins_.empty()) twinsEqualSince_ = mainPart_->BeginPeriod();
}

void DocumentParts::CollectTextBoxTwins(XmlNode alternate) {
  const auto boxesIn = [this](XmlNode branch) {
    std::vector<XmlNode> boxes;
    ForEachElement(branch, [&](XmlNode node) {
      const bool isBox = mainPart_->Is(node, Tag::kTxbxContent);
      if (isBox) boxes.push_back(node);
      return !isBox;
    });
    return boxes;
  };
  const std::vector<XmlNode> shown = boxesIn(mainPart_->Child(alternate, Tag::kChoice));
  const std::vector<XmlNode> other = boxesIn(mainPart_->Child(alternate, Tag::kFallback));
  if (shown.size() != other.size()) return;
  for (std::size_t i = 0; i < shown.size(); ++i) twins_.push_back({shown[i], other[i]});
}

void DocumentParts::SettleTextBoxTwins() {
  bool isAnyChanged = false;
  // A box in a box comes behind it, and is copied with it.
  for (auto twin = twins_.rbegin(); twin != twins_.rend(); ++twin) {
    if (!twin->shown.ChangedSince(twinsEqualSince_)) continue;
    isAnyChanged = true;
    while (const XmlNode child = twin->other.FirstChild()) twin->other.RemoveChild(child);
    for (const XmlNode child : twin->shown.Children()) twin->other.AppendCopy(child);
  }
  if (isAnyChanged) twinsEqualSince_ = mainPart_->BeginPeriod();
}

void DocumentParts::LoadHeadersAndFooters() {
  for (int type = word::wdTextFrameStory + 1; type <= kLastStoryType; ++type) stories_[type];
  if (!mainPart_->Has("headerReference") && !mainPart_->Has("footerReference")) return;
  std::map<std::string, std::string, std::less<>> targets;
  for (const Relationship& relationship : package_->Relationships(package_->MainDocument())) {
    if (!relationship.external && package_->Has(relationship.target)) {
      targets[relationship.id] = relationship.target;
    }
  }
  // One that several sections refer to is one story: two would not know of each other's changes.
  std::set<const XmlPart*> known;
  ForEachElement(mainPart_->Root(), [&](XmlNode node) {
    const Tag tag = mainPart_->TagOf(node);
    if (tag != Tag::kSectPr) return tag != Tag::kR && tag != Tag::kRPr && tag != Tag::kTbl;
    for (const char* local : {"headerReference", "footerReference"}) {
      const bool header = local[0] == 'h';
      for (const XmlNode reference : node.Children(mainPart_->Name(local))) {
        // r:id: the one attribute of the reference that is not WordprocessingML's.
        for (const XmlAttribute& attribute : reference.Attributes()) {
          const auto target = targets.find(attribute.Value());
          if (target == targets.end()) continue;
          const std::shared_ptr<XmlPart> part = Load(target->second);
          if (!known.insert(part.get()).second) continue;
          AddStory(part, HeaderStoryType(header, mainPart_->Attribute(reference, "type").Value()), {part->Root()});
        }
      }
    }
    return false;
  });
}

const Formatting& DocumentParts::Formats(XmlPart& part) {
  std::unique_ptr<Formatting>& formats = formats_[&part];
  if (!formats) formats = std::make_unique<Formatting>(part, *styles_);
  return *formats;
}

Highlighter& DocumentParts::Highlights(XmlPart& part) {
  return highlights_.try_emplace(&part, Formats(part)).first->second;
}

XmlPart* DocumentParts::Settings() {
  // Asked for at every change, and looked up through all relationships.
  if (!settingsPart_) settingsPart_ = LoadRelated(kSettings);
  return settingsPart_->get();
}

XmlPart* DocumentParts::ByRelationship(std::string_view id) {
  for (const Relationship& relationship : package_->Relationships(package_->MainDocument())) {
    if (relationship.id != id) continue;
    if (relationship.external || !package_->Has(relationship.target)) return nullptr;
    return Load(relationship.target).get();
  }
  return nullptr;
}

std::string DocumentParts::Media(const std::string& name) const {
  try {
    return package_->Has(name) ? package_->Read(name) : std::string();
  } catch (const PackageError&) {
    return {};
  }
}

std::string DocumentParts::TargetOf(const XmlPart& part, std::string_view id) const {
  for (const Relationship& relationship : package_->Relationships(part.PartName())) {
    if (relationship.id == id && !relationship.external) return relationship.target;
  }
  return {};
}

std::string DocumentParts::EnsureIndexStyle(int level) {
  // Asked for once for each paragraph of an index.
  const Style* const existing = styles_->ByName(IndexStyleName(level));
  if (existing != nullptr && existing->type == StyleType::kParagraph) return existing->id;
  if (!stylesPart_) {
    const std::string folder = mainPart_->PartName().substr(0, mainPart_->PartName().find_last_of('/') + 1);
    const std::string name = folder + "styles.xml";
    package_->Add(name, NewStylesPart(mainPart_->Strict()), kStylesContentType);
    const std::string type = std::string(mainPart_->Strict() ? kStrictRelationships : kRelationships) + kStyles;
    package_->AddRelationship(mainPart_->PartName(), type, name);
    stylesPart_ = Load(name);
  }
  std::string id = docx::EnsureIndexStyle(*stylesPart_, level);
  styles_->Read(stylesPart_.get());
  return id;
}

bool DocumentParts::UsesIndexStyle() const {
  std::set<std::string, std::less<>> ids;
  for (int level = kIndexHeadingLevel; level <= 9; ++level) {
    if (const Style* style = styles_->ByName(IndexStyleName(level))) ids.insert(style->id);
  }
  bool uses = false;
  ForEachElement(mainPart_->Root(), [&](XmlNode node) {
    if (mainPart_->Is(node, Tag::kPPr)) {
      uses = uses || ids.contains(mainPart_->Attribute(mainPart_->Child(node, "pStyle"), "val").Value());
    }
    const Tag tag = mainPart_->TagOf(node);
    return !uses && tag != Tag::kR && tag != Tag::kPPr;
  });
  return uses;
}

void DocumentParts::RemoveAddedIndexStyles() {
  if (!stylesPart_ || UsesIndexStyle()) return;
  const RemovedIndexStyles removed = docx::RemoveAddedIndexStyles(*stylesPart_);
  if (!removed.wholePart) {
    if (removed.changed) styles_->Read(stylesPart_.get());
    return;
  }
  const std::string name = stylesPart_->PartName();
  // A copy, which lasts when one of them goes.
  const std::vector<Relationship> relationships = package_->Relationships(mainPart_->PartName());
  for (const Relationship& relationship : relationships) {
    if (relationship.target == name) package_->RemoveRelationship(mainPart_->PartName(), relationship.id);
  }
  package_->Remove(name);
  parts_.erase(name);
  stylesPart_ = nullptr;
  styles_->Read(nullptr);
}

bool DocumentParts::Changed() const {
  return package_->Changed() ||
         std::any_of(parts_.begin(), parts_.end(), [](const auto& entry) { return entry.second->Changed(); });
}

void DocumentParts::Settle() {
  for (const auto& [type, stories] : stories_) {
    for (const auto& story : stories) story->DropApartMarks();
  }
  SettleTextBoxTwins();
}

const Package& DocumentParts::Updated() {
  Settle();
  for (const auto& [name, part] : parts_) {
    if (part->Changed()) package_->Replace(name, part->Serialize());
  }
  return *package_;
}

}  // namespace docx
