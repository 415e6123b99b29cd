#pragma once

#include <memory>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/model/OpenDocument.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"

namespace docx {

word::DocumentPtr MakeDocument(const std::shared_ptr<OpenDocument>& document);
word::WindowPtr MakeWindow(const std::shared_ptr<OpenDocument>& document);
word::SelectionPtr MakeSelection(const std::shared_ptr<OpenDocument>& document);
word::BookmarksPtr MakeBookmarks(const std::shared_ptr<OpenDocument>& document);

}  // namespace docx
