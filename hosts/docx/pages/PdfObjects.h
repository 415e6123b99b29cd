#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace docx {

/// A value in a PDF.
struct PdfValue {
  enum class Kind { kNull, kNumber, kName, kString, kArray, kDictionary, kReference };

  Kind kind{Kind::kNull};
  double number{0};                 ///< of a number; of a reference the object's number
  std::string text{};               ///< of a name, without its slash, or a string
  std::vector<std::string> keys{};  ///< of a dictionary, one for each item
  std::vector<PdfValue> items{};    ///< of an array or dictionary

  bool Is(Kind wanted) const { return kind == wanted; }
  /// A dictionary's member; a null value when there is none.
  const PdfValue& At(std::string_view key) const;
  /// An array's element; likewise.
  const PdfValue& At(std::size_t index) const;
};

/// The objects of a PDF that are no streams, and the dictionaries of those that are, by number. Of several of one
/// number the last counts.
class PdfObjects {
 public:
  explicit PdfObjects(std::string_view pdf);

  /// The value itself, or what it refers to; a null value when that is missing.
  const PdfValue& Resolve(const PdfValue& value) const;
  /// The dictionary whose Type says so; the last of several. A null value when there is none.
  const PdfValue& OfType(std::string_view type) const;

 private:
  void AddStreamObjects(const PdfValue& dictionary, std::string_view data);

  std::unordered_map<int, PdfValue> objects_;
  std::vector<int> order_;
};

}  // namespace docx
