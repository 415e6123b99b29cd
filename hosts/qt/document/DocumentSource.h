#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace qt {

/// A place in a document, between two characters of a story.
struct Place {
  int story{word::wdMainTextStory};
  word::Position position{0};

  bool operator==(const Place&) const = default;
};

/// How characters show.
struct TextLook {
  double size{11};  ///< in points
  bool bold{false};
  bool raised{false};                  ///< a note's number
  int color{word::wdColorAutomatic};   ///< a WdColor
  int highlight{word::wdNoHighlight};  ///< a WdColorIndex

  bool operator==(const TextLook&) const = default;
};

/// Characters that show in one way; the first stands at the position, each next one unit behind.
struct PageRun {
  word::Position position{0};
  std::u16string text;
  TextLook look;
};

enum class Align { kLeft, kCenter, kRight, kBoth };

/// A paragraph, or the part of it that stands on a page. Lengths in points.
struct PageParagraph {
  int story{word::wdMainTextStory};
  word::Position start{0};  ///< before the first character, also one that does not show
  word::Position end{0};    ///< behind the last character, before the mark
  std::vector<PageRun> runs;
  std::u16string label;  ///< its number or bullet; empty for none, and on the pages after its first
  Align align{Align::kLeft};
  double left{0};
  double right{0};
  double firstLine{0};  ///< negative for a hanging indent
  double before{0};
  double after{0};
  double lineHeight{1};  ///< times the font's own
  bool rightTab{false};  ///< a tab goes to the right edge, as in an index
  int row{-1};           ///< cells of one number stand side by side; -1 outside of tables
  int cell{0};           ///< from 0
  int cells{1};          ///< of the row
};

struct PageText {
  std::vector<PageParagraph> body;
  std::vector<PageParagraph> notes;  ///< footnotes
};

/// In points.
struct Paper {
  double width{612};
  double height{792};
  double left{72};
  double top{72};
  double right{72};
  double bottom{72};
};

/// What a window shows of a document: its pages, as page numbers count them, and what stands on each. The window flows
/// the text of a page itself; a page whose text needs more room than its paper grows, so that the numbers stay those
/// of the index.
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
  /// What the numbers rest on, as a phrase: "an estimate".
  virtual std::string PagesFrom() const = 0;
  virtual int PageOf(const Place& place) const = 0;
  virtual PageText TextOf(int page) const = 0;
  virtual Paper PaperOf(int page) const = 0;

  struct Selection {
    Place start;
    word::Position end{0};
  };
  virtual Selection Selected() const = 0;
  virtual void Select(const Selection& selection) = 0;

  /// The next place where a text stands, from a place on, past the end to the other side. @return empty: nowhere
  virtual std::optional<Selection> Find(std::u16string_view text, const Place& from, bool forward, bool matchCase) = 0;
  /// Where a click leads: from a page number of the index to the term on that page, from a term there to its first
  /// occurrence. Empty: nowhere.
  virtual std::optional<Selection> LinkAt(const Place& place) const = 0;
  /// What is shown of a stretch, as text to copy.
  virtual std::u16string CopyText(const Selection& selection) const = 0;
};

}  // namespace qt
