#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/HelpMenu.h"
#include "dialogs/KVXAddIn.h"
#include "dialogs/OptionPanel.h"
#include "dialogs/modManageFrames.h"
#include "discovery/QuotedTerms.h"
#include "engine/modKVX.h"
#include "platform/Host.h"
#include "platform/forms/Control.h"

/// The terms dialog: the user reviews the found terms, adds and deletes terms, sets options, and has the selected terms
/// indexed with OK. Tag() is "Cancel" after its Cancel button or close box, "Done" after it was unloaded by code; it
/// ends hidden after OK.
class frmKVX_COM : public HelpedForm, public OptionPanel, public IndexingDialog {
 public:
  /// Both outlive the form.
  frmKVX_COM(const Host& host, modIniFile& ini);

  forms::Frame frameTermsInDoc{*this, "frameTermsInDoc"};
  forms::Label lblTermsInDoc{*this, "lblTermsInDoc"};
  forms::ListBox lstTermsInDoc{*this, "lstTermsInDoc"};
  forms::Button cmdSelectAllTermsInDoc{*this, "cmdSelectAllTermsInDoc"};
  forms::Button cmdDeselectAllTermsInDoc{*this, "cmdDeselectAllTermsInDoc"};
  /// Element 0 stands by the found terms, 1 by the additional ones.
  forms::ControlArray<forms::Button, 2> cmdSaveList{*this, "cmdSaveList"};

  forms::Frame frameAddTerms{*this, "frameAddTerms"};
  forms::Label lblAddTerms{*this, "lblAddTerms"};
  forms::TextBox txtAddTerm{*this, "txtAddTerm"};
  forms::Button cmdAddTerm{*this, "cmdAddTerm"};
  forms::ListBox lstAddTerms{*this, "lstAddTerms"};
  forms::Button cmdSelectAllAddTerms{*this, "cmdSelectAllAddTerms"};
  forms::Button cmdDeselectAllAddTerms{*this, "cmdDeselectAllAddTerms"};
  forms::Button cmdDeleteTerm{*this, "cmdDeleteTerm"};
  forms::Button cmdLoadSavedList{*this, "cmdLoadSavedList"};

  forms::Frame frameOptions{*this, "frameOptions"};
  forms::TabStrip tbcTabs{*this, "tbcTabs", {u"Search", u"Index", u"Readme"}};
  TabFrames fraTab{*this, "fraTab"};
  forms::ControlArray<forms::Label, 2> lblReadme{*this, "lblReadme"};
  forms::LinkLabel lblFAQClick{*this, "lblFAQClick"};
  forms::LinkLabel lblHelpClick{*this, "lblHelpClick"};
  forms::Image imgAbout{*this, "imgAbout"};

  /// The status lines, shown while a search runs.
  forms::Label lblLabel1{*this, "lblLabel1"};
  forms::Label lblLabel2{*this, "lblLabel2"};
  forms::Label lblLabel3{*this, "lblLabel3"};
  forms::Button cmdRefresh{*this, "cmdRefresh"};
  forms::Button cmdFormHelp{*this, "cmdFormHelp"};
  forms::Button cmdOK{*this, "cmdOK"};
  forms::Button cmdCancel{*this, "cmdCancel"};
  forms::StatusBar StatusBar1{*this, "StatusBar1"};
  HelpMenu menu{*this, u"Getting started"};

  /// The add-in object, for the length of a run; nullptr otherwise, and then OK, Cancel and searching touch no
  /// document.
  ::KVXAddIn* KVXAddIn{nullptr};
  /// While the run command fills the found terms for the first time, no reminder to refresh them is shown.
  bool firstFillInProgress{false};

  void SetStatusText(std::u16string_view text) { StatusBar1.SetSimpleText(text); }
  /// Takes the close box of the window with a caption away, and keeps that window's handle.
  void RemoveCloseBox(std::u16string_view strCaption);
  /// 0: RemoveCloseBox found no window.
  std::intptr_t CloseBoxWindow() const { return closeBoxWindow_; }
  /// Lets a list scroll as far as its widest entry.
  void SetHorizontalExtent(const forms::ListBox& list);
  FoundTermsControls SearchControls() { return {lstTermsInDoc, lblTermsInDoc, StatusBar1}; }

  void HideWhileIndexing() override { Hide(); }
  void IndexInsertOrUpdate(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                           bool updateOnly) override;
  bool IncludesNotUsedList() const override { return chkIncludeNotUsed.Value() == 1; }
  bool IncludesNotFoundList() const override { return chkIncludeNotFound.Value() == 1; }
  void NotUsedList(const word::DocumentPtr& document, std::u16string_view terms) override;
  void NotFoundList(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                    std::u16string_view terms) override;

 protected:
  forms::Layout MakeLayout() override;
  void OnActivate() override;
  void OnQueryUnload(forms::UnloadReason reason) override;
  void SearchTypeChosen() override;

 private:
  void cmdAddTerm_Click();
  void cmdDeleteTerm_Click();
  void cmdRefresh_Click();
  void cmdSetDefaults_Click();
  void cmdLoadSavedList_Click();
  void cmdSaveList_Click(const forms::ListBox& list);
  void cmdOK_Click();
  void cmdCancel_Click();

  bool IsOnList(const forms::ListBox& list, std::u16string_view term);
  void SelectAll(forms::ListBox& list, bool selected);
  int WidestEntry(const forms::ListBox& list);

  bool HasTextExtension(std::u16string_view name);
  /// @return a path; empty: the user gave up
  std::u16string ChooseListToLoad();
  std::u16string ChooseListToSave();
  /// Adds the terms that are not there yet, unselected.
  void LoadList(std::u16string_view path);
  void SaveList(const forms::ListBox& list, std::u16string_view path);

  void WatchForReminder();
  void RemindWhenChanged(bool changed);
  void ShowReminder();

  void ShowStatusLines();
  void HideStatusLines();
  /// Searches with the status lines shown, which go whatever comes of it.
  void UnderStatusLines(const std::function<void()>& search);
  void SearchAgain();
  bool FindTerms(FoundTerms& terms);
  void ShowFoundTerms(const FoundTerms& terms);

  void OfferPendingTerm();
  bool AnyTermSelected();
  void IndexChosenTerms();
  void DeleteIndexStart();

  std::intptr_t closeBoxWindow_{0};
  /// As they were when the control got the focus.
  int boldOnFocus_{0};
  int openQuoteOnFocus_{-1};
  int closeQuoteOnFocus_{-1};
};
