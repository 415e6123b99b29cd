#include <algorithm>
#include <utility>

#include "hosts/docx/layout/BlockReader.h"
#include "hosts/docx/layout/ParagraphLines.h"

namespace docx::layout {

void BlockReader::SetMemory(BlockMemory& memory) {
  memory_ = &memory;
  before_ = &memory.Before();
  now_ = &memory.Now();
}

BlockReader::Begun BlockReader::Begin() const {
  return {.start = place_.start,
          .atoms = met_,
          .fields = fields_.size(),
          .numbers = numbers_.size(),
          .noteMarks = noteMarks_,
          .notes = notes_};
}

void BlockReader::ReadBlock(XmlNode element, bool deleted, const TableValues* cell, std::vector<Block>& into) {
  const bool isTable = part_.Is(element, Tag::kTbl);
  const auto read = [&] { isTable ? ReadTable(element, deleted, into) : ReadParagraph(element, deleted, cell, into); };
  // What a block turns into can be known where nothing from before goes on in it.
  const bool alone = !deleted && Shows() && FieldKind().field == PageField::kNone && (isTable || open_ == nullptr);
  if (memory_ == nullptr || !alone) return read();
  KnownBlock::ByElement::node_type known = before_->extract(element.Data());
  KnownBlock* const before = known.empty() ? nullptr : &known.mapped();
  if (before != nullptr && memory_->IsUnchanged(element) && Recall(element, *before, cell, into)) {
    now_->insert(std::move(known));
    return;
  }
  const Begun begun = Begin();
  const std::size_t outerFewest = std::exchange(fewestFields_, begun.fields);
  const std::size_t blocks = into.size();
  KnownBlock::ByElement none;
  std::unique_ptr<KnownBlock::ByElement> within;
  if (isTable) {
    within = std::make_unique<KnownBlock::ByElement>();
    KnownBlock::ByElement* const outerBefore =
        std::exchange(before_, before != nullptr && before->within != nullptr ? before->within.get() : &none);
    KnownBlock::ByElement* const outerNow = std::exchange(now_, within.get());
    read();
    before_ = outerBefore;
    now_ = outerNow;
  } else {
    read();
  }
  const bool whole = into.size() == blocks + 1 && (isTable || open_ == nullptr);
  const bool fieldsHold = fewestFields_ >= begun.fields && fields_.size() == begun.fields && Shows();
  fewestFields_ = std::min(outerFewest, fewestFields_);
  if (whole && fieldsHold) Keep(element, begun, cell, into.back(), before, std::move(within));
  if (depth_ == 0) numbers_.clear();
}

void BlockReader::Keep(XmlNode element, const Begun& begun, const TableValues* cell, const Block& block,
                       const KnownBlock* before, std::unique_ptr<KnownBlock::ByElement> within) {
  KnownBlock known;
  known.block = block;
  known.oldest = memory_->Reading();
  known.start = begun.start;
  known.length = place_.start - begun.start;
  known.atoms = met_ - begun.atoms;
  known.lastAtom = lastMet_;
  known.cell = cell;
  known.depth = depth_;
  if (noteMarks_ != begun.noteMarks) known.noteMark = noteMark_;
  known.numbers.assign(numbers_.begin() + static_cast<std::ptrdiff_t>(begun.numbers), numbers_.end());
  if (notes_ != begun.notes) known.notes = {begun.notes, notes_};
  known.within = std::move(within);
  if (known.within != nullptr) {
    for (const auto& [node, inner] : *known.within) known.oldest = std::min(known.oldest, inner.oldest);
  }
  if (Paragraph* paragraph = block.AsParagraph()) {
    const Paragraph* earlier = before == nullptr ? nullptr : before->block.AsParagraph();
    const bool same = earlier != nullptr && earlier->made != nullptr && HaveSameLines(*earlier, *paragraph);
    paragraph->made = same ? earlier->made : std::make_shared<MadeLines>();
  }
  now_->insert_or_assign(element.Data(), std::move(known));
}

std::optional<AtomSequence::Place> BlockReader::EndOf(const KnownBlock& known) const {
  if (atoms_ == nullptr || known.atoms == 0) return {};
  AtomSequence::Place last = place_;
  for (std::size_t rest = known.atoms - 1;;) {
    if (atoms_->IsEnd(last)) return {};
    const std::size_t here = atoms_->AtomsAround(last).size() - last.atom;
    if (rest < here) {
      last.atom += rest;
      break;
    }
    rest -= here;
    ++last.chunk;
    last.atom = 0;
  }
  if (atoms_->Get(last).element != known.lastAtom) return {};
  AtomSequence::Place end = atoms_->Next(last);
  end.start = place_.start + known.length;
  return end;
}

bool BlockReader::Recall(XmlNode element, KnownBlock& known, const TableValues* cell, std::vector<Block>& into) {
  const bool sameAround = known.cell == cell && known.depth == depth_ &&
                          (!known.noteMark || *known.noteMark == noteMark_) &&
                          (!known.notes || known.notes->first == notes_);
  const std::optional<AtomSequence::Place> end = sameAround ? EndOf(known) : std::nullopt;
  if (!end || !CountAgain(element, known)) return false;
  memory_->Move(known, place_.start);
  into.push_back(known.block);
  place_ = *end;
  met_ += known.atoms;
  lastMet_ = known.lastAtom;
  if (known.noteMark) ++noteMarks_;
  if (known.notes) notes_ = known.notes->second;
  if (depth_ > 0) numbers_.insert(numbers_.end(), known.numbers.begin(), known.numbers.end());
  return true;
}

bool BlockReader::CountAgain(XmlNode element, KnownBlock& known) {
  if (known.numbers.empty()) return true;
  if (known.block.AsParagraph() != nullptr) {
    NumberUse& use = known.numbers.front();
    std::u16string label = counters_.Next(use.id, *use.list, use.level);
    if (label == use.label) return true;
    Paragraph& paragraph = memory_->Own(known);
    SetLabel(paragraph, element, label);
    paragraph.made = std::make_shared<MadeLines>();
    use.label = std::move(label);
    return true;
  }
  NumberCounters before = counters_;
  const bool same = std::ranges::all_of(
      known.numbers, [&](const NumberUse& use) { return counters_.Next(use.id, *use.list, use.level) == use.label; });
  if (!same) counters_ = std::move(before);
  return same;
}

}  // namespace docx::layout
