// Ranges, their searches and formats, bookmarks and fields.
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Find.h"
#include "platform/word/Format.h"
#include "platform/word/Range.h"
#include "tests/windows/server/ServedObject.h"
#include "tests/windows/server/WordsFindText.h"

namespace server {

namespace {

using com::Kind;
using com::Optional;
using com::Received;

constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kMethod = DISPATCH_METHOD;

/// A search with the text that Word was told, which is another than the host's for the same matches.
class SearchObject : public Object<word::Find> {
 public:
  using Object::Object;
  std::u16string told;

  static SearchObject& Of(Object<word::Find>& object) { return static_cast<SearchObject&>(object); }
};

/// A range keeps its search.
class RangeObject : public Object<word::Range> {
 public:
  using Object::Object;
  com::Variant search;

  static RangeObject& Of(Object<word::Range>& object) { return static_cast<RangeObject&>(object); }
};

bool Execute(Object<word::Find>& self, const Received& given) {
  constexpr std::size_t kReplace = 10;
  for (std::size_t i = 0; i < kReplace; ++i) {
    // The system puts them as properties; what is not used is not played.
    if (given.Has(i)) com::Check(E_NOTIMPL, "Find.Execute");
  }
  word::Find& find = self.Inner();
  find.SetText(HostsFindText(SearchObject::Of(self).told, find.MatchWildcards()));
  return find.Execute({.Replace = given.Has(kReplace) ? given.Int(kReplace) : word::wdReplaceNone});
}

const com::Members& FindMembers() {
  using F = word::Find;
  static const com::Members members{
      Method(u"ClearFormatting", &F::ClearFormatting),
      Special<F>(u"Text", kGet, {}, [](auto& self, const Received&) { return SearchObject::Of(self).told; }),
      Special<F>(u"Text", kPut, {{Kind::kText}},
                 [](auto& self, const Received& given) {
                   SearchObject::Of(self).told = given.Text(0);
                   return com::Variant();
                 }),
      Get(u"Forward", &F::Forward),
      Put(u"Forward", &F::SetForward),
      Get(u"Wrap", &F::Wrap),
      Put(u"Wrap", &F::SetWrap),
      Get(u"Format", &F::Format),
      Put(u"Format", &F::SetFormat),
      Get(u"MatchCase", &F::MatchCase),
      Put(u"MatchCase", &F::SetMatchCase),
      Get(u"MatchWholeWord", &F::MatchWholeWord),
      Put(u"MatchWholeWord", &F::SetMatchWholeWord),
      Get(u"MatchWildcards", &F::MatchWildcards),
      Put(u"MatchWildcards", &F::SetMatchWildcards),
      Get(u"MatchSoundsLike", &F::MatchSoundsLike),
      Put(u"MatchSoundsLike", &F::SetMatchSoundsLike),
      Get(u"MatchAllWordForms", &F::MatchAllWordForms),
      Put(u"MatchAllWordForms", &F::SetMatchAllWordForms),
      Get(u"Replacement", &F::Replacement),
      Get(u"Found", &F::Found),
      Special<F>(u"Execute", kMethod,
                 {Optional(Kind::kText), Optional(Kind::kBool), Optional(Kind::kBool), Optional(Kind::kBool),
                  Optional(Kind::kBool), Optional(Kind::kBool), Optional(Kind::kBool), Optional(Kind::kInt),
                  Optional(Kind::kBool), Optional(Kind::kText), Optional(Kind::kInt), Optional(Kind::kBool),
                  Optional(Kind::kBool), Optional(Kind::kBool), Optional(Kind::kBool)},
                 &Execute),
  };
  return members;
}

const com::Members& ReplacementMembers() {
  using R = word::Replacement;
  static const com::Members members{
      Method(u"ClearFormatting", &R::ClearFormatting),
      Get(u"Text", &R::Text),
      Put(u"Text", &R::SetText),
      Get(u"Highlight", &R::Highlight),
      Put(u"Highlight", &R::SetHighlight),
  };
  return members;
}

com::Variant SearchOf(Object<word::Range>& self) {
  com::Variant& search = RangeObject::Of(self).search;
  if (search.IsNothing()) search = Give(self.Inner().Find(), self.TheContext());
  return search;
}

/// What the system copies is one character: its text, and the formatting that a host's members show.
com::Variant CopyInto(word::Range& target, const word::Range& source) {
  target.SetText(source.Text());
  if (target.Font()->Bold() != source.Font()->Bold()) target.Font()->SetBold(source.Font()->Bold());
  if (target.Font()->Color() != source.Font()->Color()) target.Font()->SetColor(source.Font()->Color());
  if (target.HighlightColorIndex() != source.HighlightColorIndex()) {
    target.SetHighlightColorIndex(source.HighlightColorIndex());
  }
  return {};
}

/// Those of the document that share text with a range.
class BookmarksOfRange : public word::Bookmarks {
 public:
  BookmarksOfRange(word::BookmarksPtr all, const word::Range& range)
      : all_(std::move(all)), storyType_(range.StoryType()), begin_(range.Start()), end_(range.End()) {}

  int Count() const override { return static_cast<int>(Shared().size()); }
  bool Exists(std::u16string_view name) const override {
    return all_->Exists(name) && IsShared(*all_->Item(name)->Range());
  }
  word::BookmarkPtr Item(std::u16string_view name) const override { return all_->Item(name); }
  word::BookmarkPtr Item(int index) const override { return Shared().at(static_cast<std::size_t>(index) - 1); }
  word::BookmarkPtr Add(std::u16string_view name, const word::RangePtr& range) override {
    return all_->Add(name, range);
  }
  bool ShowHidden() const override { return all_->ShowHidden(); }
  void SetShowHidden(bool value) override { all_->SetShowHidden(value); }

 private:
  bool IsShared(const word::Range& range) const {
    return range.StoryType() == storyType_ && range.Start() < end_ && begin_ < range.End();
  }
  std::vector<word::BookmarkPtr> Shared() const {
    std::vector<word::BookmarkPtr> shared;
    for (int index = 1; index <= all_->Count(); ++index) {
      word::BookmarkPtr bookmark = all_->Item(index);
      if (IsShared(*bookmark->Range())) shared.push_back(std::move(bookmark));
    }
    return shared;
  }

  word::BookmarksPtr all_;
  int storyType_;
  word::Position begin_;
  word::Position end_;
};

const com::Members& RangeMembers() {
  using R = word::Range;
  static const com::Members members{
      Get(u"Start", &R::Start),
      Put(u"Start", &R::SetStart),
      Get(u"End", &R::End),
      Put(u"End", &R::SetEnd),
      Method(u"SetRange", &R::SetRange),
      Get(u"Text", &R::Text),
      Put(u"Text", &R::SetText),
      Get(u"FormattedText", &R::Duplicate),
      Special<R>(
          u"FormattedText", kPut, {{Kind::kObject}},
          [](auto& self, const Received& given) { return CopyInto(self.Inner(), *InnerOf<word::Range>(given, 0)); }),
      Get(u"TextRetrievalMode", &R::TextRetrievalMode),
      Get(u"StoryType", &R::StoryType),
      Special<R>(u"Information", kGet, {{Kind::kInt}},
                 [](auto& self, const Received& given) {
                   return self.Inner().Information(static_cast<word::WdInformation>(given.Int(0)));
                 }),
      Get(u"StoryLength", &R::StoryLength),
      Get(u"NextStoryRange", &R::NextStoryRange),
      Get(u"Duplicate", &R::Duplicate),
      Special<R>(u"Collapse", kMethod, {Optional(Kind::kInt)},
                 [](auto& self, const Received& given) {
                   const int direction = given.Has(0) ? given.Int(0) : word::wdCollapseStart;
                   self.Inner().Collapse(static_cast<word::WdCollapseDirection>(direction));
                   return com::Variant();
                 }),
      Special<R>(u"MoveStart", kMethod, {Optional(Kind::kInt), Optional(Kind::kInt)},
                 [](auto& self, const Received& given) {
                   return self.Inner().MoveStart(static_cast<word::WdUnits>(given.Int(0)),
                                                 given.Has(1) ? given.Int(1) : 1);
                 }),
      Method(u"Select", &R::Select),
      Method(u"InsertParagraphBefore", &R::InsertParagraphBefore),
      Special<R>(u"Delete", kMethod, {Optional(Kind::kInt), Optional(Kind::kInt)},
                 [](auto& self, const Received&) {
                   self.Inner().Delete();
                   return com::Variant(1);
                 }),
      Special<R>(u"Find", kGet, {}, [](auto& self, const Received&) { return SearchOf(self); }),
      Special<R>(u"Bookmarks", kGet, {},
                 [](auto& self, const Received&) -> word::BookmarksPtr {
                   return std::make_shared<BookmarksOfRange>(self.TheContext()->document->Bookmarks(), self.Inner());
                 }),
      Get(u"Characters", &R::Characters),
      Get(u"Fields", &R::Fields),
      Get(u"Revisions", &R::Revisions),
      Get(u"Font", &R::Font),
      Get(u"ParagraphFormat", &R::ParagraphFormat),
      Get(u"HighlightColorIndex", &R::HighlightColorIndex),
      Put(u"HighlightColorIndex", &R::SetHighlightColorIndex),
  };
  return members;
}

const com::Members& CharactersMembers() {
  using C = word::Characters;
  static const com::Members members{Get(u"First", &C::First), Get(u"Last", &C::Last)};
  return members;
}

const com::Members& TextRetrievalModeMembers() {
  using T = word::TextRetrievalMode;
  static const com::Members members{
      Get(u"IncludeFieldCodes", &T::IncludeFieldCodes), Put(u"IncludeFieldCodes", &T::SetIncludeFieldCodes),
      Get(u"IncludeHiddenText", &T::IncludeHiddenText), Put(u"IncludeHiddenText", &T::SetIncludeHiddenText)};
  return members;
}

const com::Members& RevisionMembers() {
  static const com::Members members{Get(u"Type", &word::Revision::Type), Get(u"Range", &word::Revision::Range)};
  return members;
}

const com::Members& RevisionsMembers() {
  static const com::Members members{Get(u"Count", &word::Revisions::Count), ItemByNumber(&word::Revisions::Item)};
  return members;
}

const com::Members& FontMembers() {
  using F = word::Font;
  static const com::Members members{Get(u"Bold", &F::Bold), Put(u"Bold", &F::SetBold), Get(u"Hidden", &F::Hidden),
                                    Get(u"Color", &F::Color), Put(u"Color", &F::SetColor)};
  return members;
}

const com::Members& ParagraphFormatMembers() {
  using P = word::ParagraphFormat;
  static const com::Members members{Get(u"Alignment", &P::Alignment),     Put(u"Alignment", &P::SetAlignment),
                                    Get(u"SpaceBefore", &P::SpaceBefore), Put(u"SpaceBefore", &P::SetSpaceBefore),
                                    Get(u"SpaceAfter", &P::SpaceAfter),   Put(u"SpaceAfter", &P::SetSpaceAfter)};
  return members;
}

const com::Members& BookmarkMembers() {
  using B = word::Bookmark;
  static const com::Members members{Get(u"Name", &B::Name), Get(u"Range", &B::Range), Method(u"Select", &B::Select),
                                    Method(u"Delete", &B::Delete)};
  return members;
}

const com::Members& BookmarksMembers() {
  using B = word::Bookmarks;
  static const com::Members members{
      Get(u"Count", &B::Count),
      Special<B>(u"Exists", kMethod, {{Kind::kText}},
                 [](auto& self, const Received& given) { return self.Inner().Exists(given.Text(0)); }),
      Special<B>(u"Item", kMethod | kGet, {{Kind::kAny}},
                 [](auto& self, const Received& given) {
                   return given.Get(0).Type() == VT_BSTR ? self.Inner().Item(given.Text(0))
                                                         : self.Inner().Item(given.Int(0));
                 }),
      Special<B>(u"Add", kMethod, {{Kind::kText}, Optional(Kind::kObject)},
                 [](auto& self, const Received& given) {
                   return self.Inner().Add(given.Text(0), InnerOf<word::Range>(given, 1));
                 }),
      Get(u"ShowHidden", &B::ShowHidden),
      Put(u"ShowHidden", &B::SetShowHidden),
  };
  return members;
}

const com::Members& FieldMembers() {
  using F = word::Field;
  static const com::Members members{Get(u"Type", &F::Type), Get(u"Code", &F::Code), Get(u"Result", &F::Result),
                                    Method(u"Update", &F::Update), Method(u"Delete", &F::Delete)};
  return members;
}

const com::Members& FieldsMembers() {
  using F = word::Fields;
  static const com::Members members{
      Get(u"Count", &F::Count), ItemByNumber(&F::Item),
      Special<F>(u"Add", kMethod, {{Kind::kObject}, Optional(Kind::kInt), Optional(Kind::kText), Optional(Kind::kBool)},
                 [](auto& self, const Received& given) {
                   return self.Inner().Add(InnerOf<word::Range>(given, 0),
                                           {.Type = given.Has(1) ? given.Int(1) : word::wdFieldEmpty,
                                            .Text = given.Text(2),
                                            .PreserveFormatting = !given.Has(3) || given.Bool(3)});
                 })};
  return members;
}

template <class Made, class Inner>
com::Variant MakeSpecial(const com::Members& members, const Inner& inner, const ContextPtr& context) {
  if (!inner) return com::Variant(static_cast<IDispatch*>(nullptr));
  const auto made = com::ComPtr<IDispatch>::Adopt(new Made(members, inner, context));
  return com::Variant(made.Get());
}

}  // namespace

com::Variant Give(const word::FindPtr& inner, const ContextPtr& context) {
  return MakeSpecial<SearchObject>(FindMembers(), inner, context);
}
com::Variant Give(const word::ReplacementPtr& inner, const ContextPtr& context) {
  return MakeObject(ReplacementMembers(), inner, context);
}
com::Variant Give(const word::RangePtr& inner, const ContextPtr& context) {
  return MakeSpecial<RangeObject>(RangeMembers(), inner, context);
}
com::Variant Give(const word::CharactersPtr& inner, const ContextPtr& context) {
  return MakeObject(CharactersMembers(), inner, context);
}
com::Variant Give(const word::TextRetrievalModePtr& inner, const ContextPtr& context) {
  return MakeObject(TextRetrievalModeMembers(), inner, context);
}
com::Variant Give(const word::RevisionPtr& inner, const ContextPtr& context) {
  return MakeObject(RevisionMembers(), inner, context);
}
com::Variant Give(const word::RevisionsPtr& inner, const ContextPtr& context) {
  return MakeObject(RevisionsMembers(), inner, context);
}
com::Variant Give(const word::FontPtr& inner, const ContextPtr& context) {
  return MakeObject(FontMembers(), inner, context);
}
com::Variant Give(const word::ParagraphFormatPtr& inner, const ContextPtr& context) {
  return MakeObject(ParagraphFormatMembers(), inner, context);
}
com::Variant Give(const word::BookmarkPtr& inner, const ContextPtr& context) {
  return MakeObject(BookmarkMembers(), inner, context);
}
com::Variant Give(const word::BookmarksPtr& inner, const ContextPtr& context) {
  return MakeObject(BookmarksMembers(), inner, context);
}
com::Variant Give(const word::FieldPtr& inner, const ContextPtr& context) {
  return MakeObject(FieldMembers(), inner, context);
}
com::Variant Give(const word::FieldsPtr& inner, const ContextPtr& context) {
  return MakeObject(FieldsMembers(), inner, context);
}

}  // namespace server
