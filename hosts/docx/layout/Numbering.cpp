#include "hosts/docx/layout/Numbering.h"

#include <algorithm>
#include <utility>

#include "hosts/docx/pages/PageLabels.h"
#include "hosts/docx/xml/Utf.h"

namespace docx::layout {

namespace {

std::string Words(int number) {
  constexpr std::array<const char*, 20> kOnes{
      "zero", "one",    "two",    "three",    "four",     "five",    "six",     "seven",     "eight",    "nine",
      "ten",  "eleven", "twelve", "thirteen", "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
  constexpr std::array<const char*, 10> kTens{"",      "",      "twenty",  "thirty", "forty",
                                              "fifty", "sixty", "seventy", "eighty", "ninety"};
  if (number < 0 || number > 999) return std::to_string(number);
  if (number >= 100) {
    const std::string hundreds = std::string(kOnes[static_cast<std::size_t>(number / 100)]) + " hundred";
    return number % 100 == 0 ? hundreds : hundreds + " " + Words(number % 100);
  }
  if (number < 20) return kOnes[static_cast<std::size_t>(number)];
  const std::string tens = kTens[static_cast<std::size_t>(number / 10)];
  return number % 10 == 0 ? tens : tens + "-" + kOnes[static_cast<std::size_t>(number % 10)];
}

std::string OrdinalWords(int number) {
  std::string words = Words(number);
  const std::array<std::pair<const char*, const char*>, 8> irregular{{{"one", "first"},
                                                                      {"two", "second"},
                                                                      {"three", "third"},
                                                                      {"five", "fifth"},
                                                                      {"eight", "eighth"},
                                                                      {"nine", "ninth"},
                                                                      {"twelve", "twelfth"},
                                                                      {"y", "ieth"}}};
  for (const auto& [cardinal, ordinal] : irregular) {
    if (words.ends_with(cardinal)) return words.substr(0, words.size() - std::string_view(cardinal).size()) + ordinal;
  }
  return words + "th";
}

std::string Capitalized(std::string words) {
  if (!words.empty() && words[0] >= 'a' && words[0] <= 'z') words[0] = static_cast<char>(words[0] - 'a' + 'A');
  return words;
}

std::string Ordinal(int number) {
  const int tens = number % 100;
  const char* ending = "th";
  if (tens < 11 || tens > 13) {
    if (number % 10 == 1) ending = "st";
    if (number % 10 == 2) ending = "nd";
    if (number % 10 == 3) ending = "rd";
  }
  return std::to_string(number) + ending;
}

void ReadLevel(const XmlPart& part, XmlNode node, FontLibrary& fonts, const ThemeFonts& theme, NumberLevel& level) {
  level.start = NumberOf(part, part.Child(node, "start")).value_or(0);
  if (const auto format = part.Child(node, "numFmt")) level.format = ValueOf(part, format);
  level.text = ToUtf16(ValueOf(part, part.Child(node, "lvlText")));
  const std::string_view suffix = ValueOf(part, part.Child(node, "suff"));
  level.suffix = suffix == "space"     ? NumberSuffix::kSpace
                 : suffix == "nothing" ? NumberSuffix::kNothing
                                       : NumberSuffix::kTab;
  const std::string_view alignment = ValueOf(part, part.Child(node, "lvlJc"));
  level.alignment = alignment == "center"                        ? Alignment::kCenter
                    : alignment == "right" || alignment == "end" ? Alignment::kRight
                                                                 : Alignment::kLeft;
  level.legal = OnOffOf(part, part.Child(node, "isLgl")).value_or(false);
  level.restartAfter = NumberOf(part, part.Child(node, "lvlRestart"));
  level.style = ValueOf(part, part.Child(node, "pStyle"));
  level.run = ReadCharacterValues(part, part.Child(node, Tag::kRPr), fonts, theme);
  level.paragraph = ReadParagraphFormat(part, part.Child(node, Tag::kPPr));
}

std::size_t IndexOf(const XmlPart& part, XmlNode level) {
  return static_cast<std::size_t>(std::clamp(NumberOf(part, level, "ilvl").value_or(0), 0, 8));
}

}  // namespace

Numbering::Numbering(const XmlPart* part, const XmlPart* styles, FontLibrary& fonts, const ThemeFonts& theme) {
  if (part == nullptr) return;
  struct Abstract {
    std::array<NumberLevel, kLevels> levels;
    std::string link;  // a style whose list this one stands for
  };
  std::map<std::string, Abstract, std::less<>> abstracts;
  const XmlNode root = part->Root();
  for (const XmlNode node : root.Children(part->Name("abstractNum"))) {
    Abstract& abstract = abstracts[std::string(part->Attribute(node, "abstractNumId").Value())];
    abstract.link = ValueOf(*part, part->Child(node, "numStyleLink"));
    for (const XmlNode level : node.Children(part->Name("lvl"))) {
      ReadLevel(*part, level, fonts, theme, abstract.levels[IndexOf(*part, level)]);
    }
  }
  std::map<std::string, std::string, std::less<>> abstractOf;
  for (const XmlNode node : root.Children(part->Name("num"))) {
    abstractOf[std::string(part->Attribute(node, "numId").Value())] =
        ValueOf(*part, part->Child(node, "abstractNumId"));
  }
  // A list may stand for the list of a numbering style; one step is all that Word writes.
  std::map<std::string, std::string, std::less<>> listOfStyle;
  if (styles != nullptr) {
    for (const XmlNode style : styles->Root().Children(styles->Name("style"))) {
      const XmlNode numPr = styles->Child(styles->Child(style, Tag::kPPr), "numPr");
      if (!numPr) continue;
      const std::string id(styles->Attribute(style, "styleId").Value());
      listOfStyle[id] = ValueOf(*styles, styles->Child(numPr, "numId"));
    }
  }
  for (const XmlNode node : root.Children(part->Name("num"))) {
    const std::string id(part->Attribute(node, "numId").Value());
    std::string abstractId = abstractOf[id];
    auto abstract = abstracts.find(abstractId);
    if (abstract == abstracts.end()) continue;
    if (!abstract->second.link.empty()) {
      const auto linked = abstracts.find(abstractOf[listOfStyle[abstract->second.link]]);
      if (linked != abstracts.end()) {
        abstractId = linked->first;
        abstract = linked;
      }
    }
    List& list = lists_[id];
    list.abstractId = abstractId;
    list.levels = abstract->second.levels;
    for (const XmlNode change : node.Children(part->Name("lvlOverride"))) {
      NumberLevel& level = list.levels[IndexOf(*part, change)];
      if (const XmlNode own = part->Child(change, "lvl")) {
        level = {};
        ReadLevel(*part, own, fonts, theme, level);
      }
      level.startOverride = NumberOf(*part, part->Child(change, "startOverride"));
    }
  }
}

const Numbering::List* Numbering::Find(std::string_view id) const {
  const auto found = lists_.find(id);
  return found == lists_.end() ? nullptr : &found->second;
}

std::optional<int> Numbering::LevelOf(const List& list, std::string_view style) {
  for (std::size_t i = 0; i < kLevels; ++i) {
    if (!style.empty() && list.levels[i].style == style) return static_cast<int>(i);
  }
  return {};
}

std::u16string NumberCounters::Next(const std::string& id, const Numbering::List& list, int level) {
  Counter& counter = counters_[list.abstractId];
  const auto at = static_cast<std::size_t>(level);
  bool& overridden = overridden_[{id, level}];
  const NumberLevel& wanted = list.levels[at];
  if (wanted.startOverride && !overridden) counter.begun[at] = false;
  counter.numbers[at] = counter.begun[at]                     ? counter.numbers[at] + 1
                        : wanted.startOverride && !overridden ? *wanted.startOverride
                                                              : wanted.start;
  overridden = true;
  counter.begun[at] = true;
  for (std::size_t deeper = at + 1; deeper < Numbering::kLevels; ++deeper) {
    const std::optional<int> after = list.levels[deeper].restartAfter;
    if (!after || (*after > 0 && level < *after)) counter.begun[deeper] = false;
  }
  if (wanted.format == "bullet") return wanted.text;

  std::u16string label;
  for (std::size_t i = 0; i < wanted.text.size(); ++i) {
    const char16_t c = wanted.text[i];
    const char16_t next = i + 1 < wanted.text.size() ? wanted.text[i + 1] : u' ';
    if (c != u'%' || next < u'1' || next > u'9') {
      label += c;
      continue;
    }
    ++i;
    const auto shown = static_cast<std::size_t>(next - u'1');
    const NumberLevel& other = list.levels[shown];
    // A higher level that has had no paragraph shows the number that it would begin with.
    const int number = counter.begun[shown] || shown == at ? counter.numbers[shown] : other.start;
    label += FormatListNumber(wanted.legal && other.format != "decimalZero" ? "decimal" : other.format, number);
  }
  return label;
}

std::u16string FormatListNumber(std::string_view format, int number) {
  if (format == "none" || format == "bullet") return {};
  if (format == "ordinal") return ToUtf16(Ordinal(number));
  if (format == "cardinalText") return ToUtf16(Capitalized(Words(number)));
  if (format == "ordinalText") return ToUtf16(Capitalized(OrdinalWords(number)));
  return FormatPageNumber(format, number);
}

}  // namespace docx::layout
