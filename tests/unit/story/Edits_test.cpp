#include <gtest/gtest.h>

#include <random>

#include "tests/unit/story/StoryFixture.h"

namespace {

docx::RevisionStamp Stamp(int id) { return {id, "Kelvarin", "2026-01-02T03:04:05Z"}; }

std::string RandomBody(std::mt19937& random) {
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  std::string body;
  int bookmark = 0;
  for (int p = 0; p < 6; ++p) {
    body += "<w:p>";
    for (int r = below(5); r > 0; --r) {
      const std::string text = "<w:r><w:t>" +
                               std::string(static_cast<std::size_t>(1 + below(6)), static_cast<char>('a' + below(26))) +
                               "</w:t></w:r>";
      const auto texts = [&] {
        std::string run;
        for (int t = 2 + below(2); t > 0; --t) {
          run += std::string("<w:t") + (below(2) == 0 ? " xml:space=\"preserve\">" : ">") +
                 std::string(static_cast<std::size_t>(1 + below(4)), static_cast<char>('a' + below(26))) + "</w:t>";
        }
        return "<w:r>" + run + "</w:r>";
      };
      switch (below(9)) {
        case 0:
          body += "<w:del>" + text + "</w:del>";
          break;
        case 1:
          body += "<w:hyperlink>" + text + text + "</w:hyperlink>";
          break;
        case 2: {
          const std::string id = std::to_string(++bookmark);
          body += "<w:bookmarkStart w:id=\"" + id + "\" w:name=\"b" + id + "\"/>" + text + "<w:bookmarkEnd w:id=\"" +
                  id + "\"/>";
          break;
        }
        case 3:
          body += "<w:r><w:t>x</w:t><w:tab/><w:t>y</w:t></w:r>";
          break;
        case 4:
          body += texts();
          break;
        case 5:
          body += "<w:r><w:t>ab<!-- c -->cd<![CDATA[<e>]]><?p i?>fg</w:t></w:r>";
          break;
        case 6:
          // All say the same of themselves.
          body += "<w:ins w:id=\"50\" w:author=\"A\">" + text + "</w:ins>";
          break;
        default:
          body += text;
      }
    }
    body += "</w:p>";
    if (below(4) == 0) body += "<w:tbl><w:tr><w:tc><w:p><w:r><w:t>cell</w:t></w:r></w:p></w:tc></w:tr></w:tbl>";
  }
  return body + "<w:p/>";
}

// Whatever is done to it, a story stays what its own XML says.
TEST(Edits, AStoryAlwaysSaysWhatItsXmlSays) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 random(seed);
    StoryFixture f(RandomBody(random));
    const auto below = [&](docx::Position n) {
      return static_cast<docx::Position>(random() % static_cast<unsigned>(n));
    };
    for (int step = 0; step < 12; ++step) {
      docx::Position a = below(f.story->Length());
      docx::Position b = below(f.story->Length());
      if (a > b) std::swap(a, b);
      const docx::RevisionStamp stamp = Stamp(100 + step);
      try {
        switch (below(6)) {
          case 0:
            f.story->InsertText(a, u"N\tM");
            break;
          case 1:
            f.story->InsertText(a, u"\r");
            break;
          case 2:
            f.story->InsertField(a, u" XE \"x\" ", seed % 2 == 0 ? &stamp : nullptr);
            break;
          case 3:
            f.story->Erase(a, b);
            break;
          case 4:
            f.story->InsertBookmark(a, b, "n" + std::to_string(step), 100 + step);
            break;
          default:
            f.story->IsolateRuns(a, b);
            f.story->RejoinRuns(a, b);
        }
      } catch (const word::HostError&) {
        // Behind a row's end nothing can be inserted.
      }
      f.ExpectFresh();
      ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << " step " << step << "\n" << f.Body();
    }
  }
}

TEST(Edits, ACharacterOfTwoUnitsIsNotDivided) {
  StoryFixture f("<w:p><w:r><w:t>a\U0001F600b</w:t></w:r></w:p>");
  EXPECT_THROW(f.story->InsertField(2, u" XE "), word::HostError);
  EXPECT_THROW(f.story->InsertText(2, u"x"), word::HostError);
  EXPECT_THROW(f.story->IsolateRuns(0, 2), word::HostError);
  EXPECT_EQ(f.Body(), f.before);
  f.story->InsertText(f.story->BetweenCharacters(2), u"x");
  EXPECT_EQ(f.Text(), "a\U0001F600xb\r");
  EXPECT_EQ(f.story->BetweenCharacters(1), 1);
  EXPECT_EQ(f.story->BetweenCharacters(3), 3);
}

// Fields come and go without a trace, wherever they were put.
void ExpectFieldsLeaveNoTrace(bool tracked) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 random(seed);
    StoryFixture f(RandomBody(random));
    std::vector<std::pair<docx::Position, docx::Position>> fields;
    for (int step = 0; step < 8; ++step) {
      const auto at = static_cast<docx::Position>(random() % static_cast<unsigned>(f.story->Length()));
      if (f.story->Atoms().Get(f.story->Atoms().At(at)).deleted) continue;
      const docx::RevisionStamp stamp = Stamp(100 + step);
      try {
        fields.emplace_back(at, f.story->InsertField(at, u" XE \"x\" ", tracked ? &stamp : nullptr));
        f.ExpectFresh();
      } catch (const word::HostError&) {
      }
    }
    for (auto field = fields.rbegin(); field != fields.rend(); ++field) {
      f.story->Erase(field->first, field->first + field->second);
    }
    ASSERT_EQ(f.Body(), f.before) << "seed " << seed;
  }
}

TEST(Edits, FieldsInsertedAndErasedInReverseLeaveTheXmlAsItWas) { ExpectFieldsLeaveNoTrace(false); }

TEST(Edits, TrackedFieldsInsertedAndErasedInReverseLeaveTheXmlAsItWas) { ExpectFieldsLeaveNoTrace(true); }

// So do a field and the paragraphs of its result, which divide what is around them.
void ExpectResultsLeaveNoTrace(bool isTracked) {
  int ids = 100;
  const docx::Tracking tracking{
      .author = "Kelvarin", .date = "2026-01-02T03:04:05Z", .nextId = [&ids] { return ++ids; }};
  const docx::Tracking* tracked = isTracked ? &tracking : nullptr;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 random(seed);
    StoryFixture f(RandomBody(random));
    for (int step = 0; step < 8; ++step) {
      const auto at = static_cast<docx::Position>(random() % static_cast<unsigned>(f.story->Length()));
      const docx::Position length = f.story->Length();
      const docx::RevisionStamp stamp = Stamp(100);
      try {
        docx::Position end =
            at + f.story->InsertField(at, u" INDEX ", isTracked ? &stamp : nullptr, docx::Story::Containers::kDivided);
        f.story->InsertFieldSeparator(--end, tracked);
        f.story->InsertText(++end, u"N\tM\rO\rP", tracked);
      } catch (const word::HostError&) {
      }
      f.ExpectFresh();
      f.story->Erase(at, at + f.story->Length() - length);
      ASSERT_EQ(f.Body(), f.before) << "seed " << seed << " step " << step << " at " << at;
    }
  }
}

TEST(Edits, ResultsInsertedAndErasedLeaveTheXmlAsItWas) { ExpectResultsLeaveNoTrace(false); }

TEST(Edits, TrackedResultsInsertedAndErasedLeaveTheXmlAsItWas) { ExpectResultsLeaveNoTrace(true); }

}  // namespace
