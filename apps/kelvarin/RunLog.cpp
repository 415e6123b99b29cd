#include "apps/kelvarin/RunLog.h"

#include <algorithm>
#include <string>

namespace {

using Json = json::Value;

/// A list as the companion gives it, terms separated by line ends.
Json ToList(const std::string& text) {
  std::vector<std::string> terms;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find("\r\n", start), text.size());
    if (end > start) terms.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  std::sort(terms.begin(), terms.end());
  return terms;
}

bool Failed(const Json& result) { return result.is_object() && result.contains("error"); }

}  // namespace

void RunLog::WordPut(std::string_view member, const Json& value) {
  if (next_ != nullptr) next_->WordPut(member, value);
}

void RunLog::WordCall(std::string_view member, const Json& value) {
  if (next_ != nullptr) next_->WordCall(member, value);
}

void RunLog::Marker(std::string_view operation, const Json& arguments, const Json& result) {
  if (next_ != nullptr) next_->Marker(operation, arguments, result);
  if (Failed(result)) return;
  if (operation == "BuildTermTable") {
    chosen = arguments.at(2);
  } else if (operation == "GetUnusedAndMissing") {
    table = arguments.at(0);
    notUsed = ToList(result.at(0).get<std::string>());
    notFound = ToList(result.at(1).get<std::string>());
  } else if (operation == "InsertIndex") {
    inserted_ = true;
  } else if (operation == "EndIndexing") {
    ended_ = true;
  }
}
