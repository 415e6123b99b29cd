#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/package/Package.h"
#include "hosts/docx/story/Story.h"
#include "hosts/docx/styles/Formatting.h"
#include "hosts/docx/styles/RunProperties.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// The parts of an open document and the stories in them. Parts are parsed when they are first asked for; only
/// parts that were changed are written anew.
class DocumentParts {
 public:
  /// @throws PackageError when the main document cannot be read
  explicit DocumentParts(std::unique_ptr<Package> package);
  DocumentParts(const DocumentParts&) = delete;
  DocumentParts& operator=(const DocumentParts&) = delete;
  ~DocumentParts();

  Story& Main() { return *main_; }
  /// The stories of a WdStoryType in order; one for the main text, at most one for footnotes, endnotes and comments,
  /// any number for text boxes, headers and footers. Empty when there is none.
  /// @throws PackageError when their part cannot be read
  const std::vector<std::unique_ptr<Story>>& Stories(int type);
  /// The story behind another among those of its type; nullptr behind the last.
  Story* StoryBehind(const Story& story);
  /// The types of which a document can have stories, in ascending order.
  static constexpr int kLastStoryType = 11;

  /// The formatting of a part's text as it shows.
  const Formatting& Formats(XmlPart& part);
  /// What highlights it.
  Highlighter& Highlights(XmlPart& part);
  XmlPart& MainPart() { return *mainPart_; }
  /// The settings part; nullptr when there is none.
  XmlPart* Settings();
  /// A part that the main document refers to; nullptr when there is none. @param typeEnding of the relationship's type,
  /// such as "/numbering" @throws PackageError when the part cannot be read
  XmlPart* Related(const char* typeEnding) { return LoadRelated(typeEnding).get(); }
  /// The same by the relationship's id.
  XmlPart* ByRelationship(std::string_view id);
  /// The bytes of a part that is no text of the document, such as a picture; empty for one that cannot be read.
  std::string Media(const std::string& name) const;
  /// The name of the part that a part's relationship leads to; empty for none, and outside of the package.
  std::string TargetOf(const XmlPart& part, std::string_view id) const;
  /// Makes sure that a paragraph style of indexes exists; see IndexStyles.h. @return its id
  std::string EnsureIndexStyle(int level);
  /// Takes away the styles that EnsureIndexStyle added, now or in an earlier run, unless a paragraph still has one.
  void RemoveAddedIndexStyles();

  /// Whether anything would be written differently from what was opened.
  bool Changed() const;
  /// Takes away what only changes that were not saved yet needed.
  void Settle();
  /// Brings changed parts into the package and returns it.
  const Package& Updated();

 private:
  std::shared_ptr<XmlPart> LoadRelated(const char* typeEnding);
  std::shared_ptr<XmlPart> Load(const std::string& name);
  std::string RelatedName(const char* typeEnding) const;
  bool UsesIndexStyle() const;
  void LoadNotes(int type);
  void LoadComments();
  void LoadTextBoxes();
  void LoadHeadersAndFooters();
  void AddStory(std::shared_ptr<XmlPart> part, int type, const std::vector<XmlNode>& containers);

  void CollectTextBoxTwins(XmlNode alternate);
  void SettleTextBoxTwins();

  /// A text box in the branch of an alternate content that is shown, and the same box in the other branch.
  struct TextBoxTwins {
    XmlNode shown;
    XmlNode other;
  };

  std::unique_ptr<Package> package_;
  std::map<std::string, std::shared_ptr<XmlPart>> parts_;
  std::shared_ptr<XmlPart> mainPart_;
  std::shared_ptr<XmlPart> stylesPart_;
  std::optional<std::shared_ptr<XmlPart>> settingsPart_;  // empty until it was asked for
  std::unique_ptr<Styles> styles_;
  std::map<const XmlPart*, std::unique_ptr<Formatting>> formats_;
  std::map<const XmlPart*, Highlighter> highlights_;
  Story* main_{nullptr};
  std::map<int, std::vector<std::unique_ptr<Story>>> stories_;
  std::size_t behind_{0};  // where the next look-up of StoryBehind most likely finds its story
  std::vector<TextBoxTwins> twins_;
  std::uint32_t twinsEqualSince_{0};  // a period of XmlNode::ChangedSince
};

}  // namespace docx
