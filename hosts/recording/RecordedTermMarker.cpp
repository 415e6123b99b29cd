#include "hosts/recording/Recorded.h"
#include "hosts/recording/Recording.h"
#include "platform/word/Application.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

#include <string>

namespace recording {

namespace {

template <class Interface>
Value Argument(const std::shared_ptr<Interface>& object) {
  return ToValue(Unwrap(object));
}
template <class T>
Value Argument(const T& value) {
  return ToValue(value);
}

/// The arguments are read before the call, which may move the ranges among them.
template <class... T>
Value Arguments(const T&... values) {
  Value list = Value::array();
  (list.push_back(Argument(values)), ...);
  return list;
}

void TellError(CallObserver& observer, std::string_view operation, const Value& arguments,
               const word::HostError& error) {
  Value thrown = Value::object();
  thrown["error"] = error.Number();
  thrown["description"] = ToValue(error.Description());
  observer.Marker(operation, arguments, thrown);
}

/// Makes a call that has a result, and tells of it.
template <class Operation>
auto Ask(CallObserver& observer, std::string_view operation, const Value& arguments, Operation call) try {
  observer.BeforeCall("TermMarker." + std::string(operation));
  auto result = call();
  observer.Marker(operation, arguments, ToValue(result));
  return result;
} catch (const word::HostError& error) {
  TellError(observer, operation, arguments, error);
  throw;
}

/// Makes a call without a result, and tells of it.
template <class Operation>
void Tell(CallObserver& observer, std::string_view operation, const Value& arguments, Operation call) try {
  observer.BeforeCall("TermMarker." + std::string(operation));
  call();
  observer.Marker(operation, arguments, {});
} catch (const word::HostError& error) {
  TellError(observer, operation, arguments, error);
  throw;
}

class RecordedTermMarker : public TermMarker {
 public:
  RecordedTermMarker(std::unique_ptr<TermMarker> inner, CallObserver& observer)
      : inner_(std::move(inner)), observer_(observer) {}

  void AddTerm(const word::RangePtr& range, std::vector<std::u16string>& terms) override {
    // The array stands as its upper bound, and the result is how long it became: its texts at every call would make a
    // transcript as long as their square.
    const int upperBound = static_cast<int>(terms.size()) - 1;
    static_cast<void>(Ask(observer_, "AddTerm", Arguments(range, upperBound), [&] {
      inner_->AddTerm(Unwrap(range), terms);
      return static_cast<int>(terms.size());
    }));
  }
  void OptionChanged(const word::DocumentPtr& document, const QuoteHighlighting* next) override {
    if (next == nullptr) {
      Tell(observer_, "OptionChanged", Arguments(document), [&] { inner_->OptionChanged(Unwrap(document), nullptr); });
      return;
    }
    const QuoteHighlighting inner{Unwrap(next->story), next->quote};
    Tell(observer_, "OptionChanged", Arguments(document, next->story, std::u16string_view(&next->quote, 1)),
         [&] { inner_->OptionChanged(Unwrap(document), &inner); });
  }
  void BeginIndexing(const word::DocumentPtr& document) override {
    Tell(observer_, "BeginIndexing", Arguments(document), [&] { inner_->BeginIndexing(Unwrap(document)); });
  }
  void EndIndexing(const word::DocumentPtr& document) override {
    Tell(observer_, "EndIndexing", Arguments(document), [&] { inner_->EndIndexing(Unwrap(document)); });
  }
  TermTable BuildTermTable(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                           const std::vector<std::u16string>& chosen, bool matchCase) override {
    return Ask(observer_, "BuildTermTable", Arguments(application, document, chosen, matchCase),
               [&] { return inner_->BuildTermTable(Unwrap(application), Unwrap(document), chosen, matchCase); });
  }
  std::int32_t MarkTermInStory(const word::DocumentPtr& document, const word::RangePtr& story, std::u16string_view text,
                               std::int32_t count, int storyType, bool matchCase, bool allCaps,
                               std::u16string_view indexWhat, std::u16string_view entryText) override {
    return Ask(observer_, "MarkTermInStory",
               Arguments(document, story, text, count, storyType, matchCase, allCaps, indexWhat, entryText), [&] {
                 return inner_->MarkTermInStory(Unwrap(document), Unwrap(story), text, count, storyType, matchCase,
                                                allCaps, indexWhat, entryText);
               });
  }
  std::vector<std::u16string> GetUnusedAndMissing(const TermTable& table) override {
    return Ask(observer_, "GetUnusedAndMissing", Arguments(table), [&] { return inner_->GetUnusedAndMissing(table); });
  }
  void InsertIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, int columns,
                   std::u16string_view separator) override {
    Tell(observer_, "InsertIndex", Arguments(application, document, columns, separator),
         [&] { inner_->InsertIndex(Unwrap(application), Unwrap(document), columns, separator); });
  }
  void UpdateIndex(const word::DocumentPtr& document) override {
    Tell(observer_, "UpdateIndex", Arguments(document), [&] { inner_->UpdateIndex(Unwrap(document)); });
  }
  void RemoveIndexEntries(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                          bool flag) override {
    Tell(observer_, "RemoveIndexEntries", Arguments(application, document, flag),
         [&] { inner_->RemoveIndexEntries(Unwrap(application), Unwrap(document), flag); });
  }
  void RemoveIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, bool flag) override {
    Tell(observer_, "RemoveIndex", Arguments(application, document, flag),
         [&] { inner_->RemoveIndex(Unwrap(application), Unwrap(document), flag); });
  }
  void RemoveTermHighlighting(const word::DocumentPtr& document) override {
    Tell(observer_, "RemoveTermHighlighting", Arguments(document),
         [&] { inner_->RemoveTermHighlighting(Unwrap(document)); });
  }
  void FinishDocument(const word::DocumentPtr& document) override {
    Tell(observer_, "FinishDocument", Arguments(document), [&] { inner_->FinishDocument(Unwrap(document)); });
  }

 private:
  std::unique_ptr<TermMarker> inner_;
  CallObserver& observer_;
};

}  // namespace

word::ApplicationPtr Record(word::ApplicationPtr inner, CallObserver& observer) {
  return Wrap(std::move(inner), observer);
}

std::unique_ptr<TermMarker> Record(std::unique_ptr<TermMarker> inner, CallObserver& observer) {
  if (!inner) return {};
  return std::make_unique<RecordedTermMarker>(std::move(inner), observer);
}

}  // namespace recording
