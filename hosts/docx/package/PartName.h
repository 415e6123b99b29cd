#pragma once

#include <string>
#include <string_view>

namespace docx {

/// Part names without "/" at their beginning, as Package uses them; "" is the package itself.

/// A name under which a part may lie in a package: not empty, no absolute path, no "..", no "\", no control character.
bool IsSafePartName(std::string_view name);

/// For comparing: ASCII letters in lower case.
std::string FoldPartName(std::string_view name);

/// "word/document.xml": "word/_rels/document.xml.rels".
std::string RelationshipsPartName(std::string_view part);

/// What a relationship's target means, seen from its source part: "../media/a.png" and "/word/media/a.png" become
/// "media/a.png" and "word/media/a.png". Escaped characters are unescaped, a fragment is cut, and ".." at the top stays
/// at the top.
std::string ResolveTarget(std::string_view source, std::string_view target);

/// The shortest plain target that ResolveTarget turns into the part's name.
std::string MakeTarget(std::string_view source, std::string_view part);

}  // namespace docx
