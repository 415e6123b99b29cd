#include "hosts/docx/pages/PdfPages.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "hosts/docx/pages/PdfObjects.h"

namespace docx {

namespace {

using Kind = PdfValue::Kind;

/// Visits the leaves of a tree of dictionaries with Kids, from the first to the last, each node once.
template <class Visit>
void ForEachLeaf(const PdfObjects& objects, const PdfValue& root, Visit visit) {
  std::unordered_set<int> seen;
  std::vector<const PdfValue*> waiting{&root};
  while (!waiting.empty()) {
    const PdfValue& reference = *waiting.back();
    waiting.pop_back();
    if (reference.Is(Kind::kReference) && !seen.insert(static_cast<int>(reference.number)).second) continue;
    const PdfValue& node = objects.Resolve(reference);
    const PdfValue& kids = objects.Resolve(node.At("Kids"));
    if (!kids.Is(Kind::kArray)) {
      visit(reference, node);
      continue;
    }
    for (auto kid = kids.items.rbegin(); kid != kids.items.rend(); ++kid) waiting.push_back(&*kid);
  }
}

class PagesReader {
 public:
  explicit PagesReader(std::string_view pdf) : objects_(pdf) {}

  PdfPages Read() {
    const PdfValue& catalog = objects_.OfType("Catalog");
    ForEachLeaf(objects_, catalog.At("Pages"), [this](const PdfValue& reference, const PdfValue& page) {
      if (!reference.Is(Kind::kReference) || !page.Is(Kind::kDictionary)) return;
      numbers_.emplace(static_cast<int>(reference.number), static_cast<int>(numbers_.size()) + 1);
    });
    if (numbers_.empty()) throw PdfError("it has no pages");
    pages_.count = static_cast<int>(numbers_.size());

    const PdfValue& dictionary = objects_.Resolve(catalog.At("Dests"));
    for (std::size_t i = 0; i < dictionary.keys.size(); ++i) Add(dictionary.keys[i], dictionary.items[i]);
    const PdfValue& names = objects_.Resolve(catalog.At("Names"));
    ForEachLeaf(objects_, names.At("Dests"), [this](const PdfValue&, const PdfValue& node) {
      const PdfValue& pairs = objects_.Resolve(node.At("Names"));
      for (std::size_t i = 0; i + 1 < pairs.items.size(); i += 2) {
        Add(objects_.Resolve(pairs.items[i]).text, pairs.items[i + 1]);
      }
    });
    return std::move(pages_);
  }

 private:
  void Add(const std::string& name, const PdfValue& destination) {
    const PdfValue* place = &objects_.Resolve(destination);
    if (place->Is(Kind::kDictionary)) place = &objects_.Resolve(place->At("D"));
    const PdfValue& page = place->At(std::size_t{0});
    if (!page.Is(Kind::kReference)) return;
    const auto number = numbers_.find(static_cast<int>(page.number));
    if (number != numbers_.end()) pages_.destinations.emplace(name, number->second);
  }

  PdfObjects objects_;
  std::unordered_map<int, int> numbers_;  // of pages, by object number
  PdfPages pages_;
};

}  // namespace

PdfPages ReadPdfPages(std::string_view pdf) {
  if (!pdf.starts_with("%PDF-")) throw PdfError("it is no PDF");
  return PagesReader(pdf).Read();
}

}  // namespace docx
