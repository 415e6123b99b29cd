#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include "hosts/docx/styles/Formatting.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace docx {

/// How much room a paragraph takes, estimated from its formatting without any font. Lengths in points.
struct ParagraphShape {
  double before{0};
  double after{0};
  double lineHeight{12};
  double perLine{80};  ///< characters
  bool pageBreakBefore{false};

  /// Lines that so many characters fill; 0 for none.
  int Lines(double characters) const;
};

/// Estimates the shapes of a part's paragraphs. Most paragraphs have the properties of many others, and so their shape.
/// A change of part or styles spoils it.
class ParagraphShapes {
 public:
  /// @param formatting outlives it
  explicit ParagraphShapes(const Formatting& formatting) : formatting_(&formatting) {}

  /// @param run the first run with text; empty when there is none
  /// @param width of the column or cell
  ParagraphShape Of(XmlNode p, XmlNode run, double width);

 private:
  struct Properties {
    std::string_view paragraph;
    std::string_view run;
    bool hasRun;
    double width;

    bool operator==(const Properties&) const = default;
  };
  struct Hash {
    std::size_t operator()(const Properties& properties) const;
  };

  const Formatting* formatting_;
  std::unordered_map<Properties, ParagraphShape, Hash> known_;
};

}  // namespace docx
