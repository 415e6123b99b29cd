#include "addin/Connect.h"

#include "addin/modCommonErrorMsgs.h"
#include "platform/word/Application.h"

bool Connect::OnActiveDocument(std::u16string_view title,
                               const std::function<bool(const word::DocumentPtr&)>& command) {
  if (run_.ActiveIndexDocument) return false;
  bool done = true;
  const bool trapped = !TrapErrors(host_.messages, title, [&] {
    if (wordApp_->Documents()->Count() > 0) done = command(wordApp_->ActiveDocument());
  });
  return done && !trapped;
}

bool Connect::RemoveIndexing() {
  return OnActiveDocument(u"Remove indexing", [this](const word::DocumentPtr& document) {
    RequireTermMarker();
    return engine_->RemoveIndexing(wordApp_, document, run_.OptionsAccepted);
  });
}

bool Connect::RemoveHighlighting() {
  return OnActiveDocument(u"Remove highlighting only", [this](const word::DocumentPtr& document) {
    RequireTermMarker();
    return engine_->RemoveHighlighting(wordApp_, document);
  });
}

bool Connect::UpdateIndexField() {
  return OnActiveDocument(u"Update index", [this](const word::DocumentPtr& document) {
    return modKVX::UpdateIndexField(document, host_.messages);
  });
}
