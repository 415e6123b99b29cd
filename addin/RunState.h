#pragma once

#include "engine/modKVX.h"
#include "platform/word/Constants.h"
#include "platform/word/Types.h"

/// What a run of "Find and index" keeps while it lasts. A new run starts with a new one; the flags of the last run can
/// be read until then.
struct RunState {
  /// The document being indexed; empty when no run is in progress.
  word::DocumentPtr ActiveIndexDocument;
  /// The view to come back to; print view until it was read.
  int viewType{word::wdPrintView};
  SavedWordState saved;
  /// Formatting marks were shown.
  bool showAll{false};
  /// Something that the restore routine puts back may have been changed.
  bool wordStateChanged{false};
  /// The options dialog was confirmed.
  bool OptionsAccepted{false};
  /// This run placed "ReturnHereBK".
  bool returnMarked{false};
  /// This run placed "IndexBKStart".
  bool IndexStartMarked{false};
};
