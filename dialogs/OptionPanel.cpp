#include "dialogs/OptionPanel.h"

namespace {

constexpr int kFewestColumns = 1;
constexpr int kMostColumns = 4;

/// Whether the columns box takes a key: Backspace, Tab, Enter, Escape, and the numbers of columns.
bool IsColumnsKey(char16_t key) {
  return key == 8 || key == 9 || key == 13 || key == 27 || (key >= u'0' + kFewestColumns && key <= u'0' + kMostColumns);
}

}  // namespace

OptionPanel::OptionPanel(forms::Form& form, modIniFile& ini)
    : frameSearchType(form, "frameSearchType"),
      optSearchType(form, "optSearchType"),
      chkBold(form, "chkBold"),
      lblOpenQuote(form, "lblOpenQuote"),
      cmbOpenQuote(form, "cmbOpenQuote"),
      lblCloseQuote(form, "lblCloseQuote"),
      cmbCloseQuote(form, "cmbCloseQuote"),
      chkCaseSensitive(form, "chkCaseSensitive"),
      chkIndexCaps(form, "chkIndexCaps"),
      chkIgnoreNums(form, "chkIgnoreNums"),
      chkHighlight(form, "chkHighlight"),
      frmIndexWhat(form, "frmIndexWhat"),
      optIndexWhat(form, "optIndexWhat"),
      chkIncludeNotUsed(form, "chkIncludeNotUsed"),
      chkIncludeNotFound(form, "chkIncludeNotFound"),
      lblCols(form, "lblCols"),
      txtCols(form, "txtCols"),
      updownCols(form, "updownCols", txtCols, kFewestColumns, kMostColumns),
      lblSep(form, "lblSep"),
      txtSep(form, "txtSep"),
      chkTabSep(form, "chkTabSep"),
      cmdSetDefaults(form, "cmdSetDefaults"),
      ini_(ini) {
  SetTexts();
  SetRules();
}

OptionControls OptionPanel::Options() {
  return {optSearchType,      chkBold,      lblOpenQuote,  cmbOpenQuote, lblCloseQuote, cmbCloseQuote,
          chkCaseSensitive,   chkIndexCaps, chkIgnoreNums, chkHighlight, optIndexWhat,  chkIncludeNotUsed,
          chkIncludeNotFound, txtCols,      txtSep,        chkTabSep};
}

void OptionPanel::SetTexts() {
  frameSearchType.SetCaption(u"Search type");
  optSearchType[0].SetCaption(u"&Terms in quotes");
  optSearchType[1].SetCaption(u"Capitalized &words");
  chkBold.SetCaption(u"Defined terms in &bold");
  lblOpenQuote.SetCaption(u"Open &quote:");
  lblCloseQuote.SetCaption(u"Close quote&:");
  chkCaseSensitive.SetCaption(u"Case sens&itive");
  chkCaseSensitive.SetToolTip(u"Search and mark exact matches only");
  chkIndexCaps.SetCaption(u"Treat full caps as upper&/lower");
  chkIndexCaps.SetToolTip(u"Treat full caps as upper/lower case searching/marking");
  chkIgnoreNums.SetCaption(u"I&gnore words with numbers");
  chkHighlight.SetCaption(u"&Highlight found terms");
  frmIndexWhat.SetCaption(u"Index what?");
  optIndexWhat[0].SetCaption(u"I&ndex all instances");
  optIndexWhat[1].SetCaption(u"Index definitions onl&y");
  chkIncludeNotUsed.SetCaption(u"Not &used terms ");
  chkIncludeNotUsed.SetToolTip(u"Terms defined but not used (used only once)");
  chkIncludeNotFound.SetCaption(u"N&ot found terms");
  chkIncludeNotFound.SetToolTip(u"Terms you selected for searching but not in doc");
  lblCols.SetCaption(u"Columns (&1-4):");
  lblSep.SetCaption(u"Se&parator:");
  txtSep.SetToolTip(u"Separator between indexed term and page number(s)");
  chkTabSep.SetCaption(u"&+ Tab");
  cmdSetDefaults.SetCaption(u"Set as defaults");
}

void OptionPanel::SetRules() {
  for (const int element : {0, 1}) {
    optSearchType[element].onClick = [this, element] {
      if (ini_.blnSuppressEvents) return;
      ApplySearchTypeRule(Options(), element == 0);
      SearchTypeChosen();
    };
    optIndexWhat[element].onClick = [this, element] {
      if (ini_.blnSuppressEvents) return;
      // Definitions stand on few pages, one to a term: their numbers line up at the tab.
      chkTabSep.SetValue(element);
    };
  }
  chkCaseSensitive.onClick = [this] { ApplyCaseRule(Options()); };
  txtCols.onKeyPress = IsColumnsKey;
}
