#include "data/access/read/cell.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "data/access/format/data_page.h"

namespace veyra::access {

namespace {

constexpr std::size_t kLongDescriptor = 12;
constexpr std::uint32_t kTextFollows = 0x80000000;
constexpr std::uint32_t kOneRow = 0x40000000;
constexpr std::uint32_t kLongLength = 0x3FFFFFFF;
constexpr std::size_t kDecimalBytes = 17;
constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

/// `units` of a number with `scale` digits after the point, from most to least significant.
std::string PlacePoint(std::string digits, std::size_t scale, bool negative) {
  if (digits.size() <= scale) {
    digits.insert(0, scale + 1 - digits.size(), '0');
  }
  if (scale > 0) {
    digits.insert(digits.size() - scale, 1, '.');
  }
  return negative ? "-" + digits : digits;
}

std::string MoneyText(std::int64_t units) {
  const bool negative = units < 0;
  const std::uint64_t size =
      negative ? ~static_cast<std::uint64_t>(units) + 1 : static_cast<std::uint64_t>(units);
  return PlacePoint(std::to_string(size), 4, negative);
}

/// A 128-bit number of four words, the most significant first, in decimal digits.
std::string DecimalDigits(std::array<std::uint32_t, 4> words) {
  std::string digits;
  bool more = true;
  while (more) {
    std::uint64_t rest = 0;
    more = false;
    for (std::uint32_t& word : words) {
      rest = (rest << 32U) | word;
      word = static_cast<std::uint32_t>(rest / 10);
      rest %= 10;
      more = more || word != 0;
    }
    digits.insert(digits.begin(), static_cast<char>('0' + rest));
  }
  return digits;
}

std::string DecimalText(ByteView bytes, std::size_t scale) {
  const std::array<std::uint32_t, 4> words = {bytes.U32(1), bytes.U32(5), bytes.U32(9),
                                              bytes.U32(13)};
  return PlacePoint(DecimalDigits(words), scale, bytes.U8(0) != 0);
}

std::string GuidText(ByteView bytes) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                bytes.U32(0), bytes.U16(4), bytes.U16(6), bytes.U8(8), bytes.U8(9), bytes.U8(10),
                bytes.U8(11), bytes.U8(12), bytes.U8(13), bytes.U8(14), bytes.U8(15));
  return text.data();
}

std::string HexText(const Bytes& bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const Byte byte : bytes) {
    text.push_back(kDigits[byte >> 4U]);
    text.push_back(kDigits[byte & 0xFU]);
  }
  return text;
}

Value ValueOf(const Cell& cell) {
  if (const auto* number = std::get_if<std::int64_t>(&cell)) {
    return *number;
  }
  if (const auto* number = std::get_if<double>(&cell)) {
    return *number;
  }
  if (const auto* text = std::get_if<std::string>(&cell)) {
    return *text;
  }
  if (const auto* bytes = std::get_if<Bytes>(&cell)) {
    return HexText(*bytes);
  }
  if (const auto* serial = std::get_if<DateSerial>(&cell)) {
    const std::optional<Date> date = DateFromDays(SplitSerial(*serial).Days);
    return date ? Value(*date) : Value(serial->Days);
  }
  return Null{};
}

/// The date, or where it has a time of day the text of both.
Value WithTime(DateSerial serial) {
  const DaySeconds split = SplitSerial(serial);
  const std::optional<Date> date = DateFromDays(split.Days);
  if (!date || split.Seconds == 0) {
    return ValueOf(serial);
  }
  std::array<char, 48> time{};
  std::snprintf(time.data(), time.size(), " %02d:%02d:%02d", split.Seconds / 3600,
                split.Seconds / 60 % 60, split.Seconds % 60);
  return IsoText(*date) + time.data();
}

}  // namespace

std::size_t FixedLength(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::YesNo:
    case ColumnKind::OneByte:
      return 1;
    case ColumnKind::Short:
      return 2;
    case ColumnKind::Long:
    case ColumnKind::Single:
      return 4;
    case ColumnKind::Money:
    case ColumnKind::Double:
    case ColumnKind::DateTime:
      return 8;
    case ColumnKind::Guid:
      return 16;
    case ColumnKind::Decimal:
      return kDecimalBytes;
    case ColumnKind::Binary:
    case ColumnKind::Text:
    case ColumnKind::LongBinary:
    case ColumnKind::Memo:
      break;
  }
  return 0;
}

DaySeconds SplitSerial(DateSerial serial) {
  constexpr double kMostDays = 1e9;
  if (!(std::abs(serial.Days) < kMostDays)) {
    return {static_cast<std::int64_t>(kMostDays), 0};
  }
  const double days = std::trunc(serial.Days);
  DaySeconds split{static_cast<std::int64_t>(days),
                   static_cast<int>(std::lround(std::abs(serial.Days - days) * 86400.0))};
  if (split.Seconds == 86400) {
    split = {split.Days + 1, 0};
  }
  return split;
}

std::optional<Date> DateFromDays(std::int64_t days) {
  constexpr std::int64_t kMostDays = 4'000'000;
  if (std::abs(days) > kMostDays) {
    return std::nullopt;
  }
  const Date date{kDayZero + std::chrono::days(days)};
  const int year = static_cast<int>(date.year());
  return year >= kFirstYear && year <= kLastYear ? std::optional(date) : std::nullopt;
}

std::int64_t DaysFromDate(Date date) {
  return (std::chrono::sys_days(date) - kDayZero).count();
}

std::string ExpandCompressed(ByteView text) {
  constexpr Byte kFirstOfTwoBytes = 0x80;
  std::string result;
  result.reserve(text.size());
  bool compressed = true;
  std::size_t at = 0;
  while (at < text.size()) {
    const Byte* begin = text.data() + at;
    const std::size_t left = text.size() - at;
    std::size_t run = 0;
    if (compressed) {
      while (run < left && begin[run] != 0) {
        if (begin[run] < kFirstOfTwoBytes) {
          result.push_back(static_cast<char>(begin[run]));
        } else {
          AppendUtf8(result, begin[run]);
        }
        ++run;
      }
    } else {
      while (run + 1 < left && begin[run] != 0) {
        run += 2;
      }
      result += Utf8FromUtf16(text.Slice(at, run));
    }
    at += run + 1;
    compressed = !compressed;
  }
  return result;
}

Cell CellReader::Read(const RowView& row, const ColumnLayout& column) const {
  const bool has_value = row.HasBit(column.Number);
  if (column.Kind == ColumnKind::YesNo) {
    return std::int64_t{has_value ? 1 : 0};
  }
  if (!has_value) {
    return Null{};
  }
  if (column.Kind == ColumnKind::Decimal) {
    const ByteView bytes = column.IsFixed() ? row.Fixed(column.FixedOffset, kDecimalBytes)
                                            : row.Variable(column.VariablePlace);
    return DecimalText(bytes, column.Scale);
  }
  if (column.IsFixed()) {
    const std::size_t length = FixedLength(column.Kind);
    const ByteView bytes =
        row.Fixed(column.FixedOffset, length == 0 ? std::size_t{column.Length} : length);
    return ReadFixed(bytes, column.Kind);
  }
  const ByteView bytes = row.Variable(column.VariablePlace);
  switch (column.Kind) {
    case ColumnKind::Memo:
      return ReadText(ReadLong(bytes));
    case ColumnKind::LongBinary:
      return ReadLong(bytes);
    default:
      return ReadFixed(bytes, column.Kind);
  }
}

Value CellReader::ReadValue(const RowView& row, const ColumnLayout& column) const {
  if (column.Kind == ColumnKind::LongBinary) {
    return Null{};
  }
  const Cell cell = Read(row, column);
  const auto* serial = std::get_if<DateSerial>(&cell);
  return with_times_ && serial != nullptr ? WithTime(*serial) : ValueOf(cell);
}

Cell CellReader::ReadFixed(ByteView bytes, ColumnKind kind) const {
  switch (kind) {
    case ColumnKind::OneByte:
      return std::int64_t{bytes.U8(0)};
    case ColumnKind::Short:
      return std::int64_t{bytes.I16(0)};
    case ColumnKind::Long:
      return std::int64_t{bytes.I32(0)};
    case ColumnKind::Money:
      return MoneyText(bytes.I64(0));
    case ColumnKind::Single:
      return static_cast<double>(bytes.Single(0));
    case ColumnKind::Double:
      return bytes.Double(0);
    case ColumnKind::DateTime:
      return DateSerial{bytes.Double(0)};
    case ColumnKind::Guid:
      return GuidText(bytes);
    case ColumnKind::Text:
      return ReadText(bytes);
    default:
      return bytes.Copy();
  }
}

std::string CellReader::ReadText(ByteView bytes) const {
  if (file_.Header().Version == Format::Jet3) {
    return code_page_.ToUtf8(bytes);
  }
  if (bytes.size() >= 2 && bytes.U16(0) == 0xFEFF) {
    return ExpandCompressed(bytes.From(2));
  }
  return Utf8FromUtf16(bytes);
}

Bytes CellReader::ReadLong(ByteView descriptor) const {
  const std::uint32_t first = descriptor.U32(0);
  const std::size_t length = first & kLongLength;
  if ((first & kTextFollows) != 0) {
    return descriptor.Slice(kLongDescriptor, length).Copy();
  }
  const RowPointer pointer = PointerFrom(descriptor.U32(4));
  if ((first & kOneRow) != 0) {
    const PagePtr page = file_.ReadPage(pointer.Page, PageKind::Data);
    return DataPage(*page, file_.Header().Version).RowBytes(pointer.Row).Slice(0, length).Copy();
  }
  return ReadLongChain(pointer, length);
}

Bytes CellReader::ReadLongChain(RowPointer first, std::size_t length) const {
  if (length > std::size_t{file_.PageCount()} * file_.PageSize()) {
    throw DamagedFile();
  }
  Bytes bytes;
  RowPointer next = first;
  while (bytes.size() < length) {
    const PagePtr page = file_.ReadPage(next.Page, PageKind::Data);
    const ByteView row = DataPage(*page, file_.Header().Version).RowBytes(next.Row);
    const ByteView part = row.From(4);
    const std::size_t taken = std::min(part.size(), length - bytes.size());
    if (taken == 0) {
      throw DamagedFile();
    }
    bytes.insert(bytes.end(), part.data(), part.data() + taken);
    next = PointerFrom(row.U32(0));
  }
  return bytes;
}

}  // namespace veyra::access
