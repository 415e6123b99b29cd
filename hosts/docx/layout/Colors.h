#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <optional>

#include "hosts/docx/xml/XmlPart.h"
#include "platform/page/Display.h"

namespace docx::layout {

/// What a w:color or an attribute of its kind states: page::kNoColor for "auto", empty for what is no colour.
std::optional<page::Color> ParseColor(std::string_view text);
/// Of a w:highlight; page::kNoColor for none.
page::Color HighlightColor(const XmlPart& part, XmlNode highlight);
/// Of a w:shd, its pattern mixed; page::kNoColor for one that shows nothing, empty for no w:shd.
std::optional<page::Color> ShadingColor(const XmlPart& part, XmlNode shd);
/// Whether black letters would be hard to read on it.
bool IsDark(page::Color color);

}  // namespace docx::layout
