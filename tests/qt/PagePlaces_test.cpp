#include "hosts/qt/document/PagePlaces.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/word/Constants.h"

namespace {

constexpr double kNear = 0.01;

/// "abcd" in letters of 10 points, from (100, 500) on its sheet's upper left corner.
page::Display Turned(page::Turn turn, int story = word::wdMainTextStory) {
  page::Display display;
  page::Line line;
  line.story = story;
  line.start = 5;
  line.end = 9;
  line.endsParagraph = true;
  line.area = {0, 0, 60, 12};
  line.turn = turn;
  line.originX = 100;
  line.originY = 500;
  page::Run run;
  run.position = 5;
  run.text = u"abcd";
  run.edges = {0, 10, 20, 30, 40};
  line.runs.push_back(run);
  display.lines.push_back(std::move(line));
  return display;
}

TEST(PagePlaces, AClickInTextThatRunsUpOrDownGoesToTheLetterThere) {
  const qt::PagePlaces up(Turned(page::Turn::kUp));
  EXPECT_EQ(up.PlaceAt({106, 500 - 29})->position, 8);
  EXPECT_EQ(up.PlaceAt({106, 500 - 1})->position, 5);
  const qt::PagePlaces down(Turned(page::Turn::kDown));
  EXPECT_EQ(down.PlaceAt({94, 500 + 29})->position, 8);
  EXPECT_EQ(down.PlaceAt({94, 500 + 1})->position, 5);
}

TEST(PagePlaces, TheCursorInTextThatRunsUpOrDownLiesAcrossIt) {
  const qt::PagePlaces up(Turned(page::Turn::kUp));
  const QRectF raised = *up.CursorAt({word::wdMainTextStory, 7});
  EXPECT_NEAR(raised.left(), 100, kNear);
  EXPECT_NEAR(raised.bottom(), 500 - 20, kNear);
  EXPECT_NEAR(raised.width(), 12, kNear);
  const qt::PagePlaces down(Turned(page::Turn::kDown));
  const QRectF lowered = *down.CursorAt({word::wdMainTextStory, 7});
  EXPECT_NEAR(lowered.right(), 100, kNear);
  EXPECT_NEAR(lowered.top(), 500 + 20, kNear);
}

TEST(PagePlaces, TextThatIsOnlyShownIsKnownByItsLetters) {
  const qt::PagePlaces places(Turned(page::Turn::kNone, 0));
  EXPECT_TRUE(places.IsOnlyShown({15, 6}));
  EXPECT_FALSE(places.IsOnlyShown({50, 6})) << "behind the letters";
  EXPECT_FALSE(places.IsOnlyShown({15, 20}));
  EXPECT_FALSE(places.PlaceAt({15, 6}).has_value());
  EXPECT_TRUE(qt::PagePlaces(Turned(page::Turn::kUp, 0)).IsOnlyShown({106, 500 - 15}));
}

}  // namespace
