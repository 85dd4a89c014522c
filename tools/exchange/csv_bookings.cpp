#include "tools/exchange/csv_bookings.h"

#include "data/errors.h"
#include "data/names.h"
#include "logic/date_parser.h"
#include "tools/clock_text.h"
#include "tools/exchange/csv_text.h"
#include "tools/exchange/whole_slots.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr std::int64_t kDay = std::int64_t{24} * 60;

ValueError Unreadable(const Phrase& place, const Phrase& cause) {
  return ValueError({{},
                     Phrase::Tr("In %1: %2", place, cause),
                     Phrase::Tr("Nothing was changed. Correct the file.")});
}

Phrase LineOf(const CsvRecord& record) {
  return Phrase::Tr("line %1", record.Line);
}

/// Where the columns stand.
struct Columns {
  std::optional<std::size_t> Facility;
  std::size_t Date = 0;
  std::size_t From = 0;
  std::size_t To = 0;
  std::size_t Name = 0;
  std::optional<std::size_t> Series;
};

std::size_t PlaceOf(const CsvRecord& head, const char* column) {
  const auto place = FindName(head.Cells, column);
  if (!place) {
    throw Unreadable(LineOf(head),
                     Phrase::Tr("there is no column %1. The first line must name Date, From, To "
                                "and Name.",
                                column));
  }
  return *place;
}

Columns ColumnsOf(const CsvRecord& head) {
  return {FindName(head.Cells, "Facility"),
          PlaceOf(head, "Date"),
          PlaceOf(head, "From"),
          PlaceOf(head, "To"),
          PlaceOf(head, "Name"),
          FindName(head.Cells, "Series")};
}

class RecordReader {
 public:
  RecordReader(const Columns& columns, const CsvRecord& record, Date today)
      : columns_(columns), record_(record), today_(today), place_(LineOf(record)) {}

  void AddTo(Exchanged& exchanged) const {
    ExchangedBooking pattern{.Facility = Optional(columns_.Facility),
                             .Name = Undefused(Cell(columns_.Name)),
                             .Series = Optional(columns_.Series),
                             .Place = place_};
    AddSpan(ReadSpan(), pattern, exchanged);
  }

 private:
  const std::string& Cell(std::size_t column) const {
    if (column >= record_.Cells.size()) {
      throw Unreadable(place_, Phrase::Tr("a cell is missing."));
    }
    return record_.Cells[column];
  }

  std::string Optional(std::optional<std::size_t> column) const {
    return column && *column < record_.Cells.size() ? Undefused(record_.Cells[*column])
                                                    : std::string();
  }

  int TimeIn(std::size_t column) const {
    const auto minutes = MinutesOf(Cell(column));
    if (!minutes) {
      throw Unreadable(place_, Phrase::Tr("\"%1\" is not a time such as 9:30 or 9:30 AM.",
                                          OneLine(Cell(column))));
    }
    return *minutes;
  }

  /// One that does not end after it begins ends on the next day.
  Span ReadSpan() const {
    const auto day = ParseDate(Cell(columns_.Date), today_);
    if (!day) {
      throw Unreadable(place_, Phrase::Tr("\"%1\" is not a date.", OneLine(Cell(columns_.Date))));
    }
    Span span{*day, TimeIn(columns_.From), TimeIn(columns_.To)};
    if (span.From == kDay) {
      throw Unreadable(place_, Phrase::Tr("it begins at the end of the day."));
    }
    if (span.To <= span.From) {
      span.To += kDay;
    }
    if (span.To > kDay && YearOf(AddDays(span.Day, 1)) > kLastYear) {
      throw Unreadable(place_, Phrase::Tr("it ends after the last day that there is."));
    }
    return span;
  }

  const Columns& columns_;
  const CsvRecord& record_;
  Date today_;
  Phrase place_;
};

}  // namespace

std::string CsvHead() {
  return CsvLine({"Facility", "Date", "From", "To", "Name", "Series"});
}

std::string CsvOf(const ExchangedBooking& booking) {
  return CsvLine({Defused(booking.Facility), IsoText(booking.Day), ClockText(booking.Slots.First),
                  ClockText(booking.Slots.Last + 1), Defused(booking.Name),
                  Defused(booking.Series)});
}

Exchanged BookingsOfCsv(std::string_view text, Date today) {
  const std::vector<CsvRecord> records = ParseCsv(text);
  if (records.empty()) {
    throw ValueError({{},
                      Phrase::Tr("The file is empty."),
                      Phrase::Tr("Nothing was changed. Name another file.")});
  }
  const Columns columns = ColumnsOf(records.front());
  Exchanged exchanged;
  for (std::size_t i = 1; i < records.size(); ++i) {
    RecordReader(columns, records[i], today).AddTo(exchanged);
  }
  return exchanged;
}

}  // namespace veyra
