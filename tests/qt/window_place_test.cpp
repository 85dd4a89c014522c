#include <gtest/gtest.h>

#include <ostream>

#include "forms/widgets/qt_window_place.h"

namespace veyra {
namespace {

struct PlaceCase {
  const char* Name;
  QRect Other;
  QSize Size;
  QRect Screen;
  QPoint Expected;
};

std::ostream& operator<<(std::ostream& out, const PlaceCase& one) {
  return out << one.Name;
}

std::string NameOf(const testing::TestParamInfo<PlaceCase>& info) {
  return info.param.Name;
}

constexpr QRect kScreen(0, 0, 1280, 800);
constexpr QSize kWindow(400, 270);

class Beside : public testing::TestWithParam<PlaceCase> {};

TEST_P(Beside, Stands) {
  const PlaceCase& one = GetParam();
  EXPECT_EQ(one.Expected, PlaceBeside(one.Other, one.Size, one.Screen));
}

INSTANTIATE_TEST_SUITE_P(
    All, Beside,
    testing::Values(
        PlaceCase{"RightWhereThereIsRoom", {510, 0, 260, 730}, kWindow, kScreen, {770, 0}},
        PlaceCase{"RightWhenItJustFits", {620, 0, 260, 730}, kWindow, kScreen, {880, 0}},
        PlaceCase{"LeftWhenItDoesNot", {621, 0, 260, 730}, kWindow, kScreen, {221, 0}},
        PlaceCase{"OnTheRoomierSide", {300, 0, 680, 730}, {310, 270}, kScreen, {970, 0}},
        PlaceCase{"OnTheRoomierSideLeft", {301, 0, 680, 730}, {310, 270}, kScreen, {0, 0}},
        PlaceCase{"NotBelowTheScreen", {510, 700, 260, 90}, kWindow, kScreen, {770, 530}},
        PlaceCase{"NotAboveTheScreen", {510, -50, 260, 730}, kWindow, kScreen, {770, 0}},
        PlaceCase{
            "OnASecondScreen", {1800, 30, 260, 730}, kWindow, {1280, 30, 1280, 770}, {2060, 30}},
        PlaceCase{
            "WithItsCornerOnATinyScreen", {0, 0, 260, 200}, kWindow, {0, 0, 320, 200}, {0, 0}}),
    NameOf);

class MakingRoom : public testing::TestWithParam<PlaceCase> {};

TEST_P(MakingRoom, Moves) {
  const PlaceCase& one = GetParam();
  EXPECT_EQ(one.Expected, PlaceMakingRoom(one.Other, one.Size, one.Screen));
}

constexpr QRect kSmall(0, 0, 1024, 600);

INSTANTIATE_TEST_SUITE_P(
    All, MakingRoom,
    testing::Values(
        PlaceCase{"NotWhereThereIsRoomRight", {364, 0, 260, 550}, kWindow, kSmall, {364, 0}},
        PlaceCase{"NotWhereThereIsRoomLeft", {400, 0, 260, 550}, kWindow, kSmall, {400, 0}},
        PlaceCase{"LeftWhenThatIsShorter", {382, 5, 260, 550}, kWindow, kSmall, {364, 5}},
        PlaceCase{"RightWhenThatIsShorter", {383, 5, 260, 550}, kWindow, kSmall, {400, 5}},
        PlaceCase{
            "OnASecondScreen", {1661, 30, 260, 550}, kWindow, {1280, 0, 1024, 600}, {1644, 30}},
        PlaceCase{"NotWhenBothNeedMoreThanTheScreen",
                  {200, 0, 260, 400},
                  kWindow,
                  {0, 0, 640, 480},
                  {200, 0}}),
    NameOf);

class Over : public testing::TestWithParam<PlaceCase> {};

TEST_P(Over, Stands) {
  const PlaceCase& one = GetParam();
  EXPECT_EQ(one.Expected, PlaceOver(one.Other, one.Size, one.Screen));
}

INSTANTIATE_TEST_SUITE_P(
    All, Over,
    testing::Values(
        PlaceCase{"InTheMiddle", {100, 100, 800, 600}, {400, 300}, kScreen, {300, 250}},
        PlaceCase{"NotBeyondTheScreen", {1000, 600, 800, 600}, {400, 300}, kScreen, {880, 500}},
        PlaceCase{"NotBeforeIt", {-700, -500, 800, 600}, {400, 300}, kScreen, {0, 0}}),
    NameOf);

}  // namespace
}  // namespace veyra
