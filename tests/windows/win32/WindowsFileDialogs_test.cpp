#include <gtest/gtest.h>

#include "TempFolder.h"
#include "hosts/win32/Wide.h"
#include "hosts/win32/WindowsFiles.h"
#include "hosts/win32/WindowsServices.h"
#include "tests/windows/Person.h"

namespace {

/// Windows' own dialogs over a folder of the test, with a person before them.
class WindowsFileDialogs : public testing::Test {
 protected:
  WindowsFileDialogs() {
    dialog.initialFolder = folder.File(u"");
    dialog.initialFolder.pop_back();
    dialog.title = u"Terms";
    dialog.filter = std::u16string(u"Text file (.txt)") + u'\0' + u"*.txt";
    dialog.flags = os::kExplorer | os::kNoChangeDir | os::kOverwritePrompt | os::kFileMustExist | os::kPathMustExist;
  }
  void TearDown() override { EXPECT_EQ(person.Waiting(), 0u); }

  void Write(const std::u16string& path) { files.OpenForOutput(path)->Close(); }
  /// Types a name and confirms it.
  static Person::Answer Choose(const std::u16string& name) {
    return [name](HWND window) {
      SetWindowTextW(Person::Child(window, L"Edit"), win32::ToWide(name).c_str());
      PostMessageW(window, WM_COMMAND, IDOK, 0);
    };
  }
  static void Cancel(HWND window) { PostMessageW(window, WM_COMMAND, IDCANCEL, 0); }

  /// Answers boxes that stand before the dialog, and cancels it when it is there again.
  int BoxesUntilCancelled(int answer) {
    int boxes = 0;
    person.Otherwise([&](HWND window) {
      if (Person::Child(window, L"Edit") != nullptr) return Cancel(window);
      ++boxes;
      PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(answer), 0);
    });
    EXPECT_EQ(dialogs.Choose(dialog), u"");
    return boxes;
  }

  TempFolder folder;
  win32::WindowsFiles files;
  win32::WindowsFileDialogs dialogs;
  os::FileDialog dialog;
  Person person;
};

TEST_F(WindowsFileDialogs, GiveTheFileThatIsChosenWhateverItsName) {
  const std::u16string path = folder.File(u"terms \u03A9.txt");
  Write(path);
  person.Expect(L"Terms", Choose(u"terms \u03A9.txt"));
  EXPECT_EQ(dialogs.Choose(dialog), path);
}

TEST_F(WindowsFileDialogs, GiveNothingWhenTheyAreCancelled) {
  person.Expect(L"Terms", &WindowsFileDialogs::Cancel);
  EXPECT_EQ(dialogs.Choose(dialog), u"");
}

TEST_F(WindowsFileDialogs, ProposeTheNameThatTheyAreGiven) {
  dialog.mode = os::FileDialogMode::kSave;
  dialog.fileName = u"proposed.txt";
  std::wstring proposed;
  person.Expect(L"Terms", [&](HWND window) {
    proposed = Person::TextOf(Person::Child(window, L"Edit"));
    PostMessageW(window, WM_COMMAND, IDOK, 0);
  });
  EXPECT_EQ(dialogs.Choose(dialog), folder.File(u"proposed.txt"));
  EXPECT_EQ(proposed, L"proposed.txt");
}

TEST_F(WindowsFileDialogs, AskBeforeAFileIsReplaced) {
  dialog.mode = os::FileDialogMode::kSave;
  const std::u16string path = folder.File(u"terms.txt");
  Write(path);
  person.Expect(L"Terms", Choose(u"terms.txt"));
  EXPECT_EQ(BoxesUntilCancelled(IDNO), 1);
}

TEST_F(WindowsFileDialogs, OpenNoFileThatIsNotThere) {
  person.Expect(L"Terms", Choose(u"none.txt"));
  EXPECT_EQ(BoxesUntilCancelled(IDOK), 1);
}

}  // namespace
