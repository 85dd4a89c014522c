#include "data/access/write/index_key.h"

#include <algorithm>
#include <string>

#include "data/access/format/code_page.h"
#include "data/access/read/cell.h"
#include "data/access/write/text_key.h"

namespace veyra::access {

namespace {

constexpr Byte kNullFlag = 0x00;
constexpr Byte kValueFlag = 0x7F;
constexpr Byte kTopBit = 0x80;

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

void AppendText(Bytes& key, const Bytes& raw) {
  const ByteView view(raw);
  const bool compressed = raw.size() >= 2 && view.U16(0) == 0xFEFF;
  const std::string text = compressed ? ExpandCompressed(view.From(2)) : Utf8FromUtf16(view);
  AppendTextKey(key, text);
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

const std::optional<Bytes>& ColumnOf(const IndexColumn& column, const TableLayout& table,
                                     const RawRow& row) {
  for (std::size_t i = 0; i < table.Columns.size(); ++i) {
    if (table.Columns[i].Number == column.Number) {
      return row[i];
    }
  }
  throw DamagedFile();
}

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

}  // namespace veyra::access
