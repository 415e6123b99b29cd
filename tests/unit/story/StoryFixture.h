#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "hosts/docx/story/Story.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/HostError.h"

/// A main story over the XML of a body's content, written with the prefix "w".
class StoryFixture {
 public:
  explicit StoryFixture(const std::string& body, const std::string& rootAttributes = {})
      : part(std::make_shared<docx::XmlPart>("document.xml", Wrap(body, rootAttributes))),
        story(std::make_unique<docx::Story>(part, 1, std::vector{Node()})),
        before(Body()) {}

  std::string Text() const { return docx::ToUtf8(story->Text(0, story->Length())); }
  /// The body's content as it would be written now.
  std::string Body() const {
    story->DropApartMarks();
    const std::string xml = part->Serialize();
    const std::size_t from = xml.find("<w:body>") + 8;
    return xml.substr(from, xml.find("</w:body>") - from);
  }
  docx::XmlNode Node() const { return part->Child(part->Root(), docx::Tag::kBody); }

  /// The story that somebody who opens the document now would see has the same text and the same bookmarks.
  void ExpectFresh() const {
    auto again = std::make_shared<docx::XmlPart>("document.xml", part->Serialize());
    const docx::Story fresh(again, 1, {again->Child(again->Root(), docx::Tag::kBody)});
    EXPECT_EQ(docx::ToUtf8(fresh.Text(0, fresh.Length())), Text());
    EXPECT_EQ(Bookmarks(fresh), Bookmarks(*story));
  }

  static std::string Bookmarks(const docx::Story& story) {
    std::string list;
    const docx::AtomSequence& atoms = story.Atoms();
    for (auto place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
      const docx::Atom& atom = atoms.Get(place);
      if (atom.length != 0) continue;
      list += (atom.kind == docx::AtomKind::kBookmarkStart ? "(" : ")") + std::to_string(place.start);
      list.append("#").append(story.Part().Attribute(atom.Node(), "id").Value()).append(" ");
    }
    return list;
  }

  std::shared_ptr<docx::XmlPart> part;
  std::unique_ptr<docx::Story> story;
  std::string before;

 private:
  static std::string Wrap(const std::string& body, const std::string& rootAttributes) {
    return "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"" + rootAttributes +
           "><w:body>" + body + "</w:body></w:document>";
  }
};
