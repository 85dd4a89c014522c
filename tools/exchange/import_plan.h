#pragma once

#include <string>
#include <vector>

#include "data/file_store.h"
#include "tools/calendar_rows.h"
#include "tools/exchange/exchanged_booking.h"

namespace veyra {

/// What an import would do.
struct ImportPlan {
  std::vector<RowChange> Additions;
  std::vector<Phrase> Added;      ///< Each addition in words.
  std::vector<Phrase> Clashes;    ///< A sentence for each booking whose time is taken.
  std::size_t AlreadyThere = 0;   ///< Bookings that the calendar has just so.
  std::vector<Phrase> Notes;      ///< What was changed on the way: sentences.
  std::vector<QueryResult> Seen;  ///< What all of this rests on.
};

/// Plans to add the bookings to the calendar, in their order. All go to `facility`, or when it is
/// empty to the facility of their name; throws ValueError, naming all that are not there. A booking
/// that is there already, same facility, time and name, is passed over; one whose time is taken, be
/// it only in part, is a clash. Names are cut to what a booking can be renamed to; bookings of one
/// series get a common group key, counted from that of `now` when the file gives none.
ImportPlan PlanImport(Store& store, const Exchanged& exchanged, const std::string& facility,
                      const DateTime& now);

}  // namespace veyra
