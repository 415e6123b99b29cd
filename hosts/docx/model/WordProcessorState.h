#pragma once

#include <memory>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/model/OpenDocument.h"

namespace docx {

/// What the word processor's proxies share.
struct WordProcessorState {
  std::shared_ptr<OpenDocument> document;
  OptionsState options;
  bool screenUpdating{true};
  /// nullptr: there are no menus.
  office::CommandBarsPtr commandBars;
  bool customizationSaved{true};
};

}  // namespace docx
