#include <gtest/gtest.h>
#include <windows.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  // As the word processor is: otherwise every screen has 96 dots an inch.
  SetProcessDPIAware();
  return RUN_ALL_TESTS();
}
