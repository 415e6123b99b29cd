#include "hosts/docx/story/ApartMark.h"

#include <string_view>

namespace docx {

namespace {

constexpr std::string_view kTarget = "kelvarin";
constexpr std::string_view kData = "apart";

XmlNode MakeApartMark(XmlNode instruction) {
  instruction.SetTarget(kTarget);
  instruction.SetValue(kData);
  return instruction;
}

}  // namespace

bool IsApartMark(XmlNode node) {
  return node.Type() == XmlType::kInstruction && node.Name() == kTarget && node.Value() == kData;
}

XmlNode PutApartMark(XmlNode run) { return MakeApartMark(run.Parent().InsertChildAfter(XmlType::kInstruction, run)); }

void PutApartMarkBefore(XmlNode text) { MakeApartMark(text.Parent().InsertChildBefore(XmlType::kInstruction, text)); }

}  // namespace docx
