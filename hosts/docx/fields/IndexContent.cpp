#include "hosts/docx/fields/IndexContent.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "hosts/docx/fields/IndexCollation.h"
#include "hosts/docx/find/FindCharacters.h"

namespace docx {

namespace {

/// Word tells entries apart by so many characters; longer ones that agree so far are one.
constexpr std::size_t kCompared = 259;

constexpr char16_t kNoEntries[] = u"No index entries found.";

/// An entry or subentry, with all that the document says about it.
struct Node {
  std::u16string text;
  std::u16string key;
  std::string order;
  int level{0};  // 0 for the root
  std::vector<const IndexEntry*> pages{};
  std::vector<std::u16string> references{};
  std::vector<std::size_t> children{};
};

class Builder {
 public:
  Builder(const std::vector<IndexEntry>& entries, const IndexOptions& options)
      : options_(options), collation_(options.language) {
    nodes_.emplace_back();
    for (const IndexEntry& entry : entries) Place(entry);
    for (Node& node : nodes_) {
      std::stable_sort(node.pages.begin(), node.pages.end(),
                       [](const IndexEntry* left, const IndexEntry* right) { return left->page < right->page; });
      std::sort(node.children.begin(), node.children.end(),
                [this](std::size_t left, std::size_t right) { return nodes_[left].order < nodes_[right].order; });
    }
  }

  std::vector<IndexParagraph> Build() {
    std::u16string letter;
    for (const std::size_t child : nodes_.front().children) {
      if (options_.heading) AddHeading(collation_.Letter(nodes_[child].key), letter);
      AddEntry(child);
    }
    if (paragraphs_.empty()) paragraphs_.push_back({1, false, {{kNoEntries}}});
    return std::move(paragraphs_);
  }

 private:
  void Place(const IndexEntry& entry) {
    const IndexMark& mark = *entry.mark;
    const auto [known, isNew] = byMark_.try_emplace(&mark, kRoot);
    if (isNew && !mark.levels.empty() && mark.type == options_.type && IsListed(mark.levels.front().key)) {
      for (const IndexLevel& level : mark.levels) known->second = ChildOf(known->second, level);
    }
    const std::size_t at = known->second;
    if (at == kRoot) return;
    if (mark.crossReferences.empty()) {
      nodes_[at].pages.push_back(&entry);
    } else {
      nodes_[at].references.insert(nodes_[at].references.end(), mark.crossReferences.begin(),
                                   mark.crossReferences.end());
    }
  }

  std::size_t ChildOf(std::size_t parent, const IndexLevel& level) {
    std::u16string identity{static_cast<char16_t>(parent >> 16U), static_cast<char16_t>(parent & 0xFFFFU)};
    identity.append(level.text, 0, kCompared);
    identity += u'\0';
    identity.append(level.key, 0, kCompared);
    const auto [found, added] = byIdentity_.try_emplace(std::move(identity), nodes_.size());
    if (added) {
      Node node{level.text, level.key, collation_.Key(level.key) + collation_.Key(level.text),
                nodes_[parent].level + 1};
      nodes_.push_back(std::move(node));
      nodes_[parent].children.push_back(found->second);
    }
    return found->second;
  }

  /// Whether the index takes the letter that an entry begins with (\p).
  bool IsListed(std::u16string_view key) const {
    const std::u16string_view letters = options_.letters;
    if (letters.empty()) return true;
    const std::size_t dashes = letters.find(u"--");
    const std::u16string first = Limit(letters.substr(0, dashes));
    const std::u16string last = dashes == std::u16string_view::npos ? first : Limit(letters.substr(dashes + 2));
    const std::u16string letter = collation_.Letter(key);
    const auto rank = [](const std::u16string& text) {
      return text.front() == IndexCollation::kNoLetter ? char32_t{0} : CodePointAt(text, 0).value;
    };
    return rank(first) <= rank(letter) && rank(letter) <= rank(last);
  }

  std::u16string Limit(std::u16string_view text) const { return collation_.Letter(text); }

  void AddHeading(const std::u16string& letter, std::u16string& before) {
    if (letter == before) return;
    before = letter;
    std::u16string text = *options_.heading;
    const auto first = std::find_if(text.begin(), text.end(), [](char16_t unit) { return IsLetter(unit); });
    std::u16string heading;
    // Only a text that begins with an A is a pattern; any other leaves the heading blank.
    if (first != text.end() && (*first == u'A' || *first == u'a')) {
      for (const char16_t unit : text) {
        if (unit == u'A' || unit == u'a') {
          heading += letter;
        } else {
          heading += unit;
        }
      }
    }
    paragraphs_.push_back({1, true, {{heading}}});
  }

  void AddEntry(std::size_t at) {
    const Node& node = nodes_[at];
    paragraphs_.push_back({node.level, false, {}});
    AddText(node);
    if (options_.runIn) {
      bool first = true;
      for (const std::size_t child : node.children) AddRunIn(child, first);
      return;
    }
    for (const std::size_t child : node.children) AddEntry(child);
  }

  void AddRunIn(std::size_t at, bool& first) {
    AddRun(first ? u": " : u"; ");
    first = false;
    AddText(nodes_[at]);
    for (const std::size_t child : nodes_[at].children) AddRunIn(child, first);
  }

  /// The entry's text, its pages and its references. Without either it stands alone.
  void AddText(const Node& node) {
    AddRun(node.text);
    const IndexEntry* last = nullptr;
    for (std::size_t i = 0; i < node.pages.size(); ++i) {
      const IndexEntry& page = *node.pages[i];
      const bool range = page.lastPage > page.page;
      // The first entry of a page speaks for all; one on the first page of a range that follows is part of it.
      if (last != nullptr && !range && last->lastPage <= last->page && last->page == page.page) continue;
      if (!range && RangeFollows(node, i)) continue;
      AddRun(last == nullptr ? options_.entrySeparator : options_.pageSeparator);
      AddPage(page, page.label);
      if (range) {
        AddRun(options_.rangeSeparator);
        AddPage(page, page.lastLabel);
      }
      last = &page;
    }
    if (node.references.empty()) return;
    const std::u16string otherwise = last == nullptr && options_.hasEntrySeparator ? options_.entrySeparator : u". ";
    AddRun(options_.referenceSeparator.value_or(otherwise));
    // Word prints the last one first.
    for (auto reference = node.references.rbegin(); reference != node.references.rend(); ++reference) {
      if (reference != node.references.rbegin()) AddRun(options_.pageSeparator);
      AddRun(*reference);
    }
  }

  /// Whether the next entry for the same page that is worth printing is a range.
  static bool RangeFollows(const Node& node, std::size_t at) {
    for (std::size_t i = at + 1; i < node.pages.size() && node.pages[i]->page == node.pages[at]->page; ++i) {
      if (node.pages[i]->lastPage > node.pages[i]->page) return true;
    }
    return false;
  }

  void AddPage(const IndexEntry& entry, const std::u16string& label) {
    std::u16string text = label;
    if (!options_.sequence.empty() && !entry.sequence.empty()) {
      text = entry.sequence + options_.sequenceSeparator + label;
    }
    AddRun(text, entry.mark->bold, entry.mark->italic);
  }

  void AddRun(std::u16string_view text, bool bold = false, bool italic = false) {
    if (text.empty()) return;
    std::vector<IndexRun>& runs = paragraphs_.back().runs;
    if (!runs.empty() && runs.back().bold == bold && runs.back().italic == italic) {
      runs.back().text += text;
    } else {
      runs.push_back({std::u16string(text), bold, italic});
    }
  }

  static constexpr std::size_t kRoot = 0;

  const IndexOptions& options_;
  IndexCollation collation_;
  std::vector<Node> nodes_;
  std::unordered_map<std::u16string, std::size_t> byIdentity_;
  std::unordered_map<const IndexMark*, std::size_t> byMark_;  // the root for what is not listed
  std::vector<IndexParagraph> paragraphs_;
};

}  // namespace

std::vector<IndexParagraph> BuildIndexContent(const std::vector<IndexEntry>& entries, const IndexOptions& options) {
  return Builder(entries, options).Build();
}

}  // namespace docx
