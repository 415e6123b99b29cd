#include "hosts/docx/story/TextElement.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <string>

#include "hosts/docx/xml/Utf.h"
#include "platform/word/FindUnit.h"

namespace docx {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

constexpr std::string_view kSpace = "xml:space";

bool Preserves(XmlNode element) {
  for (; element; element = element.Parent()) {
    if (const XmlAttribute space = element.Attribute(kSpace)) return space.Value() == "preserve";
  }
  return false;
}

bool HasBlankEdge(std::string_view text) { return !text.empty() && (IsBlank(text.front()) || IsBlank(text.back())); }

bool IsText(XmlNode node) { return node.Type() == XmlType::kText || node.Type() == XmlType::kCData; }

/// All characters, in UTF-8. @param joined holds them where they do not stand together
std::string_view AllText(XmlNode element, std::string& joined) {
  if (const std::optional<std::string_view> only = element.OnlyText()) return *only;
  for (const XmlNode child : element.Children()) {
    if (IsText(child)) joined += child.Value();
  }
  return joined;
}

/// Those of them that count.
std::string_view Counted(XmlNode element, std::string_view all) {
  if (!HasBlankEdge(all) || Preserves(element)) return all;
  const std::size_t first = std::min(all.find_first_not_of(kBlanks), all.size());
  return all.substr(first, all.find_last_not_of(kBlanks) + 1 - first);
}

void ReplaceText(XmlNode element, std::string_view utf8) {
  if (element.OnlyText()) return element.SetOnlyText(utf8);
  XmlNode text = element.FirstChild();
  while (text && !IsText(text)) text = text.NextSibling();
  if (!text) text = element.AppendChild(XmlType::kText);
  text.SetValue(utf8);
  for (XmlNode other = text.NextSibling(); other;) {
    const XmlNode next = other.NextSibling();
    if (IsText(other)) element.RemoveChild(other);
    other = next;
  }
}

/// Gives another element what stands behind some bytes of a text of several nodes.
void MoveNodesBehind(XmlNode element, std::size_t bytes, XmlNode other) {
  XmlNode child = element.FirstChild();
  for (; bytes > 0; child = child.NextSibling()) {
    if (!IsText(child)) continue;
    const std::string text(child.Value());
    if (text.size() > bytes) {
      XmlNode rest = element.InsertChildAfter(child.Type(), child);
      rest.SetValue(std::string_view(text).substr(bytes));
      child.SetValue(std::string_view(text).substr(0, bytes));
      bytes = text.size();
    }
    bytes -= text.size();
  }
  while (child) {
    const XmlNode next = child.NextSibling();
    other.AppendMove(child);
    child = next;
  }
}

/// Undoes it.
void MoveNodesBack(XmlNode element, XmlNode other) {
  XmlNode last = element.LastChild();
  if (XmlNode next = other.FirstChild(); IsText(last) && last.Type() == next.Type()) {
    last.SetValue(std::string(last.Value()).append(next.Value()));
    other.RemoveChild(next);
  }
  while (const XmlNode child = other.FirstChild()) element.AppendMove(child);
}

void Preserve(XmlNode element) { element.SetAttribute(kSpace, "preserve"); }

// Parts of a divided text say "preserve" where they need it. Where joining them would not give back what was there, an
// instruction in front of the first says it, with the length of the whole by which the last joining is known: that the
// text said "preserve" or "default" without need, that it said nothing since something around it does, or which blanks
// stood at its edges and did not count.
constexpr std::string_view kTarget = "kelvarin";
constexpr std::string_view kPreserve = "preserve";
constexpr std::string_view kDefault = "default";
constexpr std::string_view kSilent = "silent";
constexpr std::string_view kEdges = "edges";
constexpr std::string_view kBlankLetters = "strn";  // for the blanks in their order

struct WholeText {
  std::string_view kind;
  std::size_t bytes{0};
  std::string before{};
  std::string after{};
};

std::string Spelt(std::string_view blanks) {
  std::string letters = ".";
  for (const char blank : blanks) letters += kBlankLetters[kBlanks.find(blank)];
  return letters;
}

std::string Unspelt(std::string_view letters) {
  std::string blanks;
  for (const char letter : letters) {
    const std::size_t which = kBlankLetters.find(letter);
    if (which != std::string_view::npos) blanks += kBlanks[which];
  }
  return blanks;
}

/// The instruction in front of a text, and what it says; an empty node when there is none.
XmlNode WholeMark(XmlNode element, WholeText* whole = nullptr) {
  const XmlNode mark = element.PreviousSibling();
  if (mark.Type() != XmlType::kInstruction || mark.Name() != kTarget) return {};
  std::istringstream words{std::string(mark.Value())};
  std::string kind;
  WholeText read;
  words >> kind >> read.bytes >> read.before >> read.after;
  for (const std::string_view known : {kPreserve, kDefault, kSilent, kEdges}) {
    if (kind != known) continue;
    if (whole != nullptr) *whole = {known, read.bytes, Unspelt(read.before), Unspelt(read.after)};
    return mark;
  }
  return {};
}

void PutWholeMark(XmlNode element, const std::string& says) {
  XmlNode mark = element.Parent().InsertChildBefore(XmlType::kInstruction, element);
  mark.SetTarget(kTarget);
  mark.SetValue(says);
}

/// Whether a text says of the blanks at its edges just what the parts of a divided one say.
bool IsPlain(XmlNode element, std::string_view all, std::string_view counted) {
  return all.size() == counted.size() && HasBlankEdge(counted) == static_cast<bool>(element.Attribute(kSpace));
}

/// Puts the instruction in front of a text that is to be divided, where it needs one.
void RememberWhole(XmlNode element, std::string_view all, std::string_view counted) {
  const XmlAttribute space = element.Attribute(kSpace);
  const bool hasEdges = all.size() != counted.size();
  if (IsPlain(element, all, counted) || WholeMark(element)) return;
  std::string says(hasEdges ? kEdges : !space ? kSilent : space.Value() == kDefault ? kDefault : kPreserve);
  says += " " + std::to_string(counted.size());
  if (hasEdges) {
    const auto before = static_cast<std::size_t>(counted.data() - all.data());
    says += " " + Spelt(all.substr(0, before)) + " " + Spelt(all.substr(before + counted.size()));
  }
  PutWholeMark(element, says);
}

/// Once the parts are joined to the whole, makes the text what it was.
void RecallWhole(XmlNode element, const std::string& joined) {
  WholeText whole;
  const XmlNode mark = WholeMark(element, &whole);
  if (!mark || whole.bytes != joined.size()) return;
  element.RemoveAttribute(kSpace);
  if (whole.kind == kPreserve) Preserve(element);
  if (whole.kind == kDefault) element.SetAttribute(kSpace, kDefault);
  if (whole.kind == kEdges) ReplaceText(element, whole.before + joined + whole.after);
  element.Parent().RemoveChild(mark);
}

void PreserveWhereNeeded(XmlNode element, std::string_view text) {
  if (HasBlankEdge(text)) {
    Preserve(element);
  } else {
    element.RemoveAttribute(kSpace);
  }
}

}  // namespace

std::u16string TextOf(XmlNode element) {
  std::u16string text;
  AppendTextOf(element, text);
  return text;
}

void AppendTextOf(XmlNode element, std::u16string& text) {
  const std::size_t before = text.size();
  std::string joined;
  AppendUtf16(Counted(element, AllText(element, joined)), text);
  word::ReplaceUnits(
      text, before, [](char16_t unit) { return unit < 32; }, u' ');
}

void SetText(XmlNode element, std::string_view utf8) {
  ReplaceText(element, utf8);
  if (HasBlankEdge(utf8)) Preserve(element);
}

XmlNode DivideText(XmlNode element, std::size_t units) {
  const bool isPlain = element.HoldsPlainText();
  std::string joined;
  const std::string_view all = AllText(element, joined);
  const std::string_view text = Counted(element, all);
  const std::size_t bytes = Utf8Prefix(text, units);
  RememberWhole(element, all, text);
  XmlNode second = element.Parent().InsertChildAfter(element.Entry(), element);
  second.CopyAttributes(element);
  const bool isOneText = isPlain || element.OnlyText().has_value();
  if (!isOneText && text.size() == all.size()) {
    MoveNodesBehind(element, bytes, second);
    PreserveWhereNeeded(second, text.substr(bytes));
    PreserveWhereNeeded(element, text.substr(0, bytes));
    return second;
  }
  const auto fill = [isPlain, isOneText](XmlNode part, std::string_view piece) {
    if (isPlain) {
      part.SharePlainText(piece);
    } else if (isOneText) {
      part.ShareOnlyText(piece);
    } else {
      ReplaceText(part, piece);
    }
    PreserveWhereNeeded(part, piece);
  };
  fill(second, text.substr(bytes));
  fill(element, text.substr(0, bytes));
  return second;
}

XmlNode WithItsMark(XmlNode element) {
  const XmlNode mark = WholeMark(element);
  return mark ? mark : element;
}

bool ComesBackFromJoining(XmlNode element) {
  std::string joined;
  const std::string_view all = AllText(element, joined);
  return IsPlain(element, all, Counted(element, all));
}

void JoinText(XmlNode first, XmlNode second) {
  std::string joined;
  const std::string_view all = AllText(first, joined);
  std::string text(Counted(first, all));
  std::string joinedBehind;
  const std::string_view allBehind = AllText(second, joinedBehind);
  const std::string_view behind = Counted(second, allBehind);
  const bool isOneText = first.OnlyText() && second.OnlyText();
  const bool keepsNodes = !isOneText && text.size() == all.size() && behind.size() == allBehind.size();
  text += behind;
  if (keepsNodes) MoveNodesBack(first, second);
  first.Parent().RemoveChild(second);
  if (!keepsNodes) ReplaceText(first, text);
  PreserveWhereNeeded(first, text);
  RecallWhole(first, text);
}

}  // namespace docx
