#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/com/Dispatch.h"
#include "platform/word/Types.h"

namespace com {

/// The one search of a range: Word's own object, taken when it is first needed, and the texts that it has to be told in
/// another way than they were put.
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

 private:
  Dispatch range_;
  std::optional<Dispatch> find_;
  std::optional<Dispatch> replacement_;
  std::optional<std::u16string> told_;
};

word::FindPtr MakeFind(std::shared_ptr<SearchOfRange> search);

}  // namespace com
