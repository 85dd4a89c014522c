#include "logic/guests.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/calendar_folder.h"

namespace veyra::modRes {
namespace {

using Names = std::vector<std::string>;

class GuestsTest : public testing::Test {
 protected:
  NameBox Load(NameBox box = {}) {
    const auto session = folder_.OpenSession();
    LoadGuestNames(*session, box);
    return box;
  }

  CalendarFolder folder_;
};

TEST_F(GuestsTest, NamesComeInTheTablesOwnOrderWithDuplicates) {
  for (const char* name : {"Zoe", "Adam", "Zoe"}) {
    folder_.AddGuest(std::string(name));
  }
  EXPECT_EQ((Names{"Zoe", "Adam", "Zoe"}), Load().Items);
}

TEST_F(GuestsTest, AnEmptyTableIsToldInTheTextNotInTheList) {
  const NameBox box = Load({{"left over"}, ""});
  EXPECT_EQ((NameBox{{}, "No Guests in Veyra"}), box);
}

TEST_F(GuestsTest, ANullNameAddsNothingAndAnEmptyOneAnEmptyLine) {
  folder_.AddGuest(std::string("Ann"));
  folder_.AddGuest(Null{});
  folder_.AddGuest(std::string());
  EXPECT_EQ((Names{"Ann", ""}), Load().Items);
}

TEST_F(GuestsTest, OnlyNullNamesAreAnEmptyListButNoEmptyTable) {
  folder_.AddGuest(Null{});
  EXPECT_EQ((NameBox{{}, ""}), Load());
}

TEST_F(GuestsTest, LoadingAgainReplacesTheListAndKeepsTheText) {
  folder_.AddGuest(std::string("Ann"));
  EXPECT_EQ((NameBox{{"Ann"}, "typed"}), Load({{"Old"}, "typed"}));
}

TEST_F(GuestsTest, NamesOfAnyScriptArriveWhole) {
  const std::string long_name(10000, 'x');
  const Names names = {"O'Brien \"Bob\" #1", "two\nlines", "\U0001F3BE", "\u05D3\u05D5\u05D3",
                       long_name};
  for (const std::string& name : names) {
    folder_.AddGuest(name);
  }
  EXPECT_EQ(names, Load().Items);
}

}  // namespace
}  // namespace veyra::modRes
