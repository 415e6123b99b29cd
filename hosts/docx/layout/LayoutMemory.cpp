#include "hosts/docx/layout/LayoutMemory.h"

#include <algorithm>
#include <array>
#include <utility>

namespace docx::layout {

std::shared_ptr<const std::uint64_t> LayoutMemory::Begin(DocumentParts& parts) {
  ++reading_;
  std::erase_if(readings_, [](const auto& reading) { return reading.expired(); });
  inUse_ = 0;
  for (const auto& reading : readings_) {
    if (const auto used = reading.lock()) inUse_ = std::max(inUse_, *used);
  }
  const bool formatsHold = FormatsHold(parts);
  if (!std::exchange(ended_, false) || !formatsHold) {
    blocks_.clear();
    formats_ = std::make_shared<DocumentFormats>(parts);
  }
  for (auto& [part, blocks] : blocks_) blocks.Begin(reading_, inUse_);
  auto reading = std::make_shared<const std::uint64_t>(reading_);
  readings_.push_back(reading);
  return reading;
}

void LayoutMemory::End() {
  for (auto& [part, blocks] : blocks_) blocks.End();
  ended_ = true;
}

BlockMemory& LayoutMemory::Blocks(const XmlPart& part) {
  const auto [blocks, isNew] = blocks_.try_emplace(&part, part);
  if (isNew) blocks->second.Begin(reading_, inUse_);
  return blocks->second;
}

bool LayoutMemory::FormatsHold(DocumentParts& parts) {
  // Styles come first: only they may have been added to.
  const std::array<const XmlPart*, 5> now{parts.Related(kStylesPart), parts.Related(kNumberingPart),
                                          parts.Related(kThemePart), parts.Related(kFontTablePart), parts.Settings()};
  const bool isFirst = sources_.size() != now.size();
  sources_.resize(now.size());
  bool hold = !isFirst;
  bool extended = false;
  for (std::size_t i = 0; i < now.size(); ++i) {
    Source& source = sources_[i];
    const bool same = source.part == now[i] && (now[i] == nullptr || !now[i]->Root().ChangedSince(source.since));
    if (!same && i == 0) {
      extended = true;
    } else if (!same) {
      hold = false;
    }
    source = {now[i], now[i] == nullptr ? 0 : now[i]->BeginPeriod()};
  }
  return hold && (!extended || formats_->Extend(parts));
}

}  // namespace docx::layout
