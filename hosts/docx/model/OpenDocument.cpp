#include "hosts/docx/model/OpenDocument.h"

#include <string_view>
#include <utility>

#include "platform/word/Constants.h"
#include "platform/word/HostError.h"

namespace docx {

OpenDocument::OpenDocument(std::unique_ptr<Package> package, DocumentSettings settings, DocumentFile& file)
    : settings_(std::move(settings)), file_(file), parts_(std::move(package)), revisions_(parts_) {
  const auto read = [this](int type) {
    for (const auto& story : parts_.Stories(type)) bookmarks_.Read(*story);
  };
  // Of bookmarks of one name the last counts: what is outside of the text does not outdo what is in it.
  for (int type = word::wdCommentsStory; type <= DocumentParts::kLastStoryType; ++type) read(type);
  for (const int type : {word::wdMainTextStory, word::wdFootnotesStory, word::wdEndnotesStory}) read(type);
  Select(parts_.Main(), 0, 0);
  protected_ = !settings_.readOnly && ReadProtection();
}

void OpenDocument::Select(Story& story, Position start, Position end) {
  selection_ = std::make_unique<Anchor>(story, story.BetweenCharacters(start), story.BetweenCharacters(end));
}

void OpenDocument::Save() {
  // Whether or not somebody reads what is saved, the document is the same afterwards.
  parts_.Settle();
  file_.Save([this]() -> const Package& { return parts_.Updated(); });
}

void OpenDocument::SaveAs(std::u16string_view fileName) {
  file_.SaveAs(fileName, parts_.Updated());
  const std::size_t separator = fileName.find_last_of(u"\\/");
  const bool bare = separator == std::u16string_view::npos;
  settings_.path = bare ? std::u16string() : std::u16string(fileName.substr(0, separator));
  settings_.name = fileName.substr(bare ? 0 : separator + 1);
}

bool OpenDocument::ReadProtection() {
  XmlPart* settings = parts_.Settings();
  if (settings == nullptr) return false;
  const XmlNode protection = settings->Child(settings->Root(), "documentProtection");
  const std::string_view enforced = settings->Attribute(protection, "enforcement").Value();
  const std::string_view edit = settings->Attribute(protection, "edit").Value();
  // Protection for tracked changes still allows changes.
  return (enforced == "1" || enforced == "true" || enforced == "on") && !edit.empty() && edit != "none" &&
         edit != "trackedChanges";
}

void OpenDocument::BeforeChange(std::string_view member) {
  BeforeBookmark(member);
  pages_.reset();
}

void OpenDocument::BeforeBookmark(std::string_view member) const {
  if (protected_) {
    throw word::HostError(word::kMethodNotAvailable,
                          u"This method or property is not available because the document is a protected document.",
                          member);
  }
}

Paginator& OpenDocument::Pages() {
  if (!pages_) pages_ = MakePaginator(parts_, settings_.pages, settings_.pdfMaker, settings_.drawn, layoutMemory_);
  return *pages_;
}

}  // namespace docx
