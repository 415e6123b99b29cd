#include "apps/kelvarin/CheckPage.h"

#include <array>
#include <cerrno>
#include <cstring>

#include "apps/kelvarin/CheckReport.h"
#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/Status.h"
#include "hosts/unattended/Text.h"

namespace {

using Json = json::Value;

constexpr char kHead[] = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<title>Defined terms: findings</title>
<style>
  :root { color-scheme: light dark; --ink: #1d2329; --soft: #59636e; --line: #d5dae0; --paper: #fff; --band: #f4f6f8;
          --mark: #ffe69a; --accent: #1f4e79; }
  @media (prefers-color-scheme: dark) {
    :root { --ink: #e6e9ec; --soft: #a3adb8; --line: #3a434c; --paper: #16191d; --band: #1f242a; --mark: #6b5200; --accent: #8fbbe6; }
  }
  body { margin: 2.5rem auto; max-width: 62rem; padding: 0 1.5rem; background: var(--paper); color: var(--ink);
         font: 16px/1.5 "Carlito", "Calibri", "Segoe UI", "Helvetica Neue", Arial, sans-serif; }
  h1 { font-size: 1.7rem; margin: 0 0 .2rem; }
  h2 { font-size: 1.3rem; margin: 3rem 0 .2rem; padding-top: 1rem; border-top: 2px solid var(--accent); overflow-wrap: anywhere; }
  h3 { font-size: 1.05rem; margin: 1.6rem 0 0; color: var(--accent); }
  p { margin: .1rem 0 .6rem; }
  .soft { color: var(--soft); }
  a { color: var(--accent); }
  table { border-collapse: collapse; width: 100%; margin: .3rem 0 1rem; }
  th { text-align: left; font-weight: 600; color: var(--soft); border-bottom: 2px solid var(--line); }
  th, td { padding: .35rem .6rem .35rem 0; vertical-align: top; }
  td, tbody th { border-bottom: 1px solid var(--line); }
  tbody th { color: inherit; overflow-wrap: anywhere; }
  .number { text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
  .contracts tbody th { font-weight: 400; }
  .findings tbody th { width: 22%; min-width: 7.5rem; hyphens: auto; }
  .findings td:nth-child(2) { width: 16%; }
  .where { color: var(--soft); font-weight: 400; }
  mark { background: var(--mark); color: var(--ink); padding: 0 .1em; border-radius: 2px; }
  .other { color: var(--soft); margin: .25rem 0 0; }
  summary { cursor: pointer; color: var(--accent); margin-top: 1.2rem; }
  @media print {
    :root { --ink: #000; --soft: #444; --paper: #fff; --mark: #e6e6e6; --line: #bbb; --accent: #000; }
    body { max-width: none; margin: 0; padding: 0; font-size: 10pt; }
    h2 { break-before: page; border: 0; padding: 0; margin-top: 0; }
    h3 { break-after: avoid; }
    tr { break-inside: avoid; }
    thead { display: table-header-group; }
    mark { border-bottom: 1px solid #000; }
    a { text-decoration: none; }
    details { display: none; }
  }
</style>
</head>
<body>
<h1>Defined terms: findings</h1>
)html";

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

std::string Escaped(std::string_view text) {
  std::string html;
  for (const char unit : text) {
    switch (unit) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        // No page may hold control characters; a name may.
        html += static_cast<unsigned char>(unit) < ' ' ? std::string(kReplacement) : std::string(1, unit);
    }
  }
  return html;
}

std::string Text(const Json& object, const char* member) { return object.at(member).get<std::string>(); }

/// What the row is about.
std::string HeadCell(const std::string& content) { return "<th scope=\"row\">" + content + "</th>"; }

std::string Cell(const std::string& content, const char* kind = nullptr) {
  return (kind != nullptr ? std::string("<td class=\"") + kind + "\">" : std::string("<td>")) + content + "</td>";
}

/// The sentence with the words in question marked.
std::string Sentence(const Json& place) {
  const std::u16string sentence = unattended::FromUtf8(Text(place, "sentence"));
  const auto begin = place.at("begin").get<std::size_t>();
  const auto end = place.at("end").get<std::size_t>();
  if (begin > end || end > sentence.size()) return Escaped(Text(place, "sentence"));
  const auto piece = [&sentence](std::size_t from, std::size_t to) {
    return Escaped(unattended::ToUtf8(sentence.substr(from, to - from)));
  };
  return piece(0, begin) + "<mark>" + piece(begin, end) + "</mark>" + piece(end, sentence.size());
}

std::string Row(const Json& finding) {
  const std::string term = Text(finding, "term");
  const std::string text = Text(finding, "text");
  const int count = finding.at("count").get<int>();
  std::string name = Escaped(text);
  if (!term.empty() && text.find(term) == std::string::npos) {
    name += "<div class=\"where\">defined as " + Escaped(term) + "</div>";
  }
  std::string where = WhereIs(finding);
  if (count > 1) where += "<div class=\"where\">" + std::to_string(count) + " places</div>";
  std::string said = Sentence(finding);
  if (finding.contains("other")) {
    const Json& other = finding.at("other");
    said += "<div class=\"other\">Defined on " + WhereIs(other) + ": " + Sentence(other) + "</div>";
  }
  return "<tr>" + HeadCell(name) + Cell(where) + Cell(said) + "</tr>\n";
}

std::string Findings(const Json& check) {
  std::string html;
  for (const KindOfFinding& kind : KindsOfFindings()) {
    std::string rows;
    for (const Json& finding : check.at("findings")) {
      if (Text(finding, "kind") == kind.name) rows += Row(finding);
    }
    if (rows.empty()) continue;
    html.append("<h3>").append(kind.title).append("</h3>\n<p class=\"soft\">").append(kind.about);
    html.append(
        "</p>\n<table class=\"findings\"><thead><tr><th scope=\"col\">Term</th><th scope=\"col\">Where</th><th "
        "scope=\"col\">Text</th></tr></thead>\n<tbody>\n");
    html.append(rows).append("</tbody></table>\n");
  }
  return html.empty() ? "<p>Nothing was found that calls for a look.</p>\n" : html;
}

std::string Definitions(const Json& check) {
  const Json& defined = check.at("defined");
  if (defined.empty()) return "";
  std::string html = "<details><summary>All " + std::to_string(defined.size()) +
                     " defined terms</summary>\n<table><thead>" +
                     "<tr><th scope=\"col\">Term</th><th scope=\"col\">Defined on</th><th scope=\"col\" "
                     "class=\"number\">Uses</th></tr></thead>\n<tbody>\n";
  for (const Json& term : defined) {
    html += "<tr>" + HeadCell(Escaped(Text(term, "term"))) + Cell(WhereIs(term)) +
            Cell(std::to_string(term.at("uses").get<int>()), "number") + "</tr>\n";
  }
  return html + "</tbody></table></details>\n";
}

}  // namespace

CheckPage::CheckPage() : parts_(std::tmpfile()) {
  if (!parts_) throw Failure(kUnreadable, std::string("no temporary file can be made: ") + std::strerror(errno));
}

void CheckPage::Keep(const std::string& html) {
  if (std::fwrite(html.data(), 1, html.size(), parts_.get()) != html.size()) {
    throw Failure(kUnreadable, std::string("a temporary file cannot be written: ") + std::strerror(errno));
  }
}

void CheckPage::Add(const Json& check) {
  const std::string anchor = NextAnchor();
  const std::string file = Escaped(Text(check, "file"));
  const std::size_t count = check.at("findings").size();
  const std::string pages = std::to_string(check.at("pages").get<int>());
  const std::string defined = std::to_string(check.at("defined").size());
  findings_ += count;
  rows_.push_back("<tr>" + HeadCell("<a href=\"#" + anchor + "\">" + file + "</a>") + Cell(pages, "number") +
                  Cell(defined, "number") + Cell(std::to_string(count), "number") + "</tr>\n");
  Keep("<h2 id=\"" + anchor + "\">" + file + "</h2>\n<p class=\"soft\">" + pages +
       (pages == "1" ? " page, " : " pages, ") + defined +
       (defined == "1" ? " defined term</p>\n" : " defined terms</p>\n") + Findings(check) + Definitions(check));
}

void CheckPage::AddFailure(const std::string& file, const std::string& reason) {
  ++failures_;
  rows_.push_back("<tr>" + HeadCell(Escaped(file)) + "<td colspan=\"3\">" + Escaped(reason) + "</td></tr>\n");
}

void CheckPage::Write(const std::filesystem::path& target) {
  TextSink sink(target);
  sink.Write(kHead);
  const auto counted = [](std::size_t number, const std::string& noun) {
    return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
  };
  sink.Write("<p class=\"soft\">" + counted(rows_.size(), "contract") + ", " + counted(findings_, "finding") +
             (failures_ > 0 ? ", " + std::to_string(failures_) + " could not be checked" : "") + "</p>\n");
  sink.Write(
      "<table class=\"contracts\"><thead><tr><th scope=\"col\">Contract</th><th scope=\"col\" "
      "class=\"number\">Pages</th>"
      "<th scope=\"col\" class=\"number\">Defined terms</th><th scope=\"col\" "
      "class=\"number\">Findings</th></tr></thead>\n"
      "<tbody>\n");
  for (const std::string& row : rows_) sink.Write(row);
  sink.Write("</tbody></table>\n");
  std::rewind(parts_.get());
  std::array<char, 1U << 16> piece{};
  while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), parts_.get())) {
    sink.Write(std::string(piece.data(), size));
  }
  if (std::ferror(parts_.get()) != 0) throw Failure(kUnreadable, "a temporary file cannot be read");
  sink.Write("</body>\n</html>\n");
  sink.Finish();
}
