#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hosts/menus/MenuBars.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "tests/fakes/CallLog.h"

namespace fakes {

/// For members that no test needs. @throws std::logic_error
[[noreturn]] void NotHere();

/// A stretch of a story, which is known by its number in FakeWord::stories.
struct Place {
  std::size_t story{0};
  word::Position start{0};
  word::Position end{0};
};

/// What a FakeApplication stands for: one document whose stories are plain texts, and Word's settings. Tests
/// set it up, hand out MakeApplication(), and read it afterwards. Every property put and every call that
/// changes something goes into the log; a member that no test needs throws std::logic_error.
class FakeWord {
 public:
  struct Story {
    int type{word::wdMainTextStory};
    std::u16string text;
    /// Stretches of bold characters, from and to.
    std::vector<std::pair<word::Position, word::Position>> bold{};
    /// Where its second page begins, its third, and so on.
    std::vector<word::Position> pages{};
  };

  /// A field of the main text, whose code stands somewhere in a story.
  struct Field {
    int type{word::wdFieldEmpty};
    Place code{};
  };

  explicit FakeWord(CallLog& callLog) : log(callLog) {}
  word::ApplicationPtr MakeApplication();
  word::DocumentPtr MakeDocument();
  word::RangePtr MakeRange(Place place);
  /// The whole of the story with this number in stories.
  word::RangePtr MakeStory(std::size_t story);
  /// Puts text in; bookmarks behind it move, and those around it grow. @return where it ends
  word::Position Insert(Place at, std::u16string_view text);

  CallLog& log;
  menus::MenuBars menus;
  bool hasMenus{true};
  /// Told of every call into the menus before it is made; what it throws becomes of the call. Empty: nobody is.
  std::function<void()> onMenuCall;
  bool customizationSaved{false};
  bool hasDocument{true};
  /// Every search is an error.
  bool findFails{false};
  /// Asking for the stories is an error.
  bool storiesFail{false};
  std::u16string name{u"contract.docx"};
  std::u16string path{u"C:\\Contracts"};
  /// So many times Path is read as that of a new document before it is the one above.
  int readsAsNew{0};
  std::vector<Story> stories{{word::wdMainTextStory, u"\r", {}, {}}};
  std::map<std::u16string, Place> bookmarks;
  /// What was highlighted, in that order.
  std::vector<Place> highlights;
  std::vector<Field> fields;
  Place selection;
  int tables{0};
  /// Of every paragraph.
  int alignment{word::wdAlignParagraphLeft};

  bool replaceQuotes{true};
  bool allowFastSave{true};
  bool checkSpelling{true};
  bool checkGrammar{true};
  bool pagination{false};
  bool screenUpdating{true};
  bool showGrammaticalErrors{true};
  bool showSpellingErrors{true};
  bool showAll{true};
  bool showHiddenText{true};
  int splitSpecial{0};
  /// The window's view; the active pane's view is paneViewType.
  int windowViewType{word::wdNormalView};
  int paneViewType{word::wdNormalView};
};

}  // namespace fakes
