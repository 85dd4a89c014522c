#include "logic/slots.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace veyra::modRes {
namespace {

const std::vector<std::string> kShortLabels = {
    "12:00A", "12:30A", " 1:00A", " 1:30A", " 2:00A", " 2:30A", " 3:00A", " 3:30A",
    " 4:00A", " 4:30A", " 5:00A", " 5:30A", " 6:00A", " 6:30A", " 7:00A", " 7:30A",
    " 8:00A", " 8:30A", " 9:00A", " 9:30A", "10:00A", "10:30A", "11:00A", "11:30A",
    "12:00P", "12:30P", " 1:00P", " 1:30P", " 2:00P", " 2:30P", " 3:00P", " 3:30P",
    " 4:00P", " 4:30P", " 5:00P", " 5:30P", " 6:00P", " 6:30P", " 7:00P", " 7:30P",
    " 8:00P", " 8:30P", " 9:00P", " 9:30P", "10:00P", "10:30P", "11:00P", "11:30P"};

const std::vector<std::string> kLongLabels = {
    "12:00 AM",   "12:30 AM", "1:00 AM", "1:30 AM", "2:00 AM",  "2:30 AM",  "3:00 AM",  "3:30 AM",
    "4:00 AM",    "4:30 AM",  "5:00 AM", "5:30 AM", "6:00 AM",  "6:30 AM",  "7:00 AM",  "7:30 AM",
    "8:00 AM",    "8:30 AM",  "9:00 AM", "9:30 AM", "10:00 AM", "10:30 AM", "11:00 AM", "11:30 AM",
    "12:00 Noon", "12:30 PM", "1:00 PM", "1:30 PM", "2:00 PM",  "2:30 PM",  "3:00 PM",  "3:30 PM",
    "4:00 PM",    "4:30 PM",  "5:00 PM", "5:30 PM", "6:00 PM",  "6:30 PM",  "7:00 PM",  "7:30 PM",
    "8:00 PM",    "8:30 PM",  "9:00 PM", "9:30 PM", "10:00 PM", "10:30 PM", "11:00 PM", "11:30 PM"};

SlotLabelTable Labels() {
  SlotLabelTable labels;
  SlotLabels(labels);
  return labels;
}

TEST(SlotsTest, EverySlotHasItsShortLabel) {
  const SlotLabelTable labels = Labels();
  for (TimeSlot slot = kFirstSlot; slot <= kLastSlot; ++slot) {
    EXPECT_EQ(kShortLabels[static_cast<std::size_t>(slot) - 1], LabelOf(labels, slot)) << slot;
  }
}

TEST(SlotsTest, EverySlotHasItsLongLabel) {
  for (TimeSlot slot = kFirstSlot; slot <= kLastSlot; ++slot) {
    EXPECT_EQ(kLongLabels[static_cast<std::size_t>(slot) - 1], LongSlotLabel(slot)) << slot;
  }
}

TEST(SlotsTest, NoonIsAWordInItsLongLabelOnly) {
  EXPECT_EQ("12:00 Noon", LongSlotLabel(25));
  EXPECT_EQ("12:00P", LabelOf(Labels(), 25));
  EXPECT_EQ("12:30 PM", LongSlotLabel(26));
}

TEST(SlotsTest, ALabelOutsideTheDayIsAFault) {
  const SlotLabelTable labels = Labels();
  EXPECT_THROW(LabelOf(labels, 0), std::out_of_range);
  EXPECT_THROW(LabelOf(labels, 49), std::out_of_range);
  EXPECT_THROW(LongSlotLabel(0), std::out_of_range);
  EXPECT_THROW(LongSlotLabel(49), std::out_of_range);
}

TEST(SlotsTest, TheEndLabelOfTheLastSlotWrapsToMidnight) {
  EXPECT_EQ("11:30P-12:00A", RangeLabel(Labels(), {48, 48}));
}

TEST(SlotsTest, TheEndLabelIsTheStartOfTheNextSlot) {
  EXPECT_EQ("12:00A- 1:30A", RangeLabel(Labels(), {1, 3}));
  EXPECT_EQ("11:00P-11:30P", RangeLabel(Labels(), {47, 47}));
}

TEST(SlotsTest, ABoundThatIsNoSlotIsShownAsUnknown) {
  EXPECT_EQ("**:***- 1:30A", RangeLabel(Labels(), {0, 3}));
  EXPECT_EQ("12:00A-**:***", RangeLabel(Labels(), {1, 49}));
}

TEST(SlotsTest, ARangeRunsFromTheUpperToTheLowerRow) {
  const SlotRange range = RangeOfRows(30, 26);
  EXPECT_EQ(26, range.First);
  EXPECT_EQ(30, range.Last);
}

TEST(SlotsTest, OnlyWholeNumbersOfTheDayAreSlots) {
  EXPECT_EQ(48, SlotOf(std::int64_t{48}));
  EXPECT_EQ(0, SlotOf(std::int64_t{49}));
  EXPECT_EQ(0, SlotOf(std::int64_t{0}));
  EXPECT_EQ(0, SlotOf(std::int64_t{-3}));
  EXPECT_EQ(0, SlotOf(Null{}));
  EXPECT_EQ(0, SlotOf(std::string("noon")));
}

TEST(SlotsTest, RowsOfADamagedRangeStayWithinTheDay) {
  EXPECT_EQ(1, RowsOf(std::int64_t{0}, std::int64_t{3}).First);
  EXPECT_EQ(48, RowsOf(std::int64_t{47}, std::int64_t{49}).Last);
}

TEST(SlotsTest, ARangeThatEndsBeforeItBeginsCoversNoRow) {
  const SlotRange rows = RowsOf(std::int64_t{21}, std::int64_t{19});
  EXPECT_GT(rows.First, rows.Last);
}

}  // namespace
}  // namespace veyra::modRes
