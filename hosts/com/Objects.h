#pragma once

#include <memory>
#include <utility>

#include "hosts/com/Dispatch.h"
#include "platform/office/CommandBars.h"
#include "platform/word/Types.h"

namespace com {

/// The side of a proxy that its fellows see: what stands behind it.
class Proxy {
 public:
  explicit Proxy(Dispatch word) : word_(std::move(word)) {}
  virtual ~Proxy() = default;
  Proxy(const Proxy&) = delete;
  Proxy& operator=(const Proxy&) = delete;
  const Dispatch& Word() const { return word_; }

 protected:
  Dispatch word_;
};

/// What every proxy is made of. Each member forwards to the object of the word processor.
template <class Interface>
class Proxied : public Interface, public Proxy {
 public:
  using Proxy::Proxy;
};

/// The automation object behind a proxy of this host, as an argument. @throws std::bad_cast for another host's
template <class Interface>
IDispatch* ObjectOf(const std::shared_ptr<Interface>& object) {
  return object ? dynamic_cast<const Proxy&>(*object).Word().Object() : nullptr;
}

// One for each class that another file's proxies give out.
word::BookmarksPtr MakeBookmarks(Dispatch word);
office::CommandBarsPtr MakeCommandBars(Dispatch word);
word::DocumentPtr MakeDocument(Dispatch word);
word::FieldsPtr MakeFields(Dispatch word);
word::FontPtr MakeFont(Dispatch word);
word::ParagraphFormatPtr MakeParagraphFormat(Dispatch word);
word::RangePtr MakeRange(Dispatch word);
word::SelectionPtr MakeSelection(Dispatch word);
word::WindowPtr MakeWindow(Dispatch word);

}  // namespace com
