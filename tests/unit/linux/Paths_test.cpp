#include "hosts/linux/Paths.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Paths, SeparatorsOfBothKindsBecomeOne) {
  EXPECT_EQ(os::ToPosixPath(u"\\home\\a\\\\kvx.ini"), "/home/a/kvx.ini");
  EXPECT_EQ(os::ToPosixPath(u"/home//a\\/b"), "/home/a/b");
  EXPECT_EQ(os::ToPosixPath(u""), "");
}

TEST(Paths, WindowsFormHasBackslashes) {
  EXPECT_EQ(os::ToWindowsPath("/home/a b/\xC3\xA9.docx"), u"\\home\\a b\\\u00E9.docx");
}

TEST(Paths, EveryPosixPathComesBack) {
  const std::string paths[] = {"/a\\b/c", "/\xFF\x80/x", "/\xE2\x82",  "/\xF0\x9F\x98\x80", "relative",
                               ".",       "/",           "/e\xCC\x81", "/\xED\xA0\x80"};
  for (const std::string& path : paths) EXPECT_EQ(os::ToPosixPath(os::ToWindowsPath(path)), path);
}

TEST(Paths, ABackslashInANameIsNoSeparator) { EXPECT_EQ(os::ToWindowsPath("a\\b"), u"a\uF05Cb"); }

}  // namespace
