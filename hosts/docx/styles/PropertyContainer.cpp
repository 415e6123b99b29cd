#include "hosts/docx/styles/PropertyContainer.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/docx/styles/Marks.h"

namespace docx {

namespace {

constexpr std::string_view kKeep = "keep";

// The schema's orders, each name between blanks. The star stands for what is not listed, such as Word's later
// additions.
constexpr std::string_view kRunOrder =
    " ins del moveFrom moveTo rStyle rFonts b bCs i iCs caps smallCaps strike dstrike outline shadow emboss imprint"
    " noProof snapToGrid vanish webHidden color spacing w kern position sz szCs highlight u effect bdr shd fitText"
    " vertAlign rtl cs em lang eastAsianLayout specVanish oMath * rPrChange ";
constexpr std::string_view kParagraphOrder =
    " pStyle keepNext keepLines pageBreakBefore framePr widowControl numPr suppressLineNumbers pBdr shd tabs"
    " suppressAutoHyphens kinsoku wordWrap overflowPunct topLinePunct autoSpaceDE autoSpaceDN bidi adjustRightInd"
    " snapToGrid spacing ind contextualSpacing mirrorIndents suppressOverlap jc textDirection textAlignment"
    " textboxTightWrap outlineLvl divId cnfStyle * rPr sectPr pPrChange ";

/// The places of the names in an order; of "*" what is not listed.
using Ranks = std::unordered_map<std::string_view, std::size_t>;

Ranks Number(std::string_view order) {
  Ranks ranks;
  while (!order.empty()) {
    const std::size_t end = std::min(order.find(' '), order.size());
    if (end != 0) ranks.emplace(order.substr(0, end), ranks.size());
    order.remove_prefix(std::min(end + 1, order.size()));
  }
  return ranks;
}

/// Greater for what stands later.
std::size_t Rank(const Ranks& ranks, std::string_view local) {
  const auto listed = ranks.find(local);
  return listed == ranks.end() ? ranks.at("*") : listed->second;
}

/// The name without the prefix of WordprocessingML; empty for names of other namespaces.
std::string_view Local(const XmlPart& part, XmlNode node) {
  const std::string_view prefix = part.Prefix();
  const std::string_view name = node.Name();
  if (!name.starts_with(prefix)) return {};
  const std::string_view local = name.substr(prefix.size());
  return local.find(':') == std::string_view::npos ? local : std::string_view();
}

const char* NameOf(Tag tag) { return tag == Tag::kRPr ? "rPr" : "pPr"; }

}  // namespace

PropertyContainer PropertyContainer::OfRun(XmlPart& part, XmlNode node) {
  return PropertyContainer(part, node, Tag::kRPr);
}

PropertyContainer PropertyContainer::OfParagraph(XmlPart& part, XmlNode p) {
  return PropertyContainer(part, p, Tag::kPPr);
}

PropertyContainer::PropertyContainer(XmlPart& part, XmlNode owner, Tag tag) : part_(part), owner_(owner), tag_(tag) {
  const bool mark = tag == Tag::kRPr && part.Is(owner, Tag::kP);
  node_ = part.Child(mark ? part.Child(owner, Tag::kPPr) : owner, tag);
}

XmlNode PropertyContainer::Ensure(const char* local) {
  if (const XmlNode found = Find(local)) return found;
  if (!node_) {
    if (tag_ == Tag::kRPr && part_.Is(owner_, Tag::kP)) {
      node_ = OfParagraph(part_, owner_).Ensure(NameOf(tag_));
    } else {
      node_ = owner_.PrependChild(part_.Name(NameOf(tag_)));
    }
  } else if (!node_.FirstChild()) {
    MakeMark(node_.AppendChild(XmlType::kInstruction), std::string(kKeep));
  }
  return Add(node_, local);
}

XmlNode PropertyContainer::Add(XmlNode container, const char* local) {
  static const Ranks runRanks = Number(kRunOrder);
  static const Ranks paragraphRanks = Number(kParagraphOrder);
  const Ranks& order = tag_ == Tag::kRPr ? runRanks : paragraphRanks;
  const std::size_t rank = Rank(order, local);
  for (const XmlNode child : container.Children()) {
    if (child.Type() == XmlType::kElement && Rank(order, Local(part_, child)) > rank) {
      return container.InsertChildBefore(part_.Name(local), child);
    }
  }
  return container.AppendChild(part_.Name(local));
}

void PropertyContainer::Remove(XmlNode property) {
  node_.RemoveChild(property);
  const XmlNode rest = node_.FirstChild();
  if (!rest) {
    XmlNode parent = node_.Parent();
    if (part_.Is(parent, Tag::kPPr)) {
      OfParagraph(part_, owner_).Remove(node_);
    } else {
      parent.RemoveChild(node_);
    }
    node_ = {};
  } else if (rest == FindMark(node_, kKeep) && !rest.NextSibling()) {
    node_.RemoveChild(rest);
  }
}

}  // namespace docx
