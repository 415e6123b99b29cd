#include "discovery/DocumentCheck.h"

#include <gtest/gtest.h>

#include "tests/fakes/FakeHost.h"

namespace {

using Calls = std::vector<std::string>;

class DocumentBeforeSearch : public testing::Test {
 protected:
  DocumentCheck Check(bool prompt = true, std::u16string_view searchType = u"SearchFlagged") {
    return CheckDocumentBeforeSearch(host.word.MakeDocument(), fakes::FakeFormHost::kWindow, prompt, searchType,
                                     services);
  }
  void BeNew() {
    host.word.path.clear();
    host.word.name = u"Document1";
  }

  fakes::FakeHost host;
  Host services{host.Make()};
};

}  // namespace

TEST_F(DocumentBeforeSearch, WithoutThePromptNothingIsAskedOrSaved) {
  EXPECT_EQ(Check(false), DocumentCheck::kSkipped);
  EXPECT_TRUE(host.log.calls.empty());
}

TEST_F(DocumentBeforeSearch, IsSavedInPlaceAfterOnePrompt) {
  host.messages.Expect(u"Save document");
  EXPECT_EQ(Check(), DocumentCheck::kSaved);
  EXPECT_EQ(host.log.calls, (Calls{"message Save document", "Document.Save"}));
  const auto& prompt = host.messages.shown.at(0);
  EXPECT_EQ(
      prompt.text,
      u"Your document needs to be saved before searching for defined terms.  If you need to make a safety copy of "
      u"your document, please Cancel and make a safety copy before indexing.\r\n\r\nClick OK to continue, or "
      u"click Cancel to cancel.");
  EXPECT_EQ(prompt.icon, os::Icon::kInformation);
  EXPECT_EQ(prompt.buttons, os::Buttons::kOkCancel);
}

TEST_F(DocumentBeforeSearch, ThePromptNamesWhatIsSearchedFor) {
  host.messages.Expect(u"Save document");
  Check(true, u"SearchInitCaps");
  EXPECT_TRUE(host.messages.shown.at(0).text.starts_with(
      u"Your document needs to be saved before searching for capitalized words and phrases.  "));
}

TEST_F(DocumentBeforeSearch, WithoutLeaveTheSearchStops) {
  host.messages.Expect(u"Save document", os::Pressed::kCancel);
  EXPECT_EQ(Check(), DocumentCheck::kStop);
  EXPECT_EQ(host.log.calls, Calls{"message Save document"});
}

TEST_F(DocumentBeforeSearch, AReadOnlyFileIsSavedUnderAnotherName) {
  host.files.attributes[u"C:\\Contracts\\contract.docx"] = os::kReadOnly;
  host.messages.Expect(u"Save document");
  host.messages.Expect(u"Read only document");
  host.fileDialogs.paths.emplace_back(u"C:\\Other\\copy.docx");
  EXPECT_EQ(Check(), DocumentCheck::kSaved);
  EXPECT_EQ(host.log.calls,
            (Calls{"message Save document", "message Read only document", "Document.SaveAs C:\\Other\\copy.docx"}));
  const auto& notice = host.messages.shown.at(1);
  EXPECT_EQ(notice.text, u"Your source document is read only.  You must save it under a new name to continue.");
  EXPECT_EQ(notice.icon, os::Icon::kInformation);
  const auto& dialog = host.fileDialogs.asked.at(0);
  EXPECT_EQ(dialog.mode, os::FileDialogMode::kSave);
  EXPECT_EQ(dialog.owner, fakes::FakeFormHost::kWindow);
  EXPECT_EQ(dialog.title, u"");
  EXPECT_EQ(dialog.fileName, u"NewDocument");
  constexpr char16_t kFilters[] = u"Documents (*.doc)\0*.doc\0Templates (*.dot)\0*.dot\0All files (*.*)\0*.*";
  EXPECT_EQ(dialog.filter, std::u16string(kFilters, std::size(kFilters) - 1));
}

TEST_F(DocumentBeforeSearch, AReadOnlyFileWithAnotherAttributeIsSavedInPlace) {
  host.files.attributes[u"C:\\Contracts\\contract.docx"] = os::kReadOnly | os::kArchive;
  host.messages.Expect(u"Save document");
  EXPECT_EQ(Check(), DocumentCheck::kSaved);
  EXPECT_TRUE(host.log.Contains("Document.Save"));
}

TEST_F(DocumentBeforeSearch, ANewDocumentIsSavedUnderTheNameOfItsChoice) {
  BeNew();
  host.messages.Expect(u"Save document");
  host.fileDialogs.paths.emplace_back(u"C:\\Other\\first.docx");
  EXPECT_EQ(Check(), DocumentCheck::kSaved);
  EXPECT_EQ(host.log.calls, (Calls{"message Save document", "Document.SaveAs C:\\Other\\first.docx"}));
  EXPECT_EQ(host.fileDialogs.asked.at(0).fileName, u"Document1");
}

TEST_F(DocumentBeforeSearch, ANewDocumentThatHasAPathByTheTimeItsNameIsReadIsSavedInPlace) {
  host.word.readsAsNew = 1;
  host.messages.Expect(u"Save document");
  EXPECT_EQ(Check(), DocumentCheck::kSaved);
  EXPECT_EQ(host.log.calls, (Calls{"message Save document", "Document.Save"}));
  EXPECT_TRUE(host.fileDialogs.asked.empty());
}

TEST_F(DocumentBeforeSearch, CancellingTheNameStopsTheSearch) {
  BeNew();
  host.messages.Expect(u"Save document");
  host.fileDialogs.paths.emplace_back(u"");
  host.messages.Expect(u"Save before continuing");
  EXPECT_EQ(Check(), DocumentCheck::kStop);
  EXPECT_EQ(host.messages.shown.at(1).text, u"Your document must be saved in order to continue.");
  EXPECT_EQ(host.messages.shown.at(1).icon, os::Icon::kInformation);
}

TEST_F(DocumentBeforeSearch, AnImpossibleNameIsReportedAndAskedForAgain) {
  BeNew();
  host.log.failAt = "Document.SaveAs Z:\\nowhere\\a.docx";
  host.messages.Expect(u"Save document");
  host.fileDialogs.paths.emplace_back(u"Z:\\nowhere\\a.docx");
  host.messages.Expect(u"Invalid filename");
  host.fileDialogs.paths.emplace_back(u"Z:\\nowhere\\a.docx");
  host.messages.Expect(u"Invalid filename");
  host.fileDialogs.paths.emplace_back(u"C:\\Other\\b.docx");
  EXPECT_EQ(Check(), DocumentCheck::kSaved);
  EXPECT_EQ(host.word.name, u"b.docx");
  EXPECT_FALSE(host.messages.shown.at(1).text.starts_with(u"Error: "));
}

TEST_F(DocumentBeforeSearch, AReadOnlyFileIsToldOfAgainWhenItsNewNameFails) {
  host.files.attributes[u"C:\\Contracts\\contract.docx"] = os::kReadOnly;
  host.log.failAt = "Document.SaveAs Z:\\a.docx";
  host.messages.Expect(u"Save document");
  for (const char16_t* path : {u"Z:\\a.docx", u""}) {
    host.messages.Expect(u"Read only document");
    host.fileDialogs.paths.emplace_back(path);
    host.messages.Expect(*path != 0 ? u"Invalid filename" : u"Save before continuing");
  }
  EXPECT_EQ(Check(), DocumentCheck::kStop);
  EXPECT_EQ(host.word.name, u"contract.docx");
}

TEST_F(DocumentBeforeSearch, AFailureToSaveInPlaceIsShownAndStopsTheSearch) {
  host.log.failAt = "Document.Save";
  host.messages.Expect(u"Save document");
  host.messages.Expect(u"Save document");
  EXPECT_EQ(Check(), DocumentCheck::kStop);
  EXPECT_EQ(host.messages.shown.at(1).text, u"Error: 4605 This method or property is not available");
}
