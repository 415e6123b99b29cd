#include "dialogs/frmKVXRemoveArticles.h"

#include "tests/forms/Dialogs.h"
#include "tests/forms/Golden.h"

namespace {

class RemoveArticles : public Dialogs {
 protected:
  frmKVXRemoveArticles& Steps(const std::string& steps) {
    form.reset();
    Answer(R"({"form":"frmKVXRemoveArticles","do":[)" + steps + "]}");
    form = std::make_unique<frmKVXRemoveArticles>(*services, std::vector<std::u16string>{u"the Bank", u"a Loan"});
    ShowToItsEnd(*form);
    return *form;
  }
  ~RemoveArticles() override { form.reset(); }

  std::unique_ptr<frmKVXRemoveArticles> form;
};

TEST_F(RemoveArticles, ItListsTheTermsUntickedUnderItsInstructions) {
  ExpectGolden("frmKVXRemoveArticles.txt", Steps(""));
}

TEST_F(RemoveArticles, OKTellsTheTickedTerms) {
  const auto& dialog = Steps(R"({"select":"lstTerms","items":["a Loan"],"on":true},{"click":"cmdOK"})");
  EXPECT_EQ(dialog.Tag(), u"OK");
  EXPECT_EQ(dialog.TickedTerms(), std::vector<std::u16string>{u"a Loan"});
}

TEST_F(RemoveArticles, CancelAndTheCloseBoxGiveCancel) {
  EXPECT_EQ(Steps(R"({"click":"cmdCancel"})").Tag(), u"Cancel");
  EXPECT_EQ(Steps(R"({"close":true})").Tag(), u"Cancel");
}

TEST_F(RemoveArticles, UnloadingAfterOKKeepsTheResult) {
  frmKVXRemoveArticles& dialog = Steps(R"({"click":"cmdOK"})");
  dialog.Unload();
  EXPECT_EQ(dialog.Tag(), u"OK");
}

TEST_F(RemoveArticles, TheInstructionsPassTheFocusOn) {
  Answer(R"({"form":"frmKVXRemoveArticles","do":[{"focus":"cmdOK"},{"focus":"txtInstrux"},{"key":"lstTerms","char":" "},
            {"click":"cmdOK"}]})");
  frmKVXRemoveArticles dialog(*services, {u"the Bank"});
  ShowToItsEnd(dialog);
  EXPECT_EQ(dialog.TickedTerms().size(), 0u) << "no entry is current yet";
  EXPECT_TRUE(dialog.txtInstrux.ReadOnly());
}

}  // namespace
