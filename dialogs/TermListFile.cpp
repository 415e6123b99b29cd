#include "dialogs/TermListFile.h"

#include "platform/AnsiText.h"

namespace {

constexpr char kEndOfText = 0x1A;

/// Reads one item after the other. A line ends as in any editor's file: with a carriage return and a line feed or with
/// either.
class ItemReader {
 public:
  explicit ItemReader(std::string_view text) : text_(text) {}

  bool AtEnd() const { return place_ == text_.size(); }

  std::string_view Next() {
    SkipBlanks();
    const std::string_view item = Is('"') ? Quoted() : Plain();
    SkipBlanks();
    SkipDelimiter();
    return item;
  }

 private:
  bool Is(char wanted) const { return !AtEnd() && text_[place_] == wanted; }

  void SkipBlanks() {
    while (Is(' ') || Is('\t')) ++place_;
  }

  void SkipDelimiter() {
    if (Is(',')) {
      ++place_;
      return;
    }
    if (Is('\r')) ++place_;
    if (Is('\n')) ++place_;
  }

  std::string_view Quoted() {
    const std::size_t start = place_ + 1;
    const std::size_t end = text_.find('"', start);
    place_ = end == std::string_view::npos ? text_.size() : end + 1;
    return text_.substr(start, end - start);
  }

  std::string_view Plain() {
    const std::size_t start = place_;
    while (!AtEnd() && !Is(',') && !Is('\r') && !Is('\n')) ++place_;
    std::string_view item = text_.substr(start, place_ - start);
    while (item.ends_with(' ')) item.remove_suffix(1);
    return item;
  }

  std::string_view text_;
  std::size_t place_{0};
};

}  // namespace

std::vector<std::u16string> ReadTermItems(std::string_view bytes) {
  std::vector<std::u16string> items;
  ItemReader reader(bytes.substr(0, bytes.find(kEndOfText)));
  while (!reader.AtEnd()) items.push_back(FromAnsi(reader.Next()));
  return items;
}

std::string TermLine(std::u16string_view term) { return ToAnsi(term) + "\r\n"; }
