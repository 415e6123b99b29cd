#include "hosts/docx/package/PartName.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace docx {

namespace {

std::vector<std::string_view> Segments(std::string_view path) {
  std::vector<std::string_view> segments;
  while (true) {
    const std::size_t slash = path.find('/');
    segments.push_back(path.substr(0, slash));
    if (slash == std::string_view::npos) return segments;
    path.remove_prefix(slash + 1);
  }
}

/// With the "/" at its end; empty at the top.
std::string_view Folder(std::string_view part) {
  const std::size_t slash = part.rfind('/');
  return slash == std::string_view::npos ? std::string_view() : part.substr(0, slash + 1);
}

std::optional<int> HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return std::nullopt;
}

std::string Unescape(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      const auto high = HexDigit(text[i + 1]);
      const auto low = HexDigit(text[i + 2]);
      if (high && low) {
        result += static_cast<char>(*high * 16 + *low);
        i += 2;
        continue;
      }
    }
    result += text[i];
  }
  return result;
}

}  // namespace

bool IsSafePartName(std::string_view name) {
  if (name.empty() || name.front() == '/' || name.substr(1, 1) == ":") return false;
  for (const char c : name) {
    if (c == '\\' || static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return false;
  }
  const auto segments = Segments(name);
  return std::none_of(segments.begin(), segments.end(),
                      [](std::string_view segment) { return segment == ".." || segment == "."; });
}

std::string FoldPartName(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

std::string RelationshipsPartName(std::string_view part) {
  const std::string_view folder = Folder(part);
  std::string name(folder);
  name += "_rels/";
  name += part.substr(folder.size());
  name += ".rels";
  return name;
}

std::string ResolveTarget(std::string_view source, std::string_view target) {
  target = target.substr(0, target.find('#'));
  std::string path = target.starts_with('/') ? std::string() : std::string(Folder(source));
  path += Unescape(target);

  std::vector<std::string_view> kept;
  for (const std::string_view segment : Segments(path)) {
    if (segment.empty() || segment == ".") continue;
    if (segment != "..") {
      kept.push_back(segment);
    } else if (!kept.empty()) {
      kept.pop_back();
    }
  }
  std::string name;
  for (const std::string_view segment : kept) {
    if (!name.empty()) name += '/';
    name += segment;
  }
  return name;
}

std::string MakeTarget(std::string_view source, std::string_view part) {
  std::string target;
  const std::string_view folder = Folder(source);
  if (!part.starts_with(folder)) {
    target = '/';
  } else {
    part.remove_prefix(folder.size());
  }
  constexpr std::string_view kHex = "0123456789ABCDEF";
  for (const char c : part) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7F && std::string_view("%#?\"<>\\^`{|}").find(c) == std::string_view::npos) {
      target += c;
    } else {
      target += '%';
      target += kHex[byte >> 4];
      target += kHex[byte & 15];
    }
  }
  return target;
}

}  // namespace docx
