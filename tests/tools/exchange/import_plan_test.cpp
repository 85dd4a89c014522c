#include "tools/exchange/import_plan.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "tests/calendar_folder.h"

namespace veyra {
namespace {

class ImportPlanTest : public testing::Test {
 protected:
  ImportPlanTest() { pool_ = folder_.AddRoom("Pool", true); }

  static Exchanged One() {
    return {{{.Facility = "Pool",
              .Name = "Imported",
              .Day = MakeDate(2026, 3, 2).value(),
              .Slots = {19, 20},
              .Series = "any",
              .Place = "line 2"}},
            {}};
  }

  static ImportPlan Plan(Store& store) {
    return PlanImport(store, One(), {}, {MakeDate(2026, 11, 21).value(), 9, 30, 0});
  }

  CalendarFolder folder_;
  std::int64_t pool_ = 0;
};

TEST_F(ImportPlanTest, ABookingMadeSinceThePlanKeepsItFromBeingCarriedOut) {
  const auto store = OpenFileStore(folder_.File("Calendar.mdb"), StoreAccess::ReadWrite);
  const ImportPlan plan = Plan(*store);
  folder_.AddBooking(pool_, "2026-03-02", 20, 20, "Desk");
  EXPECT_THROW(store->ChangeAll(plan.Additions, plan.Seen), RowChangedError);
  EXPECT_EQ("1 2026-03-02 20-20 Desk\n", folder_.Bookings());
  EXPECT_EQ(1U, Plan(*store).Clashes.size());
}

TEST_F(ImportPlanTest, ABookingOfAnotherDayIsNoHindrance) {
  const auto store = OpenFileStore(folder_.File("Calendar.mdb"), StoreAccess::ReadWrite);
  const ImportPlan plan = Plan(*store);
  folder_.AddBooking(pool_, "2026-03-03", 20, 20, "Desk");
  store->ChangeAll(plan.Additions, plan.Seen);
  EXPECT_EQ("1 2026-03-03 20-20 Desk\n1 2026-03-02 19-20 Imported 20261121093000\n",
            folder_.Bookings());
}

TEST_F(ImportPlanTest, AGroupKeyThatIsInUseIsNotGivenAgain) {
  folder_.AddBooking(pool_, "2026-03-02", 40, 40, "Desk", 20261121093000.0);
  const auto store = OpenFileStore(folder_.File("Calendar.mdb"), StoreAccess::ReadWrite);
  const ImportPlan plan = Plan(*store);
  EXPECT_EQ(20261121093001.0, std::get<double>(plan.Additions.at(0).Fields.back().second));
}

}  // namespace
}  // namespace veyra
