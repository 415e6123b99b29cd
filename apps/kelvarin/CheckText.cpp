#include "apps/kelvarin/CheckReport.h"

namespace {

using Json = json::Value;

std::string Text(const Json& object, const char* member) { return object.at(member).get<std::string>(); }

std::string Counted(std::size_t number, const std::string& noun) {
  return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
}

std::string Line(const Json& finding) {
  const int count = finding.at("count").get<int>();
  const std::string text = Text(finding, "text");
  const std::string term = Text(finding, "term");
  std::string line = "    " + text;
  if (!term.empty() && term != text && text.find(term) == std::string::npos) line += " (defined as " + term + ")";
  line += ": " + WhereIs(finding);
  if (count > 1) line += ", " + std::to_string(count) + " times";
  if (finding.contains("other")) line += "; defined on " + WhereIs(finding.at("other"));
  return line + "\n        " + Text(finding, "sentence") + "\n";
}

}  // namespace

const std::vector<KindOfFinding>& KindsOfFindings() {
  static const std::vector<KindOfFinding> kinds{
      {"definedTwice", "Defined more than once", "Each of these places gives the term a meaning."},
      {"notDefined", "Used and not defined",
       "Written as a defined term is, with capitals and an article, and no definition was found."},
      {"notUsed", "Defined and not used", "The contract does not use the term outside of its definition."},
      {"usedOnce", "Used only once", "A definition may not be worth its while for one use."},
      {"usedBefore", "Used before its definition",
       "The term is defined in passing, and stands in an earlier paragraph already."},
      {"otherCase", "Written without its capitals",
       "The words of the term, spelt otherwise: it is not clear whether the term is meant."},
      {"otherNumber", "In another number",
       "Singular and plural differ. An index of defined terms lists the term as it is defined."},
      {"article", "Article inside the quotation marks",
       "The term is what stands in quotation marks, without the article."},
      {"mixedQuotes", "Quotation marks of another style",
       "Most definitions of the contract have quotation marks of one style; these do not."},
      {"unpairedQuotes", "Quotation mark without a partner",
       "A contract with an odd quotation mark cannot be indexed."},
  };
  return kinds;
}

std::string WhereIs(const Json& place) {
  constexpr int kFootnotes = 2;
  constexpr int kEndnotes = 3;
  const int story = place.at("story").get<int>();
  const std::string page = "page " + std::to_string(place.at("page").get<int>());
  if (story == kFootnotes) return "footnote on " + page;
  return story == kEndnotes ? "endnote on " + page : page;
}

std::string CheckAsText(const Json& check) {
  const Json& findings = check.at("findings");
  std::string text = Text(check, "file") + ": " + Counted(check.at("defined").size(), "defined term") + ", " +
                     Counted(findings.size(), "finding") + "\n";
  for (const KindOfFinding& kind : KindsOfFindings()) {
    std::string lines;
    for (const Json& finding : findings) {
      if (Text(finding, "kind") == kind.name) lines += Line(finding);
    }
    if (!lines.empty()) text.append("\n  ").append(kind.title).append("\n").append(lines);
  }
  return text;
}
