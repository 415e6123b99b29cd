#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "hosts/unattended/Text.h"
#include "platform/forms/Dump.h"

/// Compares a form's dump with the text file of that name beside the tests. A difference leaves the dump beside it with
/// ".new" behind the name, to be read and promoted by hand.
inline void ExpectGolden(const std::string& name, const forms::Form& form) {
  const std::string path = std::string(KVX_GOLDEN_FOLDER) + "/" + name;
  std::ostringstream golden;
  golden << std::ifstream(path, std::ios::binary).rdbuf();
  const std::string dump = unattended::ToUtf8(forms::Dump(form));
  EXPECT_EQ(dump, golden.str());
  if (dump != golden.str()) std::ofstream(path + ".new", std::ios::binary) << dump;
}
