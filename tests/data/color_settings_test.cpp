#include "data/color_settings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "data/errors.h"
#include "data/schema.h"
#include "tests/failing_store.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

const ColorSettings kDefaults{"-2147483643", "12582912", "0", "255", "-2147483643"};
const ColorSettings kOther{"1", "2", "3", "4", "5"};

class ColorSettingsTest : public testing::Test {
 protected:
  ColorSettingsTest() {
    databases_.DataFolder = folder_.path().string();
    const auto store = CreateStoreOfKind(TestedStoreKind(), folder_.File("Calendar.mdb").string());
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
  }

  void Start() {
    CreateResCon(databases_);
    EnsureSettingsRow(databases_);
    EnsureMultKeyColumn(databases_);
    EnsureTodayBColorColumn(databases_);
    LoadColorSettings(*databases_.ResCon, current_, stored_);
  }

  void RemoveRow() {
    databases_.ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic)->Delete();
  }

  TempFolder folder_;
  Databases databases_;
  ColorSettings current_;
  ColorSettings stored_;
};

TEST_F(ColorSettingsTest, ANewCalendarHasTheDefaultColours) {
  Start();
  EXPECT_EQ(kDefaults, current_);
  EXPECT_EQ(kDefaults, stored_);
}

TEST_F(ColorSettingsTest, SavedColoursAreInUseAtOnce) {
  Start();
  EXPECT_TRUE(SaveColorSettings(*databases_.ResCon, kOther, current_));
  EXPECT_EQ(kOther, current_);
}

TEST_F(ColorSettingsTest, SavedColoursAreReadAtTheNextStart) {
  Start();
  SaveColorSettings(*databases_.ResCon, kOther, current_);
  Start();
  EXPECT_EQ(kOther, current_);
  EXPECT_EQ(kOther, stored_);
}

TEST_F(ColorSettingsTest, SavingKeepsTheColoursReadAtTheStart) {
  Start();
  SaveColorSettings(*databases_.ResCon, kOther, current_);
  EXPECT_EQ(kDefaults, stored_);
}

TEST_F(ColorSettingsTest, ReadsOnlyTheRowOfIdOne) {
  Start();
  const auto rows = databases_.ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic);
  rows->AddNew();
  rows->SetField("BkGrnd", "77");
  rows->Update();
  LoadColorSettings(*databases_.ResCon, current_, stored_);
  EXPECT_EQ(kDefaults, current_);
}

TEST_F(ColorSettingsTest, WithoutTheRowBothSetsKeepWhatTheyHold) {
  Start();
  RemoveRow();
  current_ = kOther;
  LoadColorSettings(*databases_.ResCon, current_, stored_);
  EXPECT_EQ(kOther, current_);
  EXPECT_EQ(kDefaults, stored_);
}

TEST_F(ColorSettingsTest, WithoutTheRowSavingChangesNothing) {
  Start();
  RemoveRow();
  EXPECT_FALSE(SaveColorSettings(*databases_.ResCon, kOther, current_));
  EXPECT_EQ(kDefaults, current_);
}

TEST_F(ColorSettingsTest, WithoutTheRowSavingWritesNone) {
  Start();
  RemoveRow();
  SaveColorSettings(*databases_.ResCon, kOther, current_);
  EXPECT_TRUE(databases_.ResCon->Open("SELECT * FROM Settings", CursorType::ForwardOnlyReadOnly)
                  ->IsEmpty());
}

TEST_F(ColorSettingsTest, ColoursThatCannotBeSavedAreNotInUse) {
  Start();
  LoadColorSettings(*databases_.ResCon, current_, stored_);
  const ColorSettings before = current_;
  Faults faults;
  databases_.ResCon = std::make_unique<Connection>(std::make_unique<FailingStore>(
      OpenStore(databases_.DataFolder / "Calendar.mdb", StoreAccess::ReadWrite), faults));
  faults.Fail(Statement::Update, 1);
  EXPECT_THROW(SaveColorSettings(*databases_.ResCon, kOther, current_), DatabaseError);
  EXPECT_EQ(before, current_);
}

TEST_F(ColorSettingsTest, WithoutTheTableLoadingIsReported) {
  CreateResCon(databases_);
  EXPECT_THROW(LoadColorSettings(*databases_.ResCon, current_, stored_), DatabaseError);
}

TEST_F(ColorSettingsTest, ANullColourIsReadAsAnEmptyText) {
  Start();
  const auto row = databases_.ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic);
  row->SetField("BkGrnd", Null{});
  row->Update();
  LoadColorSettings(*databases_.ResCon, current_, stored_);
  EXPECT_EQ("", current_.BkGrnd);
}

struct GoodColor {
  const char* Text;
  std::int32_t Number;
};

class GoodColorTest : public testing::TestWithParam<GoodColor> {};

TEST_P(GoodColorTest, IsItsNumber) {
  EXPECT_EQ(GetParam().Number, ColorNumber(GetParam().Text, "BkGrnd"));
}

INSTANTIATE_TEST_SUITE_P(
    Colors, GoodColorTest,
    testing::Values(GoodColor{"0", 0}, GoodColor{"255", 255}, GoodColor{"16777215", 16777215},
                    GoodColor{"-2147483643", -2147483643}, GoodColor{"-2147483648", -2147483648},
                    GoodColor{"2147483647", 2147483647}, GoodColor{" 255 ", 255}));

class BadColorTest : public testing::TestWithParam<const char*> {};

TEST_P(BadColorTest, IsReportedWithItsColumn) {
  try {
    ColorNumber(GetParam(), "TodayColor");
    FAIL() << "no report";
  } catch (const ValueError& error) {
    EXPECT_NE(std::string::npos, error.report().Cause.English().find("TodayColor"));
    EXPECT_NE("", error.report().Advice);
  }
}

INSTANTIATE_TEST_SUITE_P(Colors, BadColorTest,
                         testing::Values("", " ", "red", "#FF0000", "1.5", "2147483648",
                                         "-2147483649", "99999999999999999999", "12 34"));

}  // namespace
}  // namespace veyra
