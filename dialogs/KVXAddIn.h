#pragma once

#include "platform/TermMarker.h"
#include "platform/word/Types.h"

class clsProgForm;
class modKVX;

/// What the terms dialog asks of the add-in object that shows it. Valid while a run is in progress.
class KVXAddIn {
 public:
  KVXAddIn() = default;
  virtual ~KVXAddIn() = default;
  KVXAddIn(const KVXAddIn&) = delete;
  KVXAddIn& operator=(const KVXAddIn&) = delete;

  virtual word::ApplicationPtr WordApp() const = 0;
  /// The document being indexed.
  virtual word::DocumentPtr ActiveIndexDocument() const = 0;
  virtual TermMarker& Marker() = 0;
  virtual modKVX& Engine() = 0;
  virtual clsProgForm& Progress() = 0;
  /// The options dialog was confirmed in this run.
  virtual bool OptionsAccepted() const = 0;
  /// This run placed the bookmark "IndexBKStart".
  virtual bool IndexStartMarked() const = 0;
  /// Options.AutoFormatAsYouTypeReplaceQuotes as the run found it.
  virtual bool SavedReplaceQuotes() const = 0;
};
