#include "dialogs/frmKVX_COM.h"

#include "tests/forms/Dialogs.h"

namespace {

using Texts = std::vector<std::u16string>;

const std::string kLoad = R"({"click":"cmdLoadSavedList"})";
const std::string kSaveFound = R"({"click":["cmdSaveList",0]})";
const std::string kSaveAdded = R"({"click":["cmdSaveList",1]})";
const std::string kInUse = R"({"message":"File in use/not available","press":"OK"})";

std::string Load(const std::string& path) { return R"({"file":"Load terms list","path":")" + path + "\"}"; }
std::string Save(const std::string& path) { return R"({"file":"Save terms list","path":")" + path + "\"}"; }
std::string SaveWhat(const std::string& button) {
  return R"({"message":"Save all or selected?","press":")" + button + "\"}";
}

class TermListFiles : public Dialogs {
 protected:
  TermListFiles() { files.folders = {u"C:", u"C:\\Data"}; }
  void PutFile(std::u16string path, std::string bytes) {
    files.files.insert(path);
    files.contents[path] = std::move(bytes);
  }
};

TEST_F(TermListFiles, LoadingAddsEachItemUnselected) {
  PutFile(u"C:\\Data\\my.txt", "Buyer\r\nSeller, Group\r\n\"Acme, Inc.\"\r\n");
  frmKVX_COM& dialog = StepsInTerms({u"Buyer"}, kLoad, Load(R"(C:\\Data\\my.txt)"));
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"Buyer", u"Seller", u"Group", u"Acme, Inc."}));
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Buyer"}));
  EXPECT_TRUE(shown.empty());
}

TEST_F(TermListFiles, AfterLoadingTheListScrollsAsFarAsItsWidestEntry) {
  PutFile(u"C:\\Data\\my.txt", "Buyer\r\nSeller, Group\r\n");
  StepsInTerms({u"Purchase Price"}, kLoad, Load(R"(C:\\Data\\my.txt)"));
  EXPECT_EQ(host->extents, (Extents{{"lstAddTerms", 60}}));
}

TEST_F(TermListFiles, LoadingTheSameFileTwiceAddsNothingTheSecondTime) {
  PutFile(u"C:\\Data\\my.txt", "Buyer\r\n\r\nbuyer\r\n Buyer \r\n\r\n");
  frmKVX_COM& dialog =
      StepsInTerms({}, kLoad + "," + kLoad, Load(R"(C:\\Data\\my.txt)") + "," + Load(R"(C:\\Data\\my.txt)"));
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"Buyer", u"", u"buyer"}));
}

TEST_F(TermListFiles, ItemsAreComparedWithoutTrimming) {
  PutFile(u"C:\\Data\\my.txt", "\" Buyer\"\r\nBuyer\r\n");
  EXPECT_EQ(Entries(StepsInTerms({}, kLoad, Load(R"(C:\\Data\\my.txt)")).lstAddTerms), (Texts{u" Buyer", u"Buyer"}));
}

TEST_F(TermListFiles, AnExtensionInCapitalsLoads) {
  PutFile(u"C:\\Data\\MY.TXT", "Buyer\r\n");
  EXPECT_EQ(StepsInTerms({}, kLoad, Load(R"(C:\\Data\\MY.TXT)")).lstAddTerms.ListCount(), 1);
}

TEST_F(TermListFiles, AnyOtherExtensionIsRefusedAndTheDialogComesAgain) {
  PutFile(u"C:\\Data\\my.txt", "Buyer\r\n");
  for (const char* wrong : {R"(C:\\Data\\my.doc)", R"(C:\\Data\\mytxt)", R"(C:\\Data\\txt)"}) {
    frmKVX_COM& dialog = StepsInTerms(
        {}, kLoad, Load(wrong) + R"(,{"message":"Not a text file","press":"OK"},)" + Load(R"(C:\\Data\\my.txt)"));
    EXPECT_EQ(dialog.lstAddTerms.ListCount(), 1);
  }
  EXPECT_EQ(shown.at(0).text, u"my.doc is not a text file (*.txt) and cannot be loaded.  Please try again.");
  EXPECT_EQ(shown.at(0).icon, os::Icon::kExclamation);
}

TEST_F(TermListFiles, ALockedFileIsNotLoadedWhicheverButtonIsPressed) {
  PutFile(u"C:\\Data\\locked.txt", "Buyer\r\n");
  PutFile(u"C:\\Data\\my.txt", "Seller\r\n");
  files.locked.insert(u"C:\\Data\\locked.txt");
  frmKVX_COM& dialog =
      StepsInTerms({}, kLoad,
                   Load(R"(C:\\Data\\locked.txt)") + "," + kInUse + "," + Load(R"(C:\\Data\\locked.txt)") +
                       R"(,{"message":"File in use/not available","press":"Cancel"},)" + Load(R"(C:\\Data\\my.txt)"));
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"Seller"}));
  EXPECT_EQ(shown.at(0).text, u"The filename you specified is in use or not available.  Please try again.");
  EXPECT_EQ(shown.at(0).icon, os::Icon::kInformation);
}

TEST_F(TermListFiles, CancellingTheFileDialogsChangesNothing) {
  frmKVX_COM& dialog = StepsInTerms({u"Buyer"}, kLoad + "," + kSaveFound, Load("") + "," + Save(""));
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 0);
  EXPECT_TRUE(files.files == std::set<std::u16string>{u"C:\\Data\\kvx.ini"});
}

TEST_F(TermListFiles, AFileThatCannotBeReadIsReported) {
  PutFile(u"C:\\Data\\my.txt", "Buyer\r\n");
  files.unreadable.insert(u"C:\\Data\\my.txt");
  frmKVX_COM& dialog =
      StepsInTerms({}, kLoad, Load(R"(C:\\Data\\my.txt)") + R"(,{"message":"List not loaded","press":"OK"})");
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 0);
  EXPECT_EQ(shown.at(0).text,
            u"Error:  57 Device I/O error\r\n\r\nCould not open or read the specified folder or file.  Please try "
            u"again.");
}

TEST_F(TermListFiles, EachButtonSavesItsOwnList) {
  Answer(R"({"form":"frmKVX_COM","do":[)" + kSaveFound + "," + kSaveAdded + "]}," + Save(R"(C:\\Data\\found.txt)") +
         "," + Save(R"(C:\\Data\\added.txt)"));
  frmKVX_COM& dialog = MakeTerms({u"Buyer", u"Acme, Inc."});
  dialog.lstAddTerms.AddItem(u"Seller");
  ShowToItsEnd(dialog);
  EXPECT_EQ(files.contents[u"C:\\Data\\found.txt"], "Buyer\r\nAcme, Inc.\r\n");
  EXPECT_EQ(files.contents[u"C:\\Data\\added.txt"], "Seller\r\n");
}

TEST_F(TermListFiles, WithAllOrNoneSelectedAllIsSavedWithoutAQuestion) {
  const std::string none = R"({"click":"cmdDeselectAllTermsInDoc"},)";
  StepsInTerms({u"a", u"b"}, kSaveFound + "," + none + kSaveFound,
               Save(R"(C:\\Data\\all.txt)") + "," + Save(R"(C:\\Data\\none.txt)"));
  EXPECT_EQ(files.contents[u"C:\\Data\\all.txt"], "a\r\nb\r\n");
  EXPECT_EQ(files.contents[u"C:\\Data\\none.txt"], "a\r\nb\r\n");
  EXPECT_TRUE(shown.empty());
}

TEST_F(TermListFiles, WithSomeSelectedTheUserIsAskedWhich) {
  const std::string some = R"({"click":["lstTermsInDoc",1]},)";
  StepsInTerms({u"a", u"b", u"c"}, some + kSaveFound, Save(R"(C:\\Data\\1.txt)") + "," + SaveWhat("Yes"));
  EXPECT_EQ(files.contents[u"C:\\Data\\1.txt"], "a\r\nc\r\n");
  EXPECT_EQ(shown.at(0).text,
            u"Save selected items only?  Click Yes to save only the selected items, click No to save all items in the "
            u"additional terms list.");
  EXPECT_EQ(shown.at(0).icon, os::Icon::kQuestion);
  StepsInTerms({u"a", u"b", u"c"}, some + kSaveFound, Save(R"(C:\\Data\\2.txt)") + "," + SaveWhat("No"));
  EXPECT_EQ(files.contents[u"C:\\Data\\2.txt"], "a\r\nb\r\nc\r\n");
}

TEST_F(TermListFiles, AfterCancelTheFileIsThereAndEmpty) {
  PutFile(u"C:\\Data\\my.txt", "old\r\n");
  StepsInTerms({u"a", u"b"}, R"({"click":["lstTermsInDoc",1]},)" + kSaveFound,
               Save(R"(C:\\Data\\my.txt)") + "," + SaveWhat("Cancel"));
  EXPECT_EQ(files.contents.at(u"C:\\Data\\my.txt"), "");
}

TEST_F(TermListFiles, AnEmptyListIsSavedAsAnEmptyFile) {
  StepsInTerms({}, kSaveFound, Save(R"(C:\\Data\\my.txt)"));
  EXPECT_EQ(files.contents.at(u"C:\\Data\\my.txt"), "");
}

TEST_F(TermListFiles, SavingMakesEachMissingFolder) {
  StepsInTerms({u"a"}, kSaveFound, Save(R"(C:\\Data\\One\\Two\\my.txt)"));
  EXPECT_EQ(files.created, (Texts{u"C:\\Data\\One", u"C:\\Data\\One\\Two"}));
  EXPECT_EQ(files.contents[u"C:\\Data\\One\\Two\\my.txt"], "a\r\n");
}

TEST_F(TermListFiles, AFolderThatCannotBeMadeIsReported) {
  StepsInTerms({u"a"}, kSaveFound, Save(R"(Z:\\One\\my.txt)") + R"(,{"message":"List not saved","press":"OK"})");
  EXPECT_EQ(shown.at(0).text,
            u"Error:  76 Path not found\r\n\r\nCould not save to the specified folder or filename.  Please try again.");
}

TEST_F(TermListFiles, ALockedFileIsNotSavedToAndTheDialogComesAgain) {
  PutFile(u"C:\\Data\\locked.txt", "old\r\n");
  files.locked.insert(u"C:\\Data\\locked.txt");
  StepsInTerms({u"a"}, kSaveFound, Save(R"(C:\\Data\\locked.txt)") + "," + kInUse + "," + Save(R"(C:\\Data\\my.txt)"));
  EXPECT_EQ(files.contents[u"C:\\Data\\locked.txt"], "old\r\n");
  EXPECT_EQ(files.contents[u"C:\\Data\\my.txt"], "a\r\n");
}

TEST_F(TermListFiles, AFullDiskIsReportedAndTheOldFileStays) {
  PutFile(u"C:\\Data\\my.txt", "old\r\n");
  files.space = 4;
  StepsInTerms({u"a", u"b"}, kSaveFound, Save(R"(C:\\Data\\my.txt)") + R"(,{"message":"List not saved","press":"OK"})");
  EXPECT_EQ(shown.at(0).text,
            u"Error:  61 Disk full\r\n\r\nCould not save to the specified folder or filename.  Please try again.");
  EXPECT_EQ(files.contents[u"C:\\Data\\my.txt"], "old\r\n");
}

TEST_F(TermListFiles, TheFileDialogsShowTextFiles) {
  StepsInTerms({u"a"}, kLoad + "," + kSaveFound, Load("") + "," + Save(""));
  std::istringstream lines(transcriptText.str());
  std::vector<std::string> events;
  for (std::string line; std::getline(lines, line);) {
    if (line.find("\"event\":\"file\"") != std::string::npos) events.push_back(line);
  }
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0],
            R"({"event":"file","mode":"open","title":"Load terms list","filter":"Text file (.txt)\u0000*.txt",)"
            R"("fileName":"","path":""})");
  EXPECT_NE(events[1].find(R"("mode":"save","title":"Save terms list")"), std::string::npos);
}

}  // namespace
