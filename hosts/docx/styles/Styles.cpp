#include "hosts/docx/styles/Styles.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace docx {

namespace {

std::string FoldName(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

StyleType TypeOf(std::string_view type) {
  if (type.empty() || type == "paragraph") return StyleType::kParagraph;
  if (type == "character") return StyleType::kCharacter;
  return type == "table" ? StyleType::kTable : StyleType::kOther;
}

bool Hides(const RunValues& run) { return run.hidden.value_or(false) || run.specHidden.value_or(false); }

int ReadBand(const XmlPart& part, XmlNode style, const char* local) {
  int size = 1;
  const std::string_view text = part.Attribute(part.Child(part.Child(style, "tblPr"), local), "val").Value();
  std::from_chars(text.data(), text.data() + text.size(), size);
  return std::max(1, size);
}

}  // namespace

void Styles::Read(const XmlPart* part) {
  styles_.clear();
  byId_.clear();
  byName_.clear();
  defaultParagraph_.reset();
  defaultCharacter_.reset();
  defaultTable_.reset();
  runDefaults_ = {};
  inTables_ = {};
  paragraphDefaults_ = {};
  anyHidden_ = false;
  anyHighlight_ = false;
  if (part == nullptr) return;

  const XmlNode root = part->Root();
  const XmlNode defaults = part->Child(root, "docDefaults");
  runDefaults_ = ReadRunValues(*part, part->Child(part->Child(defaults, "rPrDefault"), Tag::kRPr));
  paragraphDefaults_ = ReadParagraphValues(*part, part->Child(part->Child(defaults, "pPrDefault"), Tag::kPPr));
  anyHidden_ = Hides(runDefaults_);
  anyHighlight_ = runDefaults_.highlight.has_value();

  std::vector<std::string> basedOn;
  for (const XmlNode node : root.Children(part->Name("style"))) {
    Style style;
    style.id = part->Attribute(node, "styleId").Value();
    style.name = part->Attribute(part->Child(node, "name"), "val").Value();
    style.type = TypeOf(part->Attribute(node, "type").Value());
    style.run = ReadRunValues(*part, part->Child(node, Tag::kRPr));
    style.paragraph = ReadParagraphValues(*part, part->Child(node, Tag::kPPr));
    if (style.type == StyleType::kTable) ReadPlaces(*part, node, style);
    anyHidden_ = anyHidden_ || Hides(style.run);
    anyHighlight_ = anyHighlight_ || style.run.highlight.has_value();

    const std::size_t index = styles_.size();
    byId_.emplace(style.id, index);
    byName_.emplace(FoldName(style.name), index);
    const std::string_view isDefault = part->Attribute(node, "default").Value();
    if (isDefault == "1" || isDefault == "true" || isDefault == "on") {
      if (style.type == StyleType::kParagraph) defaultParagraph_ = index;
      if (style.type == StyleType::kCharacter) defaultCharacter_ = index;
      if (style.type == StyleType::kTable) defaultTable_ = index;
    }
    basedOn.emplace_back(part->Attribute(part->Child(node, "basedOn"), "val").Value());
    styles_.push_back(std::move(style));
  }
  Resolve(basedOn);
}

void Styles::ReadPlaces(const XmlPart& part, XmlNode node, Style& style) {
  style.rowBand = ReadBand(part, node, "tblStyleRowBandSize");
  style.columnBand = ReadBand(part, node, "tblStyleColBandSize");
  inTables_.Inherit(style.run);
  for (const XmlNode each : node.Children(part.Name("tblStylePr"))) {
    const RunValues values = ReadRunValues(part, part.Child(each, Tag::kRPr));
    inTables_.Inherit(values);
    anyHidden_ = anyHidden_ || Hides(values);
    anyHighlight_ = anyHighlight_ || values.highlight.has_value();
    style.places[std::string(part.Attribute(each, "type").Value())] = values;
  }
}

void Styles::Resolve(const std::vector<std::string>& basedOn) {
  enum class State : std::uint8_t { kOpen, kOnChain, kDone };
  std::vector<State> states(styles_.size(), State::kOpen);
  // A hostile file may have chains as long as it has styles, so the way up is a list and no recursion.
  std::vector<std::size_t> chain;
  for (std::size_t first = 0; first < styles_.size(); ++first) {
    const Style* base = nullptr;
    for (std::size_t at = first; states[at] != State::kDone;) {
      states[at] = State::kOnChain;
      chain.push_back(at);
      base = basedOn[at].empty() ? nullptr : ById(basedOn[at]);
      if (base == nullptr || base->type != styles_[at].type) {
        base = nullptr;
        break;
      }
      at = static_cast<std::size_t>(base - styles_.data());
      if (states[at] == State::kOnChain) {
        base = nullptr;
        break;
      }
    }
    while (!chain.empty()) {
      Style& style = styles_[chain.back()];
      if (base != nullptr) {
        style.run.Inherit(base->run);
        style.paragraph.Inherit(base->paragraph);
        for (const auto& [place, values] : base->places) style.places[place].Inherit(values);
      }
      states[chain.back()] = State::kDone;
      chain.pop_back();
      base = &style;
    }
  }
}

const Style* Styles::ById(std::string_view id) const {
  const auto found = byId_.find(id);
  return found == byId_.end() ? nullptr : &styles_[found->second];
}

const Style* Styles::ByName(std::string_view name) const {
  const auto found = byName_.find(FoldName(name));
  return found == byName_.end() ? nullptr : &styles_[found->second];
}

const Style* Styles::OfType(std::string_view id, StyleType type, std::optional<std::size_t> fallback) const {
  if (!id.empty()) {
    const Style* style = ById(id);
    if (style != nullptr && style->type == type) return style;
  }
  return fallback ? &styles_[*fallback] : nullptr;
}

}  // namespace docx
