#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "hosts/recording/CallObserver.h"
#include "hosts/recording/Values.h"
#include "platform/word/Types.h"

namespace recording {

/// What every recorded object is made of: the inner object and the observer. Each member forwards in one line through
/// On (a get, or a call that changes nothing), Put, or Call.
template <class Interface>
class Recorded : public Interface {
 public:
  Recorded(std::shared_ptr<Interface> inner, CallObserver& observer) : inner_(std::move(inner)), observer_(observer) {}

  const std::shared_ptr<Interface>& Inner() const { return inner_; }

 protected:
  Interface& On(std::string_view member) const {
    observer_.BeforeCall(member);
    return *inner_;
  }
  template <class T>
  Interface& Put(std::string_view member, const T& value) const {
    observer_.BeforeCall(member);
    observer_.WordPut(member, ToValue(value));
    return *inner_;
  }
  Interface& Call(std::string_view member, const Value& value = {}) const { return CallAs(member, member, value); }
  /// @param listed the member's name in the transcript
  Interface& CallAs(std::string_view member, std::string_view listed, const Value& value = {}) const {
    observer_.BeforeCall(member);
    observer_.WordCall(listed, value);
    return *inner_;
  }

  CallObserver& Observer() const { return observer_; }

 private:
  std::shared_ptr<Interface> inner_;
  CallObserver& observer_;
};

/// The inner host's own object; a pointer that is not recorded, or empty, as it is.
template <class Interface>
std::shared_ptr<Interface> Unwrap(const std::shared_ptr<Interface>& object) {
  const auto* recorded = dynamic_cast<const Recorded<Interface>*>(object.get());
  return recorded ? recorded->Inner() : object;
}

/// Empty stays empty.
word::ApplicationPtr Wrap(word::ApplicationPtr inner, CallObserver& observer);
word::BookmarkPtr Wrap(word::BookmarkPtr inner, CallObserver& observer);
word::BookmarksPtr Wrap(word::BookmarksPtr inner, CallObserver& observer);
word::CharactersPtr Wrap(word::CharactersPtr inner, CallObserver& observer);
word::CustomizationPtr Wrap(word::CustomizationPtr inner, CallObserver& observer);
word::DocumentPtr Wrap(word::DocumentPtr inner, CallObserver& observer);
word::DocumentsPtr Wrap(word::DocumentsPtr inner, CallObserver& observer);
word::FieldPtr Wrap(word::FieldPtr inner, CallObserver& observer);
word::FieldsPtr Wrap(word::FieldsPtr inner, CallObserver& observer);
word::FindPtr Wrap(word::FindPtr inner, CallObserver& observer);
word::FontPtr Wrap(word::FontPtr inner, CallObserver& observer);
word::OptionsPtr Wrap(word::OptionsPtr inner, CallObserver& observer);
word::PanePtr Wrap(word::PanePtr inner, CallObserver& observer);
word::ParagraphFormatPtr Wrap(word::ParagraphFormatPtr inner, CallObserver& observer);
word::RangePtr Wrap(word::RangePtr inner, CallObserver& observer);
word::ReplacementPtr Wrap(word::ReplacementPtr inner, CallObserver& observer);
word::RevisionPtr Wrap(word::RevisionPtr inner, CallObserver& observer);
word::RevisionsPtr Wrap(word::RevisionsPtr inner, CallObserver& observer);
word::SelectionPtr Wrap(word::SelectionPtr inner, CallObserver& observer);
word::StoryRangesPtr Wrap(word::StoryRangesPtr inner, CallObserver& observer);
word::TablesPtr Wrap(word::TablesPtr inner, CallObserver& observer);
word::TextRetrievalModePtr Wrap(word::TextRetrievalModePtr inner, CallObserver& observer);
word::ViewPtr Wrap(word::ViewPtr inner, CallObserver& observer);
word::WindowPtr Wrap(word::WindowPtr inner, CallObserver& observer);

/// How each Wrap above is defined.
template <class Class, class Interface>
std::shared_ptr<Interface> WrapAs(std::shared_ptr<Interface> inner, CallObserver& observer) {
  if (!inner) return {};
  return std::make_shared<Class>(std::move(inner), observer);
}

}  // namespace recording
