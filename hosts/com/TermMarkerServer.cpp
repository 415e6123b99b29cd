#include "hosts/com/TermMarkerServer.h"

#include <utility>

#include "hosts/com/AutomationObject.h"
#include "hosts/com/ComError.h"
#include "hosts/com/TermTables.h"
#include "hosts/com/WordProcessor.h"

namespace com {

namespace {

class Server : public AutomationObject {
 public:
  explicit Server(std::unique_ptr<TermMarker> marker) : AutomationObject(Class()), marker_(std::move(marker)) {}

 private:
  static const Members& Class();
  static Server& Of(AutomationObject& object) { return static_cast<Server&>(object); }

  /// A member of the companion without a result.
  template <class Work>
  static Member Operation(std::u16string_view name, std::vector<Parameter> parameters, Work work) {
    return {name, DISPATCH_METHOD, std::move(parameters), [work](AutomationObject& self, const Received& given) {
              work(Of(self), *Of(self).marker_, given);
              return Variant();
            }};
  }
  template <class Work>
  static Member Function(std::u16string_view name, std::vector<Parameter> parameters, Work work) {
    return {name, DISPATCH_METHOD, std::move(parameters), [work](AutomationObject& self, const Received& given) {
              return Variant(work(Of(self), *Of(self).marker_, given));
            }};
  }

  word::ApplicationPtr Application(const Received& given, std::size_t index) const {
    return WrapApplication(Needed(given, index).Get(), session_);
  }
  word::DocumentPtr Document(const Received& given, std::size_t index) const {
    return WrapDocument(Needed(given, index).Get(), session_);
  }
  word::RangePtr Range(const Received& given, std::size_t index) const {
    return WrapRange(Needed(given, index).Get(), session_);
  }
  static ComPtr<IDispatch> Needed(const Received& given, std::size_t index) {
    ComPtr<IDispatch> object = given.Object(index);
    if (!object) Check(E_POINTER, "TermMarker");
    return object;
  }

  void OptionChanged(const Received& given) {
    const std::u16string quote = given.Text(2);
    if (!given.Has(1) || quote.empty()) return marker_->OptionChanged(Document(given, 0), nullptr);
    const QuoteHighlighting next{Range(given, 1), quote.front()};
    marker_->OptionChanged(Document(given, 0), &next);
  }

  std::unique_ptr<TermMarker> marker_;
  SessionPtr session_ = std::make_shared<Session>();
};

const Members& Server::Class() {
  constexpr Parameter kObject{Kind::kObject};
  constexpr Parameter kText{Kind::kText};
  constexpr Parameter kInt{Kind::kInt};
  constexpr Parameter kBool{Kind::kBool};
  constexpr Parameter kAny{Kind::kAny};
  static const Members members{
      Operation(u"AddTerm", {kObject, kAny},
                [](Server& self, TermMarker& marker, const Received& given) {
                  std::vector<std::u16string> terms = given.Get(1).ToTexts();
                  marker.AddTerm(self.Range(given, 0), terms);
                  given.Return(1, Variant(terms));
                }),
      Operation(u"OptionChanged", {kObject, Optional(Kind::kObject), Optional(Kind::kText)},
                [](Server& self, TermMarker&, const Received& given) { self.OptionChanged(given); }),
      Operation(u"BeginIndexing", {kObject},
                [](Server& self, TermMarker& marker, const Received& given) {
                  marker.BeginIndexing(self.Document(given, 0));
                }),
      Operation(
          u"EndIndexing", {kObject},
          [](Server& self, TermMarker& marker, const Received& given) { marker.EndIndexing(self.Document(given, 0)); }),
      Function(u"BuildTermTable", {kObject, kObject, kAny, kBool},
               [](Server& self, TermMarker& marker, const Received& given) {
                 return FromTermTable(marker.BuildTermTable(self.Application(given, 0), self.Document(given, 1),
                                                            given.Get(2).ToTexts(), given.Bool(3)));
               }),
      Function(u"MarkTermInStory", {kObject, kObject, kText, kInt, kInt, kBool, kBool, kText, kText},
               [](Server& self, TermMarker& marker, const Received& given) {
                 return marker.MarkTermInStory(self.Document(given, 0), self.Range(given, 1), given.Text(2),
                                               given.Int(3), given.Int(4), given.Bool(5), given.Bool(6), given.Text(7),
                                               given.Text(8));
               }),
      Function(u"GetUnusedAndMissing", {kAny},
               [](Server&, TermMarker& marker, const Received& given) {
                 return marker.GetUnusedAndMissing(ToTermTable(given.Get(0)));
               }),
      Operation(u"InsertIndex", {kObject, kObject, kInt, kText},
                [](Server& self, TermMarker& marker, const Received& given) {
                  marker.InsertIndex(self.Application(given, 0), self.Document(given, 1), given.Int(2), given.Text(3));
                }),
      Operation(
          u"UpdateIndex", {kObject},
          [](Server& self, TermMarker& marker, const Received& given) { marker.UpdateIndex(self.Document(given, 0)); }),
      Operation(u"RemoveIndexEntries", {kObject, kObject, kBool},
                [](Server& self, TermMarker& marker, const Received& given) {
                  marker.RemoveIndexEntries(self.Application(given, 0), self.Document(given, 1), given.Bool(2));
                }),
      Operation(u"RemoveIndex", {kObject, kObject, kBool},
                [](Server& self, TermMarker& marker, const Received& given) {
                  marker.RemoveIndex(self.Application(given, 0), self.Document(given, 1), given.Bool(2));
                }),
      Operation(u"RemoveTermHighlighting", {kObject},
                [](Server& self, TermMarker& marker, const Received& given) {
                  marker.RemoveTermHighlighting(self.Document(given, 0));
                }),
      Operation(u"FinishDocument", {kObject},
                [](Server& self, TermMarker& marker, const Received& given) {
                  marker.FinishDocument(self.Document(given, 0));
                }),
  };
  return members;
}

}  // namespace

ComPtr<IDispatch> ServeTermMarker(std::unique_ptr<TermMarker> marker) {
  return ComPtr<IDispatch>::Adopt(new Server(std::move(marker)));
}

}  // namespace com
