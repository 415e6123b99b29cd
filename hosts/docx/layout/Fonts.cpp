#include "hosts/docx/layout/Fonts.h"

#include <fontconfig/fontconfig.h>
#include <hb-ot.h>
#include <hb.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace docx::layout {

struct Font::File {
  explicit File(const std::string& path, unsigned index) {
    hb_blob_t* blob = hb_blob_create_from_file(path.c_str());
    face = hb_face_create(blob, index);
    hb_blob_destroy(blob);
    font = hb_font_create(face);
    unitsPerEm = std::max(1U, hb_face_get_upem(face));
    buffer = hb_buffer_create();
  }
  ~File() {
    hb_buffer_destroy(buffer);
    hb_font_destroy(font);
    hb_face_destroy(face);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  double Metric(hb_ot_metrics_tag_t tag) const {
    hb_position_t value = 0;
    hb_ot_metrics_get_position(font, tag, &value);
    return static_cast<double>(value) / unitsPerEm;
  }

  /// Windows takes the clipping area for the line, and adds what the maker's own leading has beyond it.
  LineMetrics Line() const {
    const double ascent = Metric(HB_OT_METRICS_TAG_HORIZONTAL_CLIPPING_ASCENT);
    const double descent = Metric(HB_OT_METRICS_TAG_HORIZONTAL_CLIPPING_DESCENT);
    hb_font_extents_t extents{};
    hb_font_get_h_extents(font, &extents);
    const double own = static_cast<double>(extents.ascender - extents.descender + extents.line_gap) / unitsPerEm;
    return {ascent, descent, std::max(0.0, own - ascent - descent)};
  }

  hb_face_t* face;
  hb_font_t* font;
  hb_buffer_t* buffer;
  double unitsPerEm;
};

namespace {

/// What is taken for letters that a font lacks here, and how wide the letters of text fonts are in comparison to it.
constexpr const char* kForOthers = "DejaVu Sans";
constexpr double kOthersFactor = 0.85;

/// What a character takes in a font that nobody has seen.
double Estimate(char32_t character) {
  const auto c = static_cast<UChar32>(character);
  switch (u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH)) {
    case U_EA_FULLWIDTH:
    case U_EA_WIDE:
      return 1;
    default:
      break;
  }
  return character == U' ' ? 0.26 : 0.52;
}

bool TakesNoRoom(char32_t character) {
  if (character < 0x300) return character < 0x20 || character == 0xAD;
  const auto c = static_cast<UChar32>(character);
  const int category = u_charType(c);
  return category == U_NON_SPACING_MARK || category == U_ENCLOSING_MARK || category == U_FORMAT_CHAR;
}

}  // namespace

Font::Font(Names names, std::shared_ptr<File> file, std::shared_ptr<File> forOthers, double widthFactor,
           LineMetrics line)
    : names_(std::move(names)),
      file_(std::move(file)),
      forOthers_(std::move(forOthers)),
      widthFactor_(widthFactor),
      line_(line) {
  if (line_.Height() <= 0 && file_) line_ = file_->Line();
  if (line_.Height() <= 0) line_ = {0.9, 0.25, 0};
  direct_.fill(-1);
}

Font::~Font() = default;

double Font::Advance(char32_t character) const {
  if (character < kDirect) {
    float& known = direct_[character];
    if (known < 0) known = static_cast<float>(Measure(character));
    return known;
  }
  const auto [known, isNew] = others_.try_emplace(character, 0.0F);
  if (isNew) known->second = static_cast<float>(Measure(character));
  return known->second;
}

const Font::File* Font::FileFor(char32_t character, double& factor) const {
  hb_codepoint_t glyph = 0;
  factor = widthFactor_;
  if (file_ && hb_font_get_nominal_glyph(file_->font, character, &glyph)) return file_.get();
  factor = kOthersFactor;
  if (forOthers_ && hb_font_get_nominal_glyph(forOthers_->font, character, &glyph)) return forOthers_.get();
  return nullptr;
}

double Font::Measure(char32_t character) const {
  if (TakesNoRoom(character)) return 0;
  double factor = 1;
  const File* file = FileFor(character, factor);
  if (file == nullptr) return Estimate(character);
  hb_codepoint_t glyph = 0;
  hb_font_get_nominal_glyph(file->font, character, &glyph);
  return hb_font_get_glyph_h_advance(file->font, glyph) / file->unitsPerEm * factor;
}

double Font::ShapedAdvance(std::u16string_view text, bool rightToLeft) const {
  double width = 0;
  // A word is taken from one font as a whole, the one that has its first letter.
  const auto letter = std::ranges::find_if(text, [](char16_t c) { return u_isalpha(c) != 0; });
  double factor = 1;
  const File* file = FileFor(letter == text.end() ? text.front() : *letter, factor);
  if (file == nullptr) {
    for (const char16_t unit : text) width += Estimate(unit);
    return width;
  }
  hb_buffer_t* buffer = file->buffer;
  hb_buffer_reset(buffer);
  hb_buffer_add_utf16(buffer, reinterpret_cast<const std::uint16_t*>(text.data()), static_cast<int>(text.size()), 0,
                      static_cast<int>(text.size()));
  hb_buffer_guess_segment_properties(buffer);
  if (rightToLeft) hb_buffer_set_direction(buffer, HB_DIRECTION_RTL);
  hb_shape(file->font, buffer, nullptr, 0);
  unsigned count = 0;
  const hb_glyph_info_t* glyphs = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
  for (unsigned i = 0; i < count; ++i) {
    // The cluster tells which character a missing glyph stands for.
    width += glyphs[i].codepoint == 0 ? Estimate(text[std::min<std::size_t>(glyphs[i].cluster, text.size() - 1)])
                                      : positions[i].x_advance / file->unitsPerEm * factor;
  }
  return width;
}

FontLibrary::FontLibrary() { FcInit(); }

FontLibrary::~FontLibrary() = default;

void FontLibrary::Describe(std::string_view family, Description description) {
  descriptions_[FoldFontName(family)] = std::move(description);
}

int FontLibrary::Family(std::string_view name) {
  std::string folded = FoldFontName(name);
  const auto [found, isNew] = families_.try_emplace(folded, static_cast<int>(names_.size()));
  if (isNew) names_.push_back(std::move(folded));
  return found->second;
}

const Font& FontLibrary::Get(int family, bool bold, bool italic) {
  std::unique_ptr<Font>& font = fonts_[family * 4 + (bold ? 2 : 0) + (italic ? 1 : 0)];
  if (!font) font = Make(names_[static_cast<std::size_t>(family)], bold, italic);
  return *font;
}

std::unique_ptr<Font> FontLibrary::Make(const std::string& wanted, bool bold, bool italic) {
  const std::shared_ptr<Font::File> forOthers = Open(kForOthers, bold, italic);
  const auto found = [&](const std::string& family, double widthFactor, LineMetrics line) -> std::unique_ptr<Font> {
    std::shared_ptr<Font::File> file = Open(family, bold, italic);
    if (!file) return nullptr;
    return std::make_unique<Font>(Font::Names{wanted, family, bold, italic}, std::move(file), forOthers, widthFactor,
                                  line);
  };
  const auto firstOf = [&](std::span<const StandIn> standIns) -> std::unique_ptr<Font> {
    for (const StandIn& standIn : standIns) {
      if (auto font = found(standIn.family, standIn.widthFactor, standIn.line)) return font;
    }
    return nullptr;
  };
  const auto named = [&](const std::string& name) {
    auto font = found(name, 1, {});
    return font ? std::move(font) : firstOf(StandInsFor(name));
  };
  const auto described = descriptions_.find(wanted);
  const Description description = described == descriptions_.end() ? Description{} : described->second;
  const std::string other = FoldFontName(description.otherName);
  if (auto font = found(wanted, 1, {})) return font;
  if (description.replaced) {
    if (auto font = named(other)) return font;
  }
  if (auto font = firstOf(StandInsFor(wanted))) return font;
  if (!other.empty()) {
    if (auto font = named(other)) return font;
  }
  if (auto font = firstOf(StandInsFor(description.kind))) return font;
  return std::make_unique<Font>(Font::Names{wanted, wanted, bold, italic}, nullptr, forOthers, 1, LineMetrics{});
}

std::shared_ptr<Font::File> FontLibrary::Open(const std::string& family, bool bold, bool italic) {
  FcPattern* pattern = FcPatternCreate();
  FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  FcPatternAddInteger(pattern, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
  // No substitution by the machine's rules: what stands in for a font is this system's own decision.
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  FcPattern* match = FcFontMatch(nullptr, pattern, &result);
  std::string path;
  int index = 0;
  if (match != nullptr) {
    bool same = false;
    FcChar8* name = nullptr;
    for (int i = 0; FcPatternGetString(match, FC_FAMILY, i, &name) == FcResultMatch; ++i) {
      same = same || FoldFontName(reinterpret_cast<const char*>(name)) == FoldFontName(family);
    }
    FcChar8* file = nullptr;
    if (same && FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch) {
      path = reinterpret_cast<const char*>(file);
      FcPatternGetInteger(match, FC_INDEX, 0, &index);
    }
    FcPatternDestroy(match);
  }
  FcPatternDestroy(pattern);
  if (path.empty()) return nullptr;
  std::shared_ptr<Font::File>& file = files_[path + "#" + std::to_string(index)];
  if (!file) file = std::make_shared<Font::File>(path, static_cast<unsigned>(index));
  return file;
}

}  // namespace docx::layout
