#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/com/Dispatch.h"
#include "platform/word/Types.h"

namespace com {

/// The one search of a range: Word's own object, taken when it is first needed, what it was told, so that it is told
/// once, and the texts that it has to be told in another way than they were put.
class SearchOfRange {
 public:
  explicit SearchOfRange(Dispatch range) : range_(std::move(range)) {}

  const Dispatch& Range() const { return range_; }
  const Dispatch& Find();
  const Dispatch& Replacement();

  // As put here; nothing before that.
  std::optional<std::u16string> text;
  std::optional<std::u16string> replacementText;
  std::optional<bool> wildcards;

  /// Tells Word the text in its own way, unless it has it already.
  void TellText();
  /// Tells Word a setting, unless it has it already. @param member such as "Find.Wrap"
  template <class Value>
  void Tell(std::string_view member, Value value) {
    if (const auto told = settings_.find(member); told != settings_.end() && told->second == value) return;
    Find().Put(member, value);
    // Kinds of search that go with none other are switched off where another goes on.
    if (value) settings_.clear();
    settings_[member] = value;
  }
  /// Criteria of formatting are never put, so they are dropped once.
  void ClearFormatting();

  /// Whether the last search found something; nothing where only Word knows.
  std::optional<bool> found;

 private:
  Dispatch range_;
  std::optional<Dispatch> find_;
  std::optional<Dispatch> replacement_;
  std::optional<std::u16string> told_;
  std::map<std::string_view, int> settings_;
  bool cleared_{false};
};

word::FindPtr MakeFind(std::shared_ptr<SearchOfRange> search);

}  // namespace com
