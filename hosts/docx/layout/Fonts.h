#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/docx/layout/FontNames.h"

namespace docx::layout {

/// One style of a font family, or what stands in for it. Measures in ems: times the font size they are lengths.
class Font {
 public:
  /// A font file opened; one of its faces.
  struct File;

  /// What a document asks for, and what is taken for it.
  struct Names {
    std::string wanted;  ///< in lower case
    std::string family;  ///< installed; that which is wanted where nothing is
    bool bold{false};
    bool italic{false};
  };

  /// @param file nullptr when nothing that could stand in is installed: widths are estimated then
  /// @param forOthers what characters are taken from that the file lacks; may be nullptr
  Font(Names names, std::shared_ptr<File> file, std::shared_ptr<File> forOthers, double widthFactor, LineMetrics line);
  ~Font();
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  const Names& Name() const { return names_; }
  /// Times the widths of the family's own letters.
  double WidthFactor() const { return widthFactor_; }
  const LineMetrics& Line() const { return line_; }
  /// 0 for characters that only modify others. Of one that the font lacks, what another font would take.
  double Advance(char32_t character) const;
  /// The advance of a text that has to be shaped: with ligatures and kerning, joined and reordered as its script wants.
  double ShapedAdvance(std::u16string_view text, bool rightToLeft) const;

 private:
  double Measure(char32_t character) const;
  /// That has a character, and how wide the font's own would be in comparison to it; nullptr for none.
  const File* FileFor(char32_t character, double& factor) const;

  Names names_;
  std::shared_ptr<File> file_;
  std::shared_ptr<File> forOthers_;
  double widthFactor_;
  LineMetrics line_;
  static constexpr std::size_t kDirect = 0x250;
  mutable std::array<float, kDirect> direct_;
  mutable std::unordered_map<char32_t, float> others_;
};

/// The fonts of one machine, found by name. Fonts stay valid as long as the library.
class FontLibrary {
 public:
  FontLibrary();
  ~FontLibrary();
  FontLibrary(const FontLibrary&) = delete;
  FontLibrary& operator=(const FontLibrary&) = delete;

  /// What a document says of a family, should nobody know it.
  struct Description {
    FontClass kind{FontClass::kSwiss};
    std::string otherName;  ///< empty for none
    bool replaced{false};   ///< Word did not have the family, and took the other one
  };
  void Describe(std::string_view family, Description description);
  /// A number for a family name; equal for names that differ in ASCII case only.
  int Family(std::string_view name);
  const Font& Get(int family, bool bold, bool italic);

 private:
  std::unique_ptr<Font> Make(const std::string& wanted, bool bold, bool italic);
  std::shared_ptr<Font::File> Open(const std::string& family, bool bold, bool italic);

  std::map<std::string, int, std::less<>> families_;
  std::vector<std::string> names_;
  std::map<std::string, Description, std::less<>> descriptions_;
  std::unordered_map<int, std::unique_ptr<Font>> fonts_;
  std::map<std::string, std::shared_ptr<Font::File>> files_;
};

}  // namespace docx::layout
