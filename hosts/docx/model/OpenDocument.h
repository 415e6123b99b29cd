#pragma once

#include <memory>
#include <string>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/model/BookmarkIndex.h"
#include "hosts/docx/model/DocumentParts.h"
#include "hosts/docx/model/RevisionMarks.h"
#include "hosts/docx/pages/Paginator.h"

namespace docx {

/// One open document: its parts, its bookmarks, its window and its selection. The proxies of the object model hold it
/// weakly.
class OpenDocument {
 public:
  /// @param file outlives the document
  OpenDocument(std::unique_ptr<Package> package, DocumentSettings settings, DocumentFile& file);

  DocumentParts& Parts() { return parts_; }
  /// The bookmarks of all stories.
  BookmarkIndex& Bookmarks() { return bookmarks_; }
  RevisionMarks& Revisions() { return revisions_; }
  Anchor& Selection() { return *selection_; }
  /// An edge inside of a surrogate pair goes behind it: no cursor comes there.
  void Select(Story& story, Position start, Position end);

  const std::u16string& Name() const { return settings_.name; }
  const std::u16string& Path() const { return settings_.path; }
  void Save();
  void SaveAs(std::u16string_view fileName);

  /// Page numbers as the document stands; computed anew after a change.
  Paginator& Pages();
  /// Every change to the text passes here first. @throws HostError kMethodNotAvailable in a protected document
  void BeforeChange(std::string_view member);
  /// The same for bookmarks, which take no room. @throws HostError likewise
  void BeforeBookmark(std::string_view member) const;

  WindowState window;
  bool showGrammaticalErrors{true};
  bool showSpellingErrors{true};

 private:
  bool ReadProtection();

  DocumentSettings settings_;
  DocumentFile& file_;
  DocumentParts parts_;
  BookmarkIndex bookmarks_;
  RevisionMarks revisions_;
  std::unique_ptr<Anchor> selection_;
  std::shared_ptr<layout::LayoutMemory> layoutMemory_;
  std::unique_ptr<Paginator> pages_;
  bool protected_{false};
};

}  // namespace docx
