#pragma once

#include "DocxDocument.h"
#include "Markup.h"

#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using Terms = std::vector<std::u16string>;

inline std::u16string Entry(std::u16string_view text) {
  return std::u16string(u"\u0013 XE \"").append(text).append(u"\" \\f \"DefinedTermsIndex\" \u0015");
}

/// The marker at work on a document of the .docx host.
class TermMarkerOnDocx : public testing::Test {
 protected:
  void Open(const DocxDocument::Parts& parts) { docx_.emplace(parts); }
  void OpenParagraph(const std::string& content) { Open({.body = Paragraph(content)}); }

  /// As the author of an index has it.
  void OpenWithIndexStyle(const std::string& content) {
    Open({.body = Paragraph(content),
          .styles = "<w:style w:type=\"paragraph\" w:styleId=\"Index1\"><w:name w:val=\"index 1\"/></w:style>"});
  }

  TermTable Mark(const Terms& chosen) {
    const word::DocumentPtr document = docx_->Document();
    marker_->BeginIndexing(document);
    TermTable table = marker_->BuildTermTable(docx_->Application(), document, chosen, true);
    const word::StoryRangesPtr stories = document->StoryRanges();
    for (int index = 1; index <= stories->Count(); ++index) {
      const word::RangePtr story = stories->Item(index);
      if (story->StoryType() >= word::wdCommentsStory) continue;
      for (TermRow& row : table) {
        row.count = marker_->MarkTermInStory(document, story, row.term, row.count, story->StoryType(), true, false,
                                             u"IndexAll", u"");
      }
    }
    marker_->EndIndexing(document);
    return table;
  }

  void InsertIndexAt(word::Position position, int columns) {
    const word::DocumentPtr document = docx_->Document();
    document->Bookmarks()->Add(u"IndexBKStart", document->Range(position, position));
    marker_->InsertIndex(docx_->Application(), document, columns, u":  \t");
    document->Bookmarks()->Item(u"IndexBKStart")->Delete();
  }

  void RemoveAll() {
    const word::DocumentPtr document = docx_->Document();
    marker_->RemoveIndexEntries(docx_->Application(), document, false);
    marker_->RemoveIndex(docx_->Application(), document, true);
    marker_->RemoveTermHighlighting(document);
  }

  /// Marks one term, sees how often, and that taking all away gives the document back.
  void ExpectMarkedAndGivenBack(const std::u16string& term, int count) {
    const auto before = docx_->Canonical();
    EXPECT_EQ(Mark({term})[0].count, count);
    InsertIndexAt(0, 2);
    RemoveAll();
    ExpectSameParts(before);
  }

  void ExpectSameParts(const std::map<std::string, std::string>& before) {
    const auto after = docx_->Canonical();
    for (const auto& [name, content] : before) {
      ASSERT_TRUE(after.contains(name)) << name;
      EXPECT_EQ(after.at(name), content) << name;
    }
    EXPECT_EQ(after.size(), before.size());
  }

  std::unique_ptr<TermMarker> marker_ = reach::Marker();
  std::optional<DocxDocument> docx_;
};
