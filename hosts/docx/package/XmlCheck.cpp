#include "hosts/docx/package/XmlCheck.h"

#include "hosts/docx/package/Package.h"
#include "hosts/docx/package/XmlScanner.h"

#include <cstdint>
#include <utility>

namespace docx {

namespace {

/// Lets everything pass.
struct NoHandler {
  void Attribute(std::string_view) {}
  void Start(std::string_view, std::string_view, bool) {}
  void End(const char*) {}
  void Text(const char*, const char*) {}
  void CData(const char*, const char*) {}
  void Comment(const char*, const char*) {}
  void Instruction(std::string_view, std::string_view) {}
};

void AppendUtf8(std::string& text, std::uint32_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
    return;
  }
  if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
  } else {
    if (c < 0x10000) {
      text += static_cast<char>(0xE0 | (c >> 12));
    } else {
      text += static_cast<char>(0xF0 | (c >> 18));
      text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    }
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
  }
  text += static_cast<char>(0x80 | (c & 0x3F));
}

std::string FromUtf16(std::string_view bytes, bool bigEndian, const std::string& partName) {
  const auto damaged = [&partName] {
    throw PackageError("is damaged or not accepted: " + partName + " is not valid UTF-16");
  };
  if (bytes.size() % 2 != 0) damaged();
  const auto unit = [&](std::size_t i) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return static_cast<std::uint32_t>(bigEndian ? first << 8 | second : second << 8 | first);
  };
  std::string text;
  text.reserve(bytes.size() / 2 + bytes.size() / 8);
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    std::uint32_t c = unit(i);
    if (c >= 0xD800 && c < 0xDC00 && i + 2 < bytes.size()) {
      const std::uint32_t low = unit(i + 2);
      if (low < 0xDC00 || low > 0xDFFF) damaged();
      c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
      i += 2;
    } else if (c >= 0xD800 && c <= 0xDFFF) {
      damaged();
    }
    AppendUtf8(text, c);
  }
  return text;
}

/// Where the XML declaration names the encoding: offset and length of the name; nothing where it does not.
std::pair<std::size_t, std::size_t> DeclaredEncoding(std::string_view xml) {
  const std::size_t start = xml.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  if (xml.substr(start, 5) != "<?xml") return {0, 0};
  const std::string_view declaration = xml.substr(0, xml.find("?>"));
  std::size_t at = declaration.find("encoding", start);
  if (at == std::string_view::npos) return {0, 0};
  at = declaration.find_first_of("\"'", at);
  if (at == std::string_view::npos) return {0, 0};
  const std::size_t close = declaration.find(declaration[at], at + 1);
  if (close == std::string_view::npos) return {0, 0};
  return {at + 1, close - at - 1};
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

}  // namespace

void CheckXml(std::string_view bytes, const std::string& partName) {
  NoHandler handler;
  XmlScanner<NoHandler>(bytes, partName, handler).Run();
}

std::string ToUtf8(std::string bytes, const std::string& partName) {
  using namespace std::string_view_literals;
  const std::string_view view = bytes;
  const bool littleMark = view.starts_with("\xFF\xFE"sv);
  const bool bigMark = view.starts_with("\xFE\xFF"sv);
  if (littleMark || bigMark || (view.size() >= 4 && (view.starts_with("<\0"sv) || view.starts_with("\0<"sv)))) {
    const bool bigEndian = bigMark || view.starts_with("\0"sv);
    std::string text = FromUtf16(view.substr(littleMark || bigMark ? 2 : 0), bigEndian, partName);
    const auto [at, length] = DeclaredEncoding(text);
    if (length != 0) text.replace(at, length, "UTF-8");
    return text;
  }
  const auto [at, length] = DeclaredEncoding(view);
  const std::string encoding = Lower(view.substr(at, length));
  if (!encoding.empty() && encoding != "utf-8" && encoding != "utf8" && encoding != "us-ascii" && encoding != "ascii") {
    throw PackageError("is damaged or not accepted: " + partName + " is neither in UTF-8 nor in UTF-16");
  }
  return bytes;
}

}  // namespace docx
