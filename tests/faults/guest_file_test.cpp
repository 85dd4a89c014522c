#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "data/connection.h"
#include "data/schema.h"
#include "logic/guests.h"
#include "tests/faults/disk.h"
#include "tests/faults/office.h"
#include "tests/temp_folder.h"

namespace veyra::faults {
namespace {

/// The guest database belongs to another program: the calendar only reads it.
class GuestFileTest : public testing::TestWithParam<StoreKind> {
 protected:
  GuestFileTest() {
    session_.DataFolder = folder_.path().string();
    const auto calendar = CreateStoreOfKind(GetParam(), File("Calendar.mdb"));
    calendar->CreateTable(RoomsTable());
    calendar->CreateTable(ReservTable());
    const auto guests = CreateStoreOfKind(GetParam(), File("Veyra.mdb"));
    guests->CreateTable(GuestTable());
    guests->Insert("Guest", {{"Name", "Ann"}});
  }

  std::string File(const std::string& name) const { return folder_.File(name).string(); }

  /// A start, two looks at the guests with a change of the calendar between them, and the end.
  void Work() {
    CreateResCon(session_);
    CreateVeyraCon(session_);
    EnsureSettingsRow(session_);
    NameBox names;
    modRes::LoadGuestNames(session_, names);
    const auto rooms = session_.ResCon->Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
    rooms->AddNew();
    rooms->SetField("Name", "Pool");
    rooms->Update();
    modRes::LoadGuestNames(session_, names);
    EXPECT_EQ(std::vector<std::string>{"Ann"}, names.Items);
    session_.GuestCon.reset();
    session_.ResCon.reset();
  }

  TempFolder folder_;
  Session session_;
};

TEST_P(GuestFileTest, IsNeverOpenedForWriting) {
  const std::string before = folder_.Read("Veyra.mdb");
  Watch({.Folder = folder_.path().string()});
  Work();
  const Seen seen = EndWatch();
  const auto openings = [&](const std::string& start) {
    return std::count_if(seen.OpenedForWriting.begin(), seen.OpenedForWriting.end(),
                         [&](const std::string& name) { return name.starts_with(start); });
  };
  EXPECT_LT(0, openings("Calendar.mdb"));
  EXPECT_EQ(0, openings("Veyra.mdb"));
  EXPECT_TRUE(before == folder_.Read("Veyra.mdb"));
}

INSTANTIATE_TEST_SUITE_P(Stores, GuestFileTest, testing::ValuesIn(kFileKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

}  // namespace
}  // namespace veyra::faults
