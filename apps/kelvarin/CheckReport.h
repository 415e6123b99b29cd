#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/json/Json.h"

/// What `check` found out about a contract, as a JSON object of its own format, in the ways in which it is shown. The
/// object has "file", "pages", "pagesFrom", "defined" and "findings"; docs/check.md describes them.

/// A kind of finding as people read it.
struct KindOfFinding {
  std::string_view name;   ///< in JSON
  std::string_view title;  ///< over a list of such
  std::string_view about;  ///< what it means, in a sentence
};

/// In the order in which they are shown, which is that of drafting::Kind.
const std::vector<KindOfFinding>& KindsOfFindings();

/// "page 12", "footnote on page 12".
std::string WhereIs(const json::Value& place);

/// For a terminal or a mail.
std::string CheckAsText(const json::Value& check);
