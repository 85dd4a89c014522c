#include "data/access/write/index_key.h"

#include <algorithm>
#include <array>
#include <string>

#include "data/access/format/code_page.h"
#include "data/access/read/cell.h"

namespace veyra::access {

namespace {

constexpr Byte kNullFlag = 0x00;
constexpr Byte kValueFlag = 0x7F;
constexpr Byte kTopBit = 0x80;

/// The bytes of the letters A to Z in the general sort order.
constexpr std::array<Byte, 26> kLetterCodes = {0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59,
                                               0x5B, 0x5C, 0x5E, 0x60, 0x62, 0x64, 0x66, 0x68, 0x69,
                                               0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};
constexpr Byte kFirstDigitCode = 0x36;

Bytes Reversed(const Bytes& bytes) {
  return {bytes.rbegin(), bytes.rend()};
}

void AppendWholeNumber(Bytes& key, const Bytes& raw) {
  Bytes number = Reversed(raw);
  if (number.size() > 1) {
    number.front() = static_cast<Byte>(number.front() ^ kTopBit);
  }
  key.insert(key.end(), number.begin(), number.end());
}

void AppendReal(Bytes& key, const Bytes& raw) {
  if (raw.empty()) {
    throw DamagedFile();
  }
  Bytes number = Reversed(raw);
  if ((number.front() & kTopBit) == 0) {
    number.front() = static_cast<Byte>(number.front() | kTopBit);
  } else {
    std::transform(number.begin(), number.end(), number.begin(),
                   [](Byte byte) { return static_cast<Byte>(~byte); });
  }
  key.insert(key.end(), number.begin(), number.end());
}

Byte CharacterCode(char c) {
  if (c >= '0' && c <= '9') {
    return static_cast<Byte>(kFirstDigitCode + 2 * (c - '0'));
  }
  if (c >= 'a' && c <= 'z') {
    return kLetterCodes.at(static_cast<std::size_t>(c - 'a'));
  }
  if (c >= 'A' && c <= 'Z') {
    return kLetterCodes.at(static_cast<std::size_t>(c - 'A'));
  }
  throw FileProblem("The name of a table has a sign that this program cannot sort.",
                    "Use letters and digits only.");
}

void AppendText(Bytes& key, const Bytes& raw) {
  const ByteView view(raw);
  const bool compressed = raw.size() >= 2 && view.U16(0) == 0xFEFF;
  const std::string text = compressed ? ExpandCompressed(view.From(2)) : Utf8FromUtf16(view);
  for (const char c : text) {
    key.push_back(CharacterCode(c));
  }
  key.push_back(0x01);
  key.push_back(0x00);
}

void AppendValue(Bytes& key, const Bytes& raw, ColumnKind kind) {
  switch (kind) {
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::DateTime:
      AppendReal(key, raw);
      break;
    case ColumnKind::Text:
      AppendText(key, raw);
      break;
    default:
      AppendWholeNumber(key, raw);
  }
}

const std::optional<Bytes>& ColumnOf(const IndexColumn& column, const TableLayout& table,
                                     const RawRow& row) {
  for (std::size_t i = 0; i < table.Columns.size(); ++i) {
    if (table.Columns[i].Number == column.Number) {
      return row[i];
    }
  }
  throw DamagedFile();
}

ColumnKind KindOf(const IndexColumn& column, const TableLayout& table) {
  const ColumnLayout* layout = table.ColumnByNumber(column.Number);
  if (layout == nullptr) {
    throw DamagedFile();
  }
  return layout->Kind;
}

bool HasKnownKey(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::OneByte:
    case ColumnKind::Short:
    case ColumnKind::Long:
    case ColumnKind::Money:
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::DateTime:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool HasKnownKeys(const IndexLayout& index, const TableLayout& table) {
  return std::all_of(index.Columns.begin(), index.Columns.end(),
                     [&](const IndexColumn& column) { return HasKnownKey(KindOf(column, table)); });
}

Bytes IndexKey(const IndexLayout& index, const TableLayout& table, const RawRow& row) {
  Bytes key;
  for (const IndexColumn& column : index.Columns) {
    const std::optional<Bytes>& raw = ColumnOf(column, table, row);
    Bytes part(1, raw ? kValueFlag : kNullFlag);
    if (raw) {
      AppendValue(part, *raw, KindOf(column, table));
    }
    for (const Byte byte : part) {
      key.push_back(column.Descending ? static_cast<Byte>(~byte) : byte);
    }
  }
  return key;
}

bool IsNullKey(const IndexLayout& index, const TableLayout& table, const RawRow& row) {
  return std::none_of(index.Columns.begin(), index.Columns.end(), [&](const IndexColumn& column) {
    return ColumnOf(column, table, row).has_value();
  });
}

bool IsIndexableName(std::string_view name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  });
}

}  // namespace veyra::access
