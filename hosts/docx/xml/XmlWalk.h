#pragma once

#include "hosts/docx/xml/XmlNode.h"

namespace docx {

/// Calls visit for every element below a node, in document order.
/// @param visit returns whether what is below its element is visited too
template <typename Visit>
void ForEachElement(XmlNode root, Visit visit) {
  for (XmlNode node = root.FirstChild(); node && node != root;) {
    const bool deeper = node.Type() != XmlType::kElement || visit(node);
    if (deeper && node.FirstChild()) {
      node = node.FirstChild();
      continue;
    }
    while (node != root && !node.NextSibling()) node = node.Parent();
    if (node != root) node = node.NextSibling();
  }
}

}  // namespace docx
