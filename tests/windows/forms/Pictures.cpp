// Makes pictures of every form and message box, for scripts/screenshots: forms_pictures FOLDER

#include <iostream>
#include <string>

#include "tests/windows/Picture.h"
#include "tests/windows/forms/DialogWindows.h"

namespace {

std::string folder;

void Keep(HWND window, const std::string& name) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  EXPECT_TRUE(SavePicture(window, folder + "/" + name + ".png")) << name;
}

/// The box that waits for an answer.
HWND MessageWindow() {
  HWND found = nullptr;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM value) {
        if (!IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(value) = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

class Pictures : public DialogWindows {};

TEST_F(Pictures, OfEachForm) {
  InEachWindow([](forms::Form&, const std::string& name, HWND window) { Keep(window, name); });
}

TEST_F(Pictures, OfMessages) {
  for (const Message& message : Messages()) {
    WhenIdle([&] {
      const HWND window = MessageWindow();
      ASSERT_NE(window, nullptr) << message.name;
      Keep(window, message.name);
      EndDialog(window, IDOK);
    });
    messages.Show(message.title, message.text, message.icon, message.buttons);
  }
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::cerr << "usage: forms_pictures FOLDER\n";
    return 2;
  }
  folder = argv[1];
  // As the word processor is.
  SetProcessDPIAware();
  return RUN_ALL_TESTS();
}
