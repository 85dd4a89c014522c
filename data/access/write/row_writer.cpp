#include "data/access/write/row_writer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "data/access/format/code_page.h"
#include "data/access/format/data_page.h"
#include "data/access/read/cell.h"
#include "data/text.h"

namespace veyra::access {

namespace {

constexpr std::size_t kMostCompressed = 1024;
constexpr char16_t kCompressedMark = 0xFEFF;

[[noreturn]] void RefuseValue(const ColumnLayout& column, const Phrase& why) {
  throw ValueRefused(Phrase::Tr("The column %1 cannot hold the value: %2.", column.Name, why),
                     Phrase::Tr("Change the value and try again."));
}

template <typename Number>
Bytes BytesOf(Number number) {
  Bytes bytes;
  Append(bytes, number);
  return bytes;
}

template <typename Number>
Bytes WholeNumber(const Value& value, const ColumnLayout& column) {
  const std::optional<std::int64_t> number = ToInteger(value);
  if (!number || *number < std::numeric_limits<Number>::min() ||
      *number > std::numeric_limits<Number>::max()) {
    RefuseValue(column, Phrase::Tr("it is not a whole number of its range"));
  }
  return BytesOf(static_cast<Number>(*number));
}

double Number(const Value& value, const ColumnLayout& column) {
  const std::optional<double> number = ToDouble(value);
  if (!number) {
    RefuseValue(column, Phrase::Tr("it is not a number"));
  }
  return *number;
}

Bytes Money(const Value& value, const ColumnLayout& column) {
  const double units = std::round(Number(value, column) * 10000);
  if (!(std::abs(units) < 9e18)) {
    RefuseValue(column, Phrase::Tr("it is too large"));
  }
  return BytesOf(static_cast<std::int64_t>(units));
}

Bytes DateTime(const Value& value, const ColumnLayout& column) {
  if (const auto* serial = std::get_if<double>(&value)) {
    return BytesOf(*serial);
  }
  const std::optional<Date> date = ToDate(value);
  if (!date) {
    RefuseValue(column, Phrase::Tr("it is not a date"));
  }
  return BytesOf(static_cast<double>(DaysFromDate(*date)));
}

bool Fits(std::string_view text, const ColumnLayout& column) {
  return column.Length == 0 || Utf16FromUtf8(text).size() * 2 <= column.Length;
}

/// A text that begins with U+FEFF looks like a compressed one: so it is made one, switched to
/// UTF-16 and back as its characters need it.
Bytes EncodeAsCompressed(const std::u16string& units) {
  Bytes bytes;
  Append<std::uint16_t>(bytes, kCompressedMark);
  bool compressed = true;
  for (const char16_t unit : units) {
    const bool as_byte = unit <= 0xFF;
    if ((unit & 0xFFU) == 0) {
      throw ValueRefused(Phrase::Tr("The text begins with the invisible sign U+FEFF, which an "
                                    "Access file cannot hold together with some of the others."),
                         Phrase::Tr("Delete the beginning of the text, and type it anew."));
    }
    if (as_byte != compressed) {
      bytes.push_back(0);
      compressed = as_byte;
    }
    bytes.push_back(static_cast<Byte>(unit));
    if (!compressed) {
      bytes.push_back(static_cast<Byte>(unit >> 8U));
    }
  }
  return bytes;
}

Bytes Text(const Value& value, const ColumnLayout& column) {
  const std::string text = ToText(value);
  if (!Fits(text, column)) {
    RefuseValue(column, Phrase::Tr("it is longer than %1 characters", column.Length / 2));
  }
  return EncodeText(text, column.MayCompress);
}

std::size_t BytesOfFixed(const ColumnLayout& column) {
  const std::size_t length = FixedLength(column.Kind);
  return length == 0 ? column.Length : length;
}

std::size_t FixedArea(const TableLayout& table) {
  std::size_t size = 0;
  for (const ColumnLayout& column : table.Columns) {
    if (column.IsFixed() && column.Kind != ColumnKind::YesNo) {
      size = std::max(size, column.FixedOffset + BytesOfFixed(column));
    }
  }
  return size;
}

void PutFixedColumns(Bytes& bytes, const RawRow& row, const TableLayout& table) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const ColumnLayout& column = table.Columns[i];
    if (row[i] && column.IsFixed() && column.Kind != ColumnKind::YesNo) {
      if (row[i]->size() > BytesOfFixed(column)) {
        throw DamagedFile();
      }
      std::copy(row[i]->begin(), row[i]->end(), bytes.begin() + 2 + column.FixedOffset);
    }
  }
}

void AppendVariableColumns(Bytes& bytes, const RawRow& row, const TableLayout& table) {
  std::vector<const Bytes*> places(table.VariableColumns, nullptr);
  for (std::size_t i = 0; i < row.size(); ++i) {
    const ColumnLayout& column = table.Columns[i];
    if (row[i] && !column.IsFixed() && column.VariablePlace < places.size()) {
      places[column.VariablePlace] = &*row[i];
    }
  }
  std::vector<std::uint16_t> offsets;
  for (const Bytes* column : places) {
    offsets.push_back(static_cast<std::uint16_t>(bytes.size()));
    if (column != nullptr) {
      bytes.insert(bytes.end(), column->begin(), column->end());
    }
  }
  offsets.push_back(static_cast<std::uint16_t>(bytes.size()));
  for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset) {
    Append(bytes, *offset);
  }
  Append(bytes, table.VariableColumns);
}

void AppendNullBits(Bytes& bytes, const RawRow& row, const TableLayout& table) {
  Bytes bits((table.ColumnsEver + 7U) / 8U);
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::uint16_t number = table.Columns[i].Number;
    if (row[i] && number < table.ColumnsEver) {
      bits[number / 8U] = static_cast<Byte>(bits[number / 8U] | (1U << (number % 8U)));
    }
  }
  bytes.insert(bytes.end(), bits.begin(), bits.end());
}

bool CanCompress(const std::u16string& text) {
  return text.size() > 2 && text.size() <= kMostCompressed &&
         std::all_of(text.begin(), text.end(),
                     [](char16_t unit) { return unit > 0 && unit <= 0xFF; });
}

}  // namespace

RawRow RawColumns(const RowView& row, const TableLayout& table) {
  RawRow raw;
  for (const ColumnLayout& column : table.Columns) {
    if (!row.HasBit(column.Number)) {
      raw.emplace_back();
    } else if (column.Kind == ColumnKind::YesNo) {
      raw.emplace_back(Bytes());
    } else if (column.IsFixed()) {
      raw.emplace_back(row.Fixed(column.FixedOffset, BytesOfFixed(column)).Copy());
    } else {
      raw.emplace_back(row.Variable(column.VariablePlace).Copy());
    }
  }
  return raw;
}

Bytes EncodeRow(const RawRow& row, const TableLayout& table) {
  Bytes bytes(2 + FixedArea(table));
  Put(bytes, 0, table.ColumnsEver);
  PutFixedColumns(bytes, row, table);
  if (table.VariableColumns > 0) {
    AppendVariableColumns(bytes, row, table);
  }
  AppendNullBits(bytes, row, table);
  if (bytes.size() > kLongestRow) {
    throw ValueRefused(Phrase::Tr("The row is longer than an Access file allows."),
                       Phrase::Tr("Shorten its texts."));
  }
  return bytes;
}

std::optional<Bytes> EncodeValue(const Value& value, const ColumnLayout& column) {
  if (IsNull(value)) {
    return std::nullopt;
  }
  switch (column.Kind) {
    case ColumnKind::YesNo:
      return ToInteger(value).value_or(0) != 0 ? std::optional(Bytes()) : std::nullopt;
    case ColumnKind::OneByte:
      return WholeNumber<std::uint8_t>(value, column);
    case ColumnKind::Short:
      return WholeNumber<std::int16_t>(value, column);
    case ColumnKind::Long:
      return WholeNumber<std::int32_t>(value, column);
    case ColumnKind::Money:
      return Money(value, column);
    case ColumnKind::Single:
      return BytesOf(static_cast<float>(Number(value, column)));
    case ColumnKind::Double:
      return BytesOf(Number(value, column));
    case ColumnKind::DateTime:
      return DateTime(value, column);
    case ColumnKind::Text:
      return Text(value, column);
    case ColumnKind::Memo:
      return EncodeText(ToText(value), column.MayCompress);
    case ColumnKind::Binary:
    case ColumnKind::LongBinary:
    case ColumnKind::Guid:
    case ColumnKind::Decimal:
      break;
  }
  RefuseValue(column, Phrase::Tr("this program does not write columns of its kind"));
}

std::size_t FittingCharacters(const ColumnLayout& column, std::string_view text) {
  std::size_t fitting = 0;
  std::size_t too_many = CharacterCount(text) + 1;
  if (column.Kind != ColumnKind::Text || Fits(text, column)) {
    return too_many - 1;
  }
  while (too_many - fitting > 1) {
    const std::size_t middle = fitting + (too_many - fitting) / 2;
    (Fits(FirstCharacters(text, middle), column) ? fitting : too_many) = middle;
  }
  return fitting;
}

Bytes EncodeText(std::string_view text, bool may_compress) {
  const std::u16string units = Utf16FromUtf8(text);
  if (!units.empty() && units.front() == kCompressedMark) {
    return EncodeAsCompressed(units);
  }
  Bytes bytes;
  if (may_compress && CanCompress(units)) {
    Append<std::uint16_t>(bytes, kCompressedMark);
    for (const char16_t unit : units) {
      bytes.push_back(static_cast<Byte>(unit));
    }
    return bytes;
  }
  for (const char16_t unit : units) {
    Append<std::uint16_t>(bytes, unit);
  }
  return bytes;
}

}  // namespace veyra::access
