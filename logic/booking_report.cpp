#include "logic/booking_report.h"

#include <exception>

#include "data/errors.h"

namespace veyra::modRes {
namespace {

void ShowDay(Session& session, ShownGrid grid) {
  DayGrid day;
  FillDayList(session, day, session.DayDate);
  grid.MSFlexGrid1 = day;
  grid.Screen.ShowGrid(day);
}

void ShowChange(Session& session, const BookingChange& change, ShownGrid grid,
                const Listings& listings) {
  if (change.Found) {
    ShowDay(session, grid);
  }
  if (change.OfGroup) {
    RefreshMonth(session, listings.Time, listings.Month, session.CurMonth);
  }
}

}  // namespace

void ShowAndTell(Session& session, const BookingChange& change, const std::string& name,
                 ShownGrid grid, const Listings& listings, Dialogs& dialogs) {
  grid.Write(session.AnchorRow, session.SelEndRow, name);
  std::exception_ptr failure;
  try {
    ShowChange(session, change, grid, listings);
  } catch (const Error&) {
    failure = std::current_exception();
  }
  dialogs.MsgBox({.Text = change.Result, .Sign = Icon::Exclamation});
  if (failure) {
    std::rethrow_exception(failure);
  }
  RefreshListings(session, listings);
}

}  // namespace veyra::modRes
