#pragma once

/// Word's enumerations, under Word's names and numbers, as far as the system uses them.
namespace word {

enum WdStoryType : int {
  wdMainTextStory = 1,
  wdFootnotesStory = 2,
  wdEndnotesStory = 3,
  wdCommentsStory = 4,
  wdTextFrameStory = 5,
};

enum WdCollapseDirection : int { wdCollapseEnd = 0, wdCollapseStart = 1 };

enum WdUnits : int { wdParagraph = 4, wdStory = 6 };

enum WdGoToItem : int { wdGoToBookmark = -1, wdGoToPage = 1 };
enum WdGoToDirection : int { wdGoToFirst = 1 };

enum WdInformation : int { wdActiveEndPageNumber = 3, wdNumberOfPagesInDocument = 4 };

enum WdFindWrap : int { wdFindStop = 0, wdFindContinue = 1 };
enum WdReplace : int { wdReplaceNone = 0, wdReplaceOne = 1, wdReplaceAll = 2 };

enum WdViewType : int { wdNormalView = 1, wdOutlineView = 2, wdPrintView = 3, wdWebView = 6 };
enum WdSpecialPane : int { wdPaneNone = 0 };

enum WdFieldType : int { wdFieldEmpty = -1, wdFieldIndexEntry = 4, wdFieldIndex = 8 };

enum WdRevisionType : int {
  wdRevisionInsert = 1,
  wdRevisionDelete = 2,
  wdRevisionMovedFrom = 14,
  wdRevisionMovedTo = 15,
};

enum WdColorIndex : int {
  wdNoHighlight = 0,
  wdBlack = 1,
  wdBlue = 2,
  wdTurquoise = 3,
  wdBrightGreen = 4,
  wdPink = 5,
  wdRed = 6,
  wdYellow = 7,
  wdWhite = 8,
  wdDarkBlue = 9,
  wdTeal = 10,
  wdGreen = 11,
  wdViolet = 12,
  wdDarkRed = 13,
  wdDarkYellow = 14,
  wdGray50 = 15,
  wdGray25 = 16,
};

enum WdColor : int { wdColorAutomatic = -16777216 };

enum WdParagraphAlignment : int {
  wdAlignParagraphLeft = 0,
  wdAlignParagraphCenter = 1,
  wdAlignParagraphRight = 2,
  wdAlignParagraphJustify = 3,
};

/// Characters that stand for something else than themselves in a story's text.
inline constexpr char16_t kInlineObject = 1;
inline constexpr char16_t kNoteReference = 2;
inline constexpr char16_t kCommentMark = 5;
inline constexpr char16_t kCellMark = 7;
inline constexpr char16_t kTab = 9;
inline constexpr char16_t kLineBreak = 11;
inline constexpr char16_t kPageBreak = 12;  ///< a page break, and the mark of a paragraph that ends a section
inline constexpr char16_t kParagraphMark = 13;
inline constexpr char16_t kColumnBreak = 14;
inline constexpr char16_t kFieldBegin = 19;
inline constexpr char16_t kFieldSeparator = 20;
inline constexpr char16_t kFieldEnd = 21;
inline constexpr char16_t kNonBreakingHyphen = 30;
inline constexpr char16_t kOptionalHyphen = 31;
inline constexpr char16_t kSymbol = 40;
inline constexpr char16_t kNonBreakingSpace = 160;

}  // namespace word
