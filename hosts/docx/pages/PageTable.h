#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "hosts/docx/pages/PageLabels.h"
#include "hosts/docx/pages/Paginator.h"

namespace docx {

/// From a position on, up to the next such place, a story stands on a page. Pages need not ascend: the cells of a row
/// that a break divides each begin on the row's first page.
struct PageStart {
  Position position{0};
  int page{1};
};

/// @return 1 before the first of them
int PageAt(const std::vector<PageStart>& starts, Position position);

/// One footnote or endnote in its story.
struct Note {
  XmlNode element;
  Position start{0};
};

/// The notes of a story, in order.
std::vector<Note> NotesOf(const Story& story);
/// The w:id of a note or of a reference to it.
std::string NoteId(const XmlPart& part, XmlNode noteOrReference);

/// A paginator that knows all pages from the beginning on.
class PageTable : public Paginator {
 public:
  int PageCount() const override { return count_; }
  int PageOf(const Story& story, Position position) const override;
  std::u16string LabelOf(int page) const override;

 protected:
  /// By the notes' ids.
  using NotePages = std::unordered_map<std::string, int>;

  /// Each of a story's notes stands as a whole on the page given for it.
  static std::vector<PageStart> PlaceNotes(const Story& story, const NotePages& pages);

  int count_{1};
  std::vector<PageStart> main_;
  std::vector<PageStart> footnotes_;
  std::vector<PageStart> endnotes_;
  std::vector<PageNumbering> numberings_;
};

}  // namespace docx
