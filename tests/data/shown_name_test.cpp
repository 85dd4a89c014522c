#include "data/shown_name.h"

#include <gtest/gtest.h>

#include <string>

namespace veyra {
namespace {

// The signs by the names that the Unicode standard gives them.
const std::string kRlo = "\u202E";
const std::string kLre = "\u202A";
const std::string kPdf = "\u202C";
const std::string kRli = "\u2067";
const std::string kFsi = "\u2068";
const std::string kPdi = "\u2069";

TEST(ShownNameTest, IsTheNameItself) {
  for (const char* name :
       {"", "Smith", "Zo\u00EB", "\u05E9\u05DC\u05D5\u05DD", "\xE2\x80", "\xE2"}) {
    EXPECT_EQ(name, ShownName(name));
  }
}

TEST(ShownNameTest, IsSetApartWhenItTurnsTheDirection) {
  EXPECT_EQ(kFsi + "a" + kRlo + "b" + kPdi, ShownName("a" + kRlo + "b"));
  EXPECT_EQ(kFsi + kLre + "b" + kPdf + kPdi, ShownName(kLre + "b" + kPdf));
}

TEST(ShownNameTest, CannotLeaveItsPlaceByAnEndOfItsOwn) {
  EXPECT_EQ(kFsi + "a" + kRlo + "b" + kPdi, ShownName("a" + kPdi + kRlo + "b"));
  EXPECT_EQ(kFsi + kRli + "a" + kPdi + "b" + kPdi, ShownName(kRli + "a" + kPdi + kPdi + "b"));
}

TEST(ShownNameTest, EndsWhatItHasLeftOpen) {
  EXPECT_EQ(kFsi + "a" + kRli + "b" + kPdi + kPdi, ShownName("a" + kRli + "b"));
}

}  // namespace
}  // namespace veyra
