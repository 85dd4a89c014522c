#include "logic/find_bookings.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "data/names.h"
#include "data/shown_name.h"
#include "data/text.h"
#include "logic/multiday.h"

namespace veyra::modRes {
namespace {

using Clock = std::chrono::steady_clock;

/// So many are read or looked at between two looks at the clock.
constexpr std::size_t kStep = 256;

/// Letters and digits of any script; ASCII signs part words.
bool IsOfWord(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x80 || (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
         (code >= 'a' && code <= 'z');
}

/// The words in upper case.
std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  bool within = false;
  for (const char byte : UpperCase(text)) {
    if (IsOfWord(byte) && !within) {
      words.emplace_back();
    }
    within = IsOfWord(byte);
    if (within) {
      words.back() += byte;
    }
  }
  return words;
}

std::string Searched(std::string_view name) {
  std::string searched;
  for (const std::string& word : WordsOf(name)) {
    searched += " " + word;
  }
  return searched;
}

std::size_t Column(Store& store, const char* name) {
  if (const auto place = FindName(store.ColumnNames("Reserv"), name)) {
    return *place;
  }
  throw store.NoSuchColumn("Reserv", name);
}

std::map<std::int64_t, std::string> Facilities(Store& store) {
  std::map<std::int64_t, std::string> names;
  const auto columns = store.ColumnNames("Rooms");
  const auto id = FindName(columns, "ID");
  const auto name = FindName(columns, "Name");
  const auto rows = store.Select(ParseQuery("SELECT * FROM Rooms"));
  for (Row row; id && name && rows->Next(row);) {
    names[ToInteger(row.Values[*id]).value_or(0)] = ToText(row.Values[*name]);
  }
  return names;
}

}  // namespace

BookingFinder::BookingFinder(Store& store, Date today)
    : store_(store),
      facilities_(Facilities(store)),
      room_column_(Column(store, "RmID")),
      event_column_(Column(store, "Event")),
      day_column_(Column(store, "DateOfRes")),
      from_column_(Column(store, "TimeFrom")),
      to_column_(Column(store, "TimeTo")) {
  const std::string all = "SELECT * FROM Reserv WHERE DateOfRes ";
  const std::string day = "#" + DateText(today) + "#";
  upcoming_.Asked = ParseQuery(all + ">= " + day + " ORDER BY DateOfRes");
  past_.Asked = ParseQuery(all + "< " + day + " ORDER BY DateOfRes DESC");
}

BookingFinder::~BookingFinder() = default;

void BookingFinder::LookFor(std::string_view text) {
  words_.clear();
  for (const std::string& word : WordsOf(text)) {
    words_.push_back(" " + word);
  }
  matches_.assign(searched_.size(), Match::Unknown);
  for (Side* side : {&upcoming_, &past_}) {
    side->Looked = 0;
    side->Found.clear();
  }
}

bool BookingFinder::WorkOn(Time budget) {
  const auto end = Clock::now() + budget;
  if (WorkOn(upcoming_, end)) {
    return true;
  }
  return WorkOn(past_, end);
}

/// Returns whether anything is left to be done. What has been read is looked through first.
bool BookingFinder::WorkOn(Side& side, Clock::time_point end) {
  while (true) {
    LookOn(side, end);
    if (side.IsRead && IsLookedThrough(side)) {
      return false;
    }
    ReadOn(side, end);
    if (Clock::now() >= end) {
      return true;
    }
  }
}

bool BookingFinder::IsLookedThrough(const Side& side) const {
  return words_.empty() || side.Found.size() >= kMost || side.Looked == side.Whole;
}

bool BookingFinder::IsDone() const {
  const auto is_done = [this](const Side& side) {
    return side.Found.size() >= kMost || (side.IsRead && IsLookedThrough(side));
  };
  return is_done(upcoming_) && is_done(past_);
}

void BookingFinder::LookOn(Side& side, Clock::time_point end) {
  while (!IsLookedThrough(side)) {
    const Booking& booking = side.Bookings[side.Looked++];
    if (Matches(booking.Name)) {
      side.Found.push_back({booking.RmID, facilities_.at(booking.RmID), *names_[booking.Name],
                            booking.Day, booking.Slots});
    }
    if (side.Looked % kStep == 0 && Clock::now() >= end) {
      return;
    }
  }
}

void BookingFinder::ReadOn(Side& side, Clock::time_point end) {
  if (side.IsRead) {
    return;
  }
  if (!side.Rows) {
    side.Rows = store_.Select(side.Asked);
  }
  Row row;
  for (std::size_t read = 1;; ++read) {
    if (!side.Rows->Next(row)) {
      side.Rows.reset();
      side.IsRead = true;
      EndDay(side);
      return;
    }
    Take(side, row);
    if (read % kStep == 0 && (Clock::now() >= end || !IsLookedThrough(side))) {
      return;
    }
  }
}

void BookingFinder::Take(Side& side, const Row& row) {
  const auto room = ToInteger(row.Values[room_column_]);
  const auto day = ToDate(row.Values[day_column_]);
  const SlotRange slots = RowsOf(row.Values[from_column_], row.Values[to_column_]);
  if (!room || !day || slots.First > slots.Last || !facilities_.contains(*room)) {
    return;
  }
  if (!side.Bookings.empty() && side.Bookings.back().Day != *day) {
    EndDay(side);
  }
  side.Bookings.push_back({*room, NumberOf(ToText(row.Values[event_column_])), *day, slots});
}

/// Within a day the earlier booking comes first, on the way back the later one.
void BookingFinder::EndDay(Side& side) {
  const auto order = [](const Booking& one, const Booking& other) {
    return std::tie(one.Slots.First, one.RmID) < std::tie(other.Slots.First, other.RmID);
  };
  const auto first = side.Bookings.begin() + static_cast<std::ptrdiff_t>(side.Whole);
  std::stable_sort(first, side.Bookings.end(), order);
  if (&side == &past_) {
    std::reverse(first, side.Bookings.end());
  }
  side.Whole = side.Bookings.size();
}

std::uint32_t BookingFinder::NumberOf(const std::string& name) {
  const auto [entry, is_new] =
      numbers_.try_emplace(name, static_cast<std::uint32_t>(names_.size()));
  if (is_new) {
    names_.push_back(&entry->first);
    searched_.push_back(Searched(name));
    matches_.push_back(Match::Unknown);
  }
  return entry->second;
}

bool BookingFinder::Matches(std::uint32_t name) {
  Match& match = matches_[name];
  if (match == Match::Unknown) {
    const std::string& searched = searched_[name];
    const bool has_all = std::all_of(
        words_.begin(), words_.end(),
        [&searched](const std::string& word) { return searched.find(word) != std::string::npos; });
    match = has_all ? Match::Yes : Match::No;
  }
  return match == Match::Yes;
}

Phrase FoundLine(const SlotLabelTable& labels, const FoundBooking& booking) {
  return WeekdayWord(WeekdayNumber(booking.Day)) +
         (", " + DateText(booking.Day) + ", " + RangeLabel(labels, booking.Slots) + ", " +
          ShownName(booking.Facility) + ", " + ShownName(booking.Event));
}

}  // namespace veyra::modRes
