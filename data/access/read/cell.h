#pragma once

#include <string>
#include <variant>

#include "data/access/format/bytes.h"
#include "data/access/format/code_page.h"
#include "data/access/format/row_view.h"
#include "data/access/pages/page_source.h"
#include "data/access/read/table_layout.h"
#include "data/value.h"

namespace veyra::access {

/// A point in time: days since 1899-12-30, the time of day as their fraction. Before that day the
/// fraction counts forwards as well: -1.25 is six o'clock on 1899-12-29.
struct DateSerial {
  double Days = 0;

  bool operator==(const DateSerial&) const = default;
};

/// What a column of a row holds. Money, decimals and GUIDs are texts: "12.5000", "0.125",
/// "{6B29FC40-CA47-1067-B31D-00DD010662DA}"; yes and no are 1 and 0.
using Cell = std::variant<Null, std::int64_t, double, std::string, DateSerial, Bytes>;

/// Reads columns of rows, and the long texts that lie elsewhere in the file.
class CellReader {
 public:
  /// `with_times`: ReadValue gives a date-time that has a time of day as text with it.
  explicit CellReader(PageSource& file, bool with_times = false)
      : file_(file), code_page_(file.Header().CodePage), with_times_(with_times) {}

  /// A column of a row. Throws DamagedFile when its bytes are not what the column's kind needs.
  Cell Read(const RowView& row, const ColumnLayout& column) const;

  /// The same as the program's other stores give it: the day of a date-time, or the bare number
  /// of days where that lies outside the years of a Date; hexadecimal digits for bytes. Null for a
  /// long binary column, which is not read.
  Value ReadValue(const RowView& row, const ColumnLayout& column) const;

  /// The long value that these bytes of a row stand for.
  Bytes ReadLong(ByteView descriptor) const;

 private:
  Cell ReadFixed(ByteView bytes, ColumnKind kind) const;
  std::string ReadText(ByteView bytes) const;
  Bytes ReadLongChain(RowPointer first, std::size_t length) const;

  PageSource& file_;
  CodePage code_page_;
  bool with_times_;
};

/// The bytes of a fixed column of that kind; 0 for the others.
std::size_t FixedLength(ColumnKind kind);

/// The day of a date-time and the seconds since its midnight, 0 to 86399.
struct DaySeconds {
  std::int64_t Days = 0;  ///< Since 1899-12-30.
  int Seconds = 0;
};
DaySeconds SplitSerial(DateSerial serial);

/// The date that lies `days` after 1899-12-30, or nothing when its year is not a Date's.
std::optional<Date> DateFromDays(std::int64_t days);

/// The days since 1899-12-30 of a date.
std::int64_t DaysFromDate(Date date);

/// Compressed text as UTF-8: one byte a character; a 0 switches to UTF-16 and back.
std::string ExpandCompressed(ByteView text);

}  // namespace veyra::access
