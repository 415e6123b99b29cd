#include "hosts/com/TermMarkerClient.h"

#include <utility>

#include "hosts/com/ComError.h"
#include "hosts/com/Dispatch.h"
#include "hosts/com/TermTables.h"
#include "hosts/com/WordProcessor.h"

namespace com {

namespace {

class Client : public TermMarker {
 public:
  explicit Client(ComPtr<IDispatch> marker) : marker_(std::move(marker), std::make_shared<Session>()) {}

  void AddTerm(const word::RangePtr& range, std::vector<std::u16string>& terms) override {
    Variant array(terms);
    marker_.Call("TermMarker.AddTerm", {Unwrap(range), Variant::Reference(array)});
    terms = array.ToTexts();
  }
  void OptionChanged(const word::DocumentPtr& document, const QuoteHighlighting* next) override {
    if (next == nullptr) {
      marker_.Call("TermMarker.OptionChanged", {Unwrap(document)});
    } else {
      marker_.Call("TermMarker.OptionChanged",
                   {Unwrap(document), Unwrap(next->story), std::u16string_view(&next->quote, 1)});
    }
  }
  void BeginIndexing(const word::DocumentPtr& document) override {
    marker_.Call("TermMarker.BeginIndexing", {Unwrap(document)});
  }
  void EndIndexing(const word::DocumentPtr& document) override {
    marker_.Call("TermMarker.EndIndexing", {Unwrap(document)});
  }
  TermTable BuildTermTable(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                           const std::vector<std::u16string>& chosen, bool matchCase) override {
    return ToTermTable(
        marker_.Call("TermMarker.BuildTermTable", {Unwrap(application), Unwrap(document), Variant(chosen), matchCase}));
  }
  std::int32_t MarkTermInStory(const word::DocumentPtr& document, const word::RangePtr& story, std::u16string_view text,
                               std::int32_t count, int storyType, bool matchCase, bool allCaps,
                               std::u16string_view indexWhat, std::u16string_view entryText) override {
    return marker_
        .Call("TermMarker.MarkTermInStory", {Unwrap(document), Unwrap(story), text, static_cast<int>(count), storyType,
                                             matchCase, allCaps, indexWhat, entryText})
        .ToInt();
  }
  std::vector<std::u16string> GetUnusedAndMissing(const TermTable& table) override {
    return marker_.Call("TermMarker.GetUnusedAndMissing", {FromTermTable(table)}).ToTexts();
  }
  void InsertIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, int columns,
                   std::u16string_view separator) override {
    marker_.Call("TermMarker.InsertIndex", {Unwrap(application), Unwrap(document), columns, separator});
  }
  void UpdateIndex(const word::DocumentPtr& document) override {
    marker_.Call("TermMarker.UpdateIndex", {Unwrap(document)});
  }
  void RemoveIndexEntries(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                          bool flag) override {
    marker_.Call("TermMarker.RemoveIndexEntries", {Unwrap(application), Unwrap(document), flag});
  }
  void RemoveIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, bool flag) override {
    marker_.Call("TermMarker.RemoveIndex", {Unwrap(application), Unwrap(document), flag});
  }
  void RemoveTermHighlighting(const word::DocumentPtr& document) override {
    marker_.Call("TermMarker.RemoveTermHighlighting", {Unwrap(document)});
  }
  void FinishDocument(const word::DocumentPtr& document) override {
    marker_.Call("TermMarker.FinishDocument", {Unwrap(document)});
  }

 private:
  Dispatch marker_;
};

}  // namespace

std::unique_ptr<TermMarker> WrapTermMarker(ComPtr<IDispatch> marker) {
  return std::make_unique<Client>(std::move(marker));
}

std::unique_ptr<TermMarker> CreateTermMarker() {
  constexpr std::string_view kMember = "CreateObject";
  CLSID id;
  Check(CLSIDFromProgID(kTermMarkerProgId, &id), kMember);
  void* made = nullptr;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made), kMember);
  return WrapTermMarker(ComPtr<IDispatch>::Adopt(static_cast<IDispatch*>(made)));
}

}  // namespace com
