#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace word {

/// An offset within one story, in UTF-16 code units from the story's start, which is 0. A position lies
/// between two characters. Every character counts one unit per code unit, hidden text, field codes and
/// tracked deletions included; a paragraph mark, a cell mark and an end-of-row mark count one.
using Position = std::int32_t;

/// Word's three-state numbers: -1 is True, 0 is False, and this value is "differs within the range".
inline constexpr int wdUndefined = 9999999;

class Application;
class Bookmark;
class Bookmarks;
class Characters;
class Customization;
class Document;
class Documents;
class Field;
class Fields;
class Find;
class Font;
class Options;
class Pane;
class ParagraphFormat;
class Range;
class Replacement;
class Revision;
class Revisions;
class Selection;
class StoryRanges;
class Tables;
class TextRetrievalMode;
class View;
class Window;

/// Objects are cheap proxies: copying the pointer is free, identity is never promised (two calls may give
/// two proxies of one thing), and holding one never keeps a document open. After its document has closed,
/// every member throws HostError(kObjectDeleted).
using ApplicationPtr = std::shared_ptr<Application>;
using BookmarkPtr = std::shared_ptr<Bookmark>;
using BookmarksPtr = std::shared_ptr<Bookmarks>;
using CharactersPtr = std::shared_ptr<Characters>;
using CustomizationPtr = std::shared_ptr<Customization>;
using DocumentPtr = std::shared_ptr<Document>;
using DocumentsPtr = std::shared_ptr<Documents>;
using FieldPtr = std::shared_ptr<Field>;
using FieldsPtr = std::shared_ptr<Fields>;
using FindPtr = std::shared_ptr<Find>;
using FontPtr = std::shared_ptr<Font>;
using OptionsPtr = std::shared_ptr<Options>;
using PanePtr = std::shared_ptr<Pane>;
using ParagraphFormatPtr = std::shared_ptr<ParagraphFormat>;
using RangePtr = std::shared_ptr<Range>;
using ReplacementPtr = std::shared_ptr<Replacement>;
using RevisionPtr = std::shared_ptr<Revision>;
using RevisionsPtr = std::shared_ptr<Revisions>;
using SelectionPtr = std::shared_ptr<Selection>;
using StoryRangesPtr = std::shared_ptr<StoryRanges>;
using TablesPtr = std::shared_ptr<Tables>;
using TextRetrievalModePtr = std::shared_ptr<TextRetrievalMode>;
using ViewPtr = std::shared_ptr<View>;
using WindowPtr = std::shared_ptr<Window>;

/// What every class of the object model is: made by its host, passed by pointer, never copied.
class Object {
 public:
  Object() = default;
  virtual ~Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
};

}  // namespace word
