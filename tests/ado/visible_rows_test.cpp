#include "tarvola/ado/visible_rows.h"

#include <gtest/gtest.h>

#include <random>

namespace tarvola::ado {
namespace {

std::vector<std::uint32_t> shownRows(const VisibleRows& rows) {
  std::vector<std::uint32_t> shown;
  rows.forEach([&shown](std::uint32_t row) { shown.push_back(row); });
  return shown;
}

TEST(VisibleRows, ShowAllRowsOfASetInOrder) {
  VisibleRows rows;
  rows.showAll(3);
  EXPECT_EQ(rows.count(), 3U);
  EXPECT_EQ(rows.row(rows.at(2)), 2U);
  EXPECT_EQ(rows.next(1), 2U);
  EXPECT_EQ(rows.next(2), VisibleRows::noSlot);
}

TEST(VisibleRows, ShowTheRowsOfAList) {
  VisibleRows rows;
  rows.startList() = {4, 7, 9};
  rows.endList();
  EXPECT_EQ(rows.count(), 3U);
  EXPECT_EQ(rows.row(rows.at(1)), 7U);
  EXPECT_EQ(rows.slotOf(9), 2U);
  EXPECT_EQ(rows.slotOf(5), VisibleRows::noSlot);
  EXPECT_TRUE(rows.shows(4));
  EXPECT_FALSE(rows.shows(5));
}

TEST(VisibleRows, AHiddenSlotStillKnowsItsPlace) {
  VisibleRows rows;
  rows.showAll(5);
  rows.hide(2);
  EXPECT_EQ(rows.next(2), 3U);
  EXPECT_EQ(rows.next(1), 3U);
  EXPECT_EQ(rows.at(2), 3U);
  EXPECT_EQ(rows.before(4), 3U);
}

TEST(VisibleRows, HidingTheLastOnesLeavesNothingBehindTheRest) {
  VisibleRows rows;
  rows.showAll(70);
  for (VisibleRows::Slot slot = 60; slot < 70; ++slot) rows.hide(slot);
  EXPECT_EQ(rows.count(), 60U);
  EXPECT_EQ(rows.next(59), VisibleRows::noSlot);
  EXPECT_EQ(rows.append(70), 70U);
  EXPECT_EQ(rows.next(59), 70U);
}

TEST(VisibleRows, ASlotThatIsShownAgainTakesItsOldPlace) {
  VisibleRows rows;
  rows.startList() = {3, 5, 8};
  rows.endList();
  rows.hide(1);
  EXPECT_EQ(shownRows(rows), (std::vector<std::uint32_t>{3, 8}));
  rows.show(1);
  EXPECT_EQ(shownRows(rows), (std::vector<std::uint32_t>{3, 5, 8}));
}

TEST(VisibleRows, HidingTwiceCountsOnce) {
  VisibleRows rows;
  rows.showAll(3);
  rows.hide(1);
  rows.hide(1);
  EXPECT_EQ(rows.count(), 2U);
}

// Every answer is compared with a plain list of flags.
TEST(VisibleRows, AgreeWithAPlainListOfFlagsInRandomSteps) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  VisibleRows rows;
  std::vector<bool> isShown(random() % 200, true);
  rows.showAll(isShown.size());
  for (int step = 0; step < 2000; ++step) {
    if (isShown.empty() || random() % 10 == 0) {
      rows.append(static_cast<std::uint32_t>(isShown.size()));
      isShown.push_back(true);
    }
    const auto slot = static_cast<VisibleRows::Slot>(random() % isShown.size());
    if (random() % 3 == 0) {
      rows.show(slot);
      isShown[slot] = true;
    } else {
      rows.hide(slot);
      isShown[slot] = false;
    }
    std::vector<VisibleRows::Slot> shown;
    for (VisibleRows::Slot i = 0; i < isShown.size(); ++i) {
      if (isShown[i]) shown.push_back(i);
    }
    ASSERT_EQ(rows.count(), shown.size());
    const auto above = std::upper_bound(shown.begin(), shown.end(), slot);
    const auto from = std::lower_bound(shown.begin(), shown.end(), slot);
    ASSERT_EQ(rows.next(slot), above == shown.end() ? VisibleRows::noSlot : *above);
    ASSERT_EQ(rows.before(slot), static_cast<std::size_t>(from - shown.begin()));
    if (shown.empty()) continue;
    const std::size_t position = random() % shown.size();
    ASSERT_EQ(rows.at(position), shown[position]);
  }
}

}  // namespace
}  // namespace tarvola::ado
