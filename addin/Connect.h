#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "addin/RunState.h"
#include "addin/clsProgForm.h"
#include "dialogs/KVXAddIn.h"
#include "discovery/SearchResult.h"
#include "engine/modKVX.h"
#include "platform/Host.h"
#include "platform/TermMarker.h"
#include "platform/office/CommandBars.h"
#include "platform/word/Types.h"
#include "settings/modGetCSIDLFolderPath.h"
#include "settings/modIniFile.h"

class WorkProgressForm;
class frmKVX_COM;

/// How Word came to load the add-in; Word's numbers.
enum class ConnectMode : int { kAfterStartup = 0, kStartup = 1, kExternal = 2, kCommandLine = 3 };
/// Why Word lets the add-in go; Word's numbers.
enum class DisconnectMode : int { kHostShutdown = 0, kUserClosed = 1 };

/// The add-in's buttons in Word's menu, kept as long as they are to be heard; empty where there is no menu.
struct MenuButtons {
  office::CommandBarControlPtr mcbKVXIndexButton;
  office::CommandBarControlPtr mcbKVXRemoveIndexButton;
  office::CommandBarControlPtr mcbKVXRemoveHighlightButton;
  office::CommandBarControlPtr mcbKVXUpdateButton;
};

/// The add-in. Word creates one, hands it its application, and calls it back for each command. It owns the
/// progress object and the companion from connection to disconnection. Its public members are entry points: no error
/// leaves them, each is shown.
class Connect : public KVXAddIn {
 public:
  /// What host refers to outlives the add-in.
  explicit Connect(const Host& host);
  ~Connect() override;

  /// The first event.
  void OnConnection(const word::ApplicationPtr& application, ConnectMode mode);
  /// Word has started. Not sent to an add-in that the user loads later.
  void OnStartupComplete();
  /// The last event: releases everything.
  void OnDisconnection(DisconnectMode mode);

  /// The command "Find and index": a whole run, from its checks to its clean-up.
  void ShowKVXForm();

  /// The commands "Remove indexing", "Remove highlighting only" and "Update index": nothing without a document, and
  /// nothing while a run is in progress.
  /// @return whether the command came to its end
  bool RemoveIndexing();
  bool RemoveHighlighting();
  bool UpdateIndexField();

  word::ApplicationPtr WordApp() const override { return wordApp_; }
  word::DocumentPtr ActiveIndexDocument() const override { return run_.ActiveIndexDocument; }
  TermMarker& Marker() override { return *termMarker_; }
  modKVX& Engine() override { return *engine_; }
  clsProgForm& Progress() override { return *progress_; }
  bool OptionsAccepted() const override { return run_.OptionsAccepted; }
  bool IndexStartMarked() const override { return run_.IndexStartMarked; }
  bool SavedReplaceQuotes() const override { return run_.saved.SavedReplaceQuotes; }

  /// How many programs named "winword.exe" run.
  int CountWinwordProcesses() const;

  /// Word's start-up folder, with "\" at its end; empty before OnStartupComplete.
  const std::u16string& StartupFolder() const { return startupFolder_; }
  /// Whether the terms dialog was opened before Word was closed last.
  bool DialogOpenedLastTime() const { return dialogOpenedLastTime_; }

 protected:
  /// Checks the quotation marks, finds the terms in quotes and fills the dialog's list with them.
  SearchResult SearchQuotedTerms(const word::DocumentPtr& document, frmKVX_COM& dialog);
  /// Finds the capitalised words and phrases and fills the dialog's list with them.
  virtual SearchResult SearchCappedTerms(const word::DocumentPtr& document, frmKVX_COM& dialog);

 private:
  bool IsOnlyWordProcess() const;
  void CreateProgress();
  /// Both the companion and the engine over it, or neither.
  void CreateTermMarker();
  /// @throws word::HostError when there is no companion and none may be made
  void RequireTermMarker();

  bool OnActiveDocument(std::u16string_view title, const std::function<bool(const word::DocumentPtr&)>& command);

  /// Puts the popup with the four commands under "Tools", in place of one that is left of earlier; whole or not at all.
  void AddMenu();
  void FillMenu(office::CommandBarControl& popup);
  void RemoveMenu();
  void ReleaseButtons();

  /// @return false for an early stop, which LeaveEarly has to clean up after
  bool Run();
  word::DocumentPtr LookUpActiveDocument() const;
  bool CursorMayTakeIndex();
  void ReadWordState();
  bool ShowOptionsDialog();
  void MarkPlaces();
  bool Search(frmKVX_COM& dialog);
  void PrepareForQuotedTerms();
  void PrepareForCappedTerms();
  void StripEarlierMarking();
  /// Shows a form that works until it has done so. @param task what it says that it does
  void ShowAtWork(WorkProgressForm& form, std::u16string_view task);
  /// @return "Ready", or "Cancel" when the dialog must not be shown
  std::u16string_view PrepareTermsDialog(frmKVX_COM& dialog);
  void Restore();
  void LeaveEarly();

  /// One pane, in print view, with the screen drawn anew.
  void ResetDocView(const word::DocumentPtr& document);
  bool SetPrintView(const word::DocumentPtr& document);
  void RestoreView();
  void RestoreDocViewType(const word::DocumentPtr& document, int viewType);

  Host host_;
  modIniFile ini_;
  modGetCSIDLFolderPath settingsFolder_;
  word::ApplicationPtr wordApp_;
  std::unique_ptr<clsProgForm> progress_;
  std::unique_ptr<TermMarker> termMarker_;
  std::unique_ptr<modKVX> engine_;
  MenuButtons buttons_;
  RunState run_;
  /// The terms dialog was shown since Word started.
  bool running_{false};
  std::u16string startupFolder_;
  bool dialogOpenedLastTime_{false};
};
