#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/startup.h"
#include "data/errors.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_month_view.h"
#include "tests/forms/fake_sheet_printer.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

/// A month window that notes in which order it is filled, and what stands fast by then.
class NotingView : public FakeMonthView {
 public:
  explicit NotingView(const Session& session) : session_(session) {}

  const std::string& Notes() const { return notes_; }

  void ShowFacilityBox(const NameBox& box) override {
    Note("box of " + std::to_string(box.Items.size()));
    FakeMonthView::ShowFacilityBox(box);
  }
  void ShowColors(std::int32_t background, std::int32_t header) override {
    Note("colours");
    FakeMonthView::ShowColors(background, header);
  }
  void ShowRoom(const std::string& name) override {
    Note("room " + name);
    FakeMonthView::ShowRoom(name);
  }
  void PlaceAtTopCentre() override {
    Note("place");
    FakeMonthView::PlaceAtTopCentre();
  }
  void ShowMonth(const modRes::MonthPicture& picture) override {
    Note("month " + picture.Title.value_or("as before"));
    FakeMonthView::ShowMonth(picture);
  }

 private:
  void Note(const std::string& what) {
    notes_ += what + (session_.IsLoading ? ", loading" : "") +
              (session_.StoredColors.TodayBColor.empty() ? "" : ", colours read") +
              (session_.CurRmID == 0 ? "" : ", facility chosen") + "\n";
  }

  const Session& session_;
  std::string notes_;
};

class StartUpOrderTest : public testing::Test {
 protected:
  StartUpOrderTest() { app_.Write("path.txt", data_.Path()); }

  void Start() { StartUp(session_, calendar_, dialogs_, app_.path().string()); }

  TempFolder app_;
  CalendarFolder data_;
  Session session_;
  NotingView view_{session_};
  FakeWindows windows_;
  FakeDialogs dialogs_;
  FakeClock clock_{2014, 3, 15};
  FakeSheetPrinter printer_;
  frmCalendar calendar_{session_, view_, windows_, dialogs_, clock_, printer_};
};

TEST_F(StartUpOrderTest, TheBoxIsFilledThenColoursThenTheFacilityThenTheMonth) {
  data_.AddRoom("Pool", true);
  Start();
  EXPECT_EQ(
      "box of 1, loading\n"
      "colours, loading, colours read\n"
      "room Pool, loading, colours read, facility chosen\n"
      "place, loading, colours read, facility chosen\n"
      "month March 2014, loading, colours read, facility chosen\n",
      view_.Notes());
  EXPECT_FALSE(session_.IsLoading);
}

TEST_F(StartUpOrderTest, TheCalendarIsOpenedBeforeTheGuests) {
  std::filesystem::remove(data_.File("Calendar.mdb"));
  std::filesystem::remove(data_.File("Veyra.mdb"));
  try {
    Start();
    FAIL() << "it starts without a calendar";
  } catch (const Error& failure) {
    EXPECT_EQ(data_.File("Calendar.mdb"), failure.report().File);
  }
}

}  // namespace
}  // namespace veyra
