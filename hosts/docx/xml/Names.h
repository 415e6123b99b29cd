#pragma once

#include <cstdint>

namespace docx {

/// The elements that the host understands, whatever prefix a part gives their namespaces, transitional or
/// strict. Everything else is kOther and kept as it is.
enum class Tag : std::uint8_t {
  kOther,
  // WordprocessingML, blocks
  kBody,
  kP,
  kPPr,
  kTbl,
  kTr,
  kTc,
  kTrPr,
  kSdt,
  kSdtContent,
  kCustomXml,
  kSectPr,
  kFootnotes,
  kFootnote,
  kEndnotes,
  kEndnote,
  kComments,
  kComment,
  kHdr,
  kFtr,
  kTxbxContent,
  // runs and what holds them
  kR,
  kRPr,
  kHyperlink,
  kSmartTag,
  kIns,
  kDel,
  kMoveFrom,
  kMoveTo,
  kDir,
  kBdo,
  kFldSimple,
  // run content
  kT,
  kDelText,
  kInstrText,
  kDelInstrText,
  kTab,
  kPTab,
  kBr,
  kCr,
  kNoBreakHyphen,
  kSoftHyphen,
  kSym,
  kFldChar,
  kFootnoteReference,
  kEndnoteReference,
  kFootnoteRef,
  kEndnoteRef,
  kCommentReference,
  kSeparator,
  kContinuationSeparator,
  kDrawing,
  kObject,
  kPict,
  kRuby,
  kLastRenderedPageBreak,
  // marks without length
  kBookmarkStart,
  kBookmarkEnd,
  kProofErr,
  // other namespaces
  kAlternateContent,
  kChoice,
  kFallback,
  kInline,
  kAnchor,
  kOMath,
  kOMathPara,
};

}  // namespace docx
