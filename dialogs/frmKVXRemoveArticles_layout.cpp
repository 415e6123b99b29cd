#include "dialogs/frmKVXRemoveArticles.h"

forms::Layout frmKVXRemoveArticles::MakeLayout() {
  using namespace forms;
  SetCaption(u"Terms that include articles");
  txtInstrux.SetText(
      u"The following terms include the articles 'a', 'an', 'any', or 'the'. "
      u"\r\n\r\n"
      u"Kelvarin will index the terms as listed below, but won't "
      u"index instances that don't exactly match "
      u"the terms as listed below.  For instance if the term below is 'a Term' "
      u"then 'any Term' won't be indexed."
      u"\r\n\r\n"
      u"Generally speaking, only the actual term to be indexed should be in double quotes.  "
      u"\r\n\r\n"
      u"Tick any of the terms in the list below where you want to move the double quotes "
      u"so that they don't include the articles 'a', 'an', 'any' or 'the'.  Correcting the position of the double "
      u"quotes will make "
      u"sure all your terms are indexed.  Don't tick any terms that include the article "
      u"as part of a name (eg 'The Royal Bank of ...').");
  cmdOK.SetCaption(u"OK");
  cmdCancel.SetCaption(u"Cancel");
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdCancel);

  return Column({Item(txtInstrux), Item(lstTerms), Buttons({Item(cmdOK), Item(cmdCancel)})});
}
