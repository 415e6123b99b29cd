#pragma once

#include <optional>
#include <string>

#include "platform/page/Display.h"
#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace qt {

/// A place in a document, between two characters of a story.
struct Place {
  int story{word::wdMainTextStory};
  word::Position position{0};

  bool operator==(const Place&) const = default;
};

/// In points.
struct Paper {
  double width{612};
  double height{792};
};

/// What a window shows of a document: its pages, as page numbers count them, and what stands on each.
class DocumentSource {
 public:
  DocumentSource() = default;
  virtual ~DocumentSource() = default;
  DocumentSource(const DocumentSource&) = delete;
  DocumentSource& operator=(const DocumentSource&) = delete;

  /// At least 1; pages count from 1.
  virtual int PageCount() const = 0;
  /// What is printed as its number.
  virtual std::u16string LabelOf(int page) const = 0;
  /// What the numbers rest on, as a phrase: "breaks in the file".
  virtual std::string PagesFrom() const = 0;
  /// The page that shows a place.
  virtual int PageOf(const Place& place) const = 0;
  virtual Paper PaperOf(int page) const = 0;
  /// What a page shows; made anew at each call.
  virtual page::Display DrawingOf(int page) const = 0;
  /// The bytes of a picture that a page shows, in whatever format it has; empty when there is none.
  virtual std::string PictureOf(const std::string& name) const = 0;

  struct Selection {
    Place start;
    word::Position end{0};
  };
  virtual Selection Selected() const = 0;
  virtual void Select(const Selection& selection) = 0;

  /// The next place where a text stands, from a place on, in notes too, past the end to the other side. @return empty:
  /// nowhere
  virtual std::optional<Selection> Find(std::u16string_view text, const Place& from, bool forward, bool matchCase) = 0;
  /// Where a click leads: from a page number of the index to the term on that page, from a term there to its first
  /// occurrence. Empty: nowhere.
  virtual std::optional<Selection> LinkAt(const Place& place) const = 0;
  /// What is shown of a stretch, as text to copy.
  virtual std::u16string CopyText(const Selection& selection) const = 0;
};

}  // namespace qt
