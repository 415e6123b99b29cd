#include "dialogs/frmKVXChangeQuotes.h"

#include "tests/forms/Dialogs.h"
#include "tests/forms/Golden.h"

namespace {

class ChangeQuotes : public Dialogs {
 protected:
  void Have(std::u16string_view open, std::u16string_view close) {
    profile.Write(u"Defaults", u"OpenQuote", open, ini.IniFilePath);
    profile.Write(u"Defaults", u"CloseQuote", close, ini.IniFilePath);
    profile.written.clear();
  }
  frmKVXChangeQuotes& Steps(const std::string& steps, const std::string& otherAnswers = "") {
    form.reset();
    Answer(R"({"form":"frmKVXChangeQuotes","do":[)" + steps + "]}" + otherAnswers);
    form = std::make_unique<frmKVXChangeQuotes>(*services, ini);
    ShowToItsEnd(*form);
    return *form;
  }
  ~ChangeQuotes() override { form.reset(); }

  std::unique_ptr<frmKVXChangeQuotes> form;
};

TEST_F(ChangeQuotes, ItOffersTheFiveStylesWithThoseOfTheSettingsChosen) {
  Have(u"171", u"187");
  ExpectGolden("frmKVXChangeQuotes.txt", Steps(R"({"click":"cmdCancel"})"));
}

TEST_F(ChangeQuotes, OKWritesTheChosenCodes) {
  Have(u"147", u"148");
  const auto& dialog = Steps(R"({"set":"cmbOpenQuote","to":2},{"set":"cmbCloseQuote","to":0},{"click":"cmdOK"})");
  EXPECT_EQ(dialog.Tag(), u"OK");
  EXPECT_EQ(profile[u"OpenQuote"], u"132");
  EXPECT_EQ(profile[u"CloseQuote"], u"147");
}

TEST_F(ChangeQuotes, CancelAndTheCloseBoxLeaveTheResultUnset) {
  Have(u"147", u"148");
  for (const char* end : {R"({"click":"cmdCancel"})", R"({"close":true})", ""}) {
    const auto& dialog = Steps(std::string(R"({"set":"cmbOpenQuote","to":2})") + (*end ? "," : "") + end);
    EXPECT_EQ(dialog.Tag(), u"");
    EXPECT_TRUE(profile.written.empty());
  }
}

TEST_F(ChangeQuotes, AStyleThatIsNotOfferedLeavesTheCurlyPairChosen) {
  Have(u"34", u"34");
  const auto& dialog = Steps(R"({"click":"cmdCancel"})");
  EXPECT_EQ(dialog.cmbOpenQuote.ListIndex(), 0);
  EXPECT_EQ(dialog.cmbCloseQuote.ListIndex(), 1);
}

TEST_F(ChangeQuotes, AFailureToWriteIsReported) {
  Have(u"147", u"148");
  profile.failing.insert(u"CloseQuote");
  const auto& dialog = Steps(R"({"click":"cmdOK"})", R"(,{"message":"Ini file problem","press":"OK"})");
  EXPECT_EQ(dialog.Tag(), u"OK");
}

}  // namespace
