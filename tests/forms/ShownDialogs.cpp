#include "tests/forms/ShownDialogs.h"

#include "addin/frmKVXProgressFormGetCappedList.h"
#include "addin/frmKVXProgressFormKVXClose.h"
#include "addin/frmKVXProgressFormKVXPreparing.h"
#include "addin/frmProgressForm.h"
#include "dialogs/frmKVXAbout_COM.h"
#include "dialogs/frmKVXChangeQuotes.h"
#include "dialogs/frmKVXFormatInstrux.h"
#include "dialogs/frmKVXRemoveArticles.h"
#include "dialogs/frmKVXSearchChooser.h"
#include "dialogs/frmKVXShowHelp.h"
#include "discovery/FoundTermsLabel.h"

ShownDialogs::ShownDialogs(forms::FormHost& forms, os::Messages& boxes) : services(fake.Make(forms, boxes)) {
  ini.IniFilePath = u"C:\\Data\\kvx.ini";
}

frmKVXOptions& ShownDialogs::MakeOptions() {
  options = std::make_unique<frmKVXOptions>(services, ini);
  options->Load();
  EXPECT_TRUE(LoadSettingsIntoDialog(ini, services.messages, options->Options()));
  return *options;
}

frmKVX_COM& ShownDialogs::MakeTerms(const std::vector<std::u16string>& found) {
  terms = std::make_unique<frmKVX_COM>(services, ini);
  EXPECT_TRUE(LoadSettingsIntoDialog(ini, services.messages, terms->Options()));
  terms->Load();
  for (const std::u16string& term : found) {
    terms->lstTermsInDoc.AddItem(term);
    terms->lstTermsInDoc.SetSelected(terms->lstTermsInDoc.ListCount() - 1, true);
  }
  terms->SetHorizontalExtent(terms->lstTermsInDoc);
  return *terms;
}

void ShownDialogs::InEachForm(const Look& look) {
  frmKVXOptions& first = MakeOptions();
  ShowFor(first, [&] { look(first, "options"); });
  frmKVX_COM& second =
      MakeTerms({u"Accounts", u"Agreement", u"Business Day", u"Buyer", u"Completion", u"Completion Date",
                 u"Confidential Information", u"Disclosure Letter", u"Encumbrance", u"Escrow Account",
                 u"Long Stop Date", u"Purchase Price", u"Seller", u"Seller's Solicitors", u"Shares"});
  second.lstTermsInDoc.SetSelected(2, false);
  second.lstAddTerms.AddItem(u"Escrow");
  second.lstAddTerms.AddItem(u"Target Group Company");
  second.lblTermsInDoc.SetCaption(FoundTermsLabel(TermKind::kQuoted, true));
  ShowFor(second, [&] {
    for (const int tab : {0, 1, 2}) {
      second.tbcTabs.SetSelectedTab(tab);
      services.forms.Repaint(second);
      look(second, "terms_" + std::to_string(tab + 1));
    }
    second.tbcTabs.SetSelectedTab(0);
    for (forms::Label* line : {&second.lblLabel1, &second.lblLabel2, &second.lblLabel3}) line->SetVisible(true);
    second.SetStatusText(u"Looking for terms in quotes");
    services.forms.Repaint(second);
    look(second, "terms_searching");
  });
  ShowPrompts(look);
  ShowProgress(look);
}

void ShownDialogs::ShowPrompts(const Look& look) {
  frmKVXSearchChooser chooser(services, ini);
  ShowFor(chooser, [&] { look(chooser, "search_chooser"); });
  frmKVXFormatInstrux reminder(services, ini);
  ShowFor(reminder, [&] { look(reminder, "format_reminder"); });
  frmKVXShowHelp offer(services, ini);
  ShowFor(offer, [&] { look(offer, "help_offer"); });
  frmKVXChangeQuotes quotes(services, ini);
  ShowFor(quotes, [&] { look(quotes, "change_quotes"); });
  frmKVXRemoveArticles articles(services,
                                {u"a Loan", u"any Permitted Assignee", u"the Bank", u"The Royal Bank of York"});
  articles.Load();
  articles.lstTerms.SetSelected(2, true);
  ShowFor(articles, [&] { look(articles, "remove_articles"); });
  frmKVXAbout_COM about(services);
  ShowFor(about, [&] { look(about, "about"); });
}

void ShownDialogs::ShowProgress(const Look& look) {
  frmProgressForm progress(services.forms);
  services.forms.ShowModeless(progress);
  progress.SetCaption(u"Indexing document");
  progress.lblLabel1.SetCaption(u"Please wait");
  progress.lblLabel2.SetCaption(u"Marking occurrences");
  progress.lblLabel3.SetCaption(u"Term 45 of 100: Confidential Information");
  progress.SetPosition(45, 100);
  services.forms.Repaint(progress);
  look(progress, "progress");
  progress.Unload();
  frmKVXProgressFormGetCappedList capitals(services, [&] {
    capitals.SetCaption(u"Searching for terms");
    capitals.lblLabel1.SetCaption(u"Searching page:  9");
    capitals.lblLabel2.SetCaption(u"Processing main document page 9");
    capitals.SetPosition(9, 12);
    services.forms.Repaint(capitals);
    look(capitals, "progress_capitals");
  });
  services.forms.ShowModal(capitals);
  frmKVXProgressFormKVXPreparing preparing(services.forms, [&] { look(preparing, "preparing"); });
  ShowAtWork(preparing, u"Preparing document...");
  frmKVXProgressFormKVXClose closing(services.forms, [&] { look(closing, "closing"); });
  ShowAtWork(closing, u"Restoring document...");
}

void ShownDialogs::ShowAtWork(WorkProgressForm& form, std::u16string_view task) {
  form.Load();
  form.SetCaption(u"Kelvarin");
  form.lblLabel1.SetCaption(u"Please wait");
  form.lblLabel2.SetCaption(task);
  form.lblProgBarTotal.SetVisible(false);
  form.lblProgBarCompleted.SetVisible(false);
  services.forms.ShowModal(form);
}

void ShownDialogs::ChangeByCode(frmKVX_COM& form) {
  form.lstTermsInDoc.SetSelected(1, false);
  form.lstTermsInDoc.SetListIndex(2);
  form.lstTermsInDoc.RemoveItem(0);
  form.chkCaseSensitive.SetValue(0);
  form.optSearchType[0].SetEnabled(false);
  form.cmdCancel.SetEnabled(false);
  form.lblLabel2.SetCaption(u"Refreshing list...");
  form.lblLabel2.SetVisible(true);
  form.cmbCloseQuote.SetListIndex(3);
  form.txtCols.SetText(u"4");
  form.StatusBar1.SetSimpleText(u"Looking for terms");
  form.SetDefaultButton(&form.cmdRefresh);
  form.SetCaption(u"Another caption");
  form.chkHighlight.SetToolTip(u"A tip");
  form.chkIndexCaps.SetToolTip(u"Another tip");
  form.chkCaseSensitive.SetToolTip(u"");
}

const std::vector<ShownDialogs::Message>& ShownDialogs::Messages() {
  static const std::vector<Message> messages = {
      {"message_information", os::Icon::kInformation, os::Buttons::kOk, u"Refresh terms list",
       u"You'll need to click the 'Find terms and refresh list' button to refresh the 'Terms found in document' list."},
      {"message_exclamation", os::Icon::kExclamation, os::Buttons::kOk, u"Nothing deleted",
       u"No items were selected for deletion."},
      {"message_question", os::Icon::kQuestion, os::Buttons::kYesNoCancel, u"Save all or selected?",
       u"Save selected items only?  Click Yes to save only the selected items, click No to save all items in the "
       u"additional terms list."},
      {"message_critical", os::Icon::kCritical, os::Buttons::kOk, u"Error setting defaults", u"Error: 5 Cannot write"}};
  return messages;
}
