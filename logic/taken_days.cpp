#include "logic/taken_days.h"

#include <algorithm>
#include <string>

#include "data/names.h"

namespace veyra::modRes {
namespace {

using Clock = std::chrono::steady_clock;

/// So many rows are read between two looks at the clock.
constexpr int kRowsBetween = 64;

std::size_t Column(Store& store, const char* name) {
  if (const auto place = FindName(store.ColumnNames("Reserv"), name)) {
    return *place;
  }
  throw store.NoSuchColumn("Reserv", name);
}

/// A day with a time of day is not the day itself.
std::optional<Date> WholeDay(const Value& stored) {
  constexpr std::size_t kIsoLength = 10;
  const auto* text = std::get_if<std::string>(&stored);
  return text != nullptr && text->size() > kIsoLength ? std::nullopt : ToDate(stored);
}

}  // namespace

TakenDays::TakenDays(Store& store, SlotRange slots)
    : slots_(slots),
      day_column_(Column(store, "DateOfRes")),
      from_column_(Column(store, "TimeFrom")),
      to_column_(Column(store, "TimeTo")),
      rows_(store.Select(ParseQuery("SELECT * FROM Reserv"))) {}

bool TakenDays::WorkOn(Time budget) {
  const auto end = Clock::now() + budget;
  Row row;
  for (int read = 1; rows_ != nullptr; ++read) {
    if (!rows_->Next(row)) {
      rows_.reset();
      return false;
    }
    Take(row);
    if (read % kRowsBetween == 0 && Clock::now() >= end) {
      return true;
    }
  }
  return false;
}

void TakenDays::Take(const Row& row) {
  if (!Clashes(slots_, row.Values[from_column_], row.Values[to_column_])) {
    return;
  }
  if (const auto day = WholeDay(row.Values[day_column_])) {
    days_.insert(*day);
  }
}

std::int64_t TakenDays::CountIn(const PlannedRange& range) const {
  return std::count_if(days_.begin(), days_.end(),
                       [&range](Date day) { return IsPlanned(range, day); });
}

}  // namespace veyra::modRes
