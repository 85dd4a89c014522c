#include "data/access/salvage/salvage_rows.h"

#include <algorithm>
#include <utility>

#include "data/access/format/data_page.h"
#include "data/access/format/row_view.h"
#include "data/access/read/cell.h"
#include "data/access/read/table_image.h"
#include "data/text.h"
#include "data/zero_sectors.h"

namespace veyra::access {

namespace {

bool IsKnown(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::YesNo:
    case ColumnKind::OneByte:
    case ColumnKind::Short:
    case ColumnKind::Long:
    case ColumnKind::Money:
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::DateTime:
    case ColumnKind::Binary:
    case ColumnKind::Text:
    case ColumnKind::LongBinary:
    case ColumnKind::Memo:
    case ColumnKind::Guid:
    case ColumnKind::Decimal:
      return true;
  }
  return false;
}

/// The bytes that a fixed column takes in a row.
std::size_t BytesOf(const ColumnLayout& column) {
  if (column.Kind == ColumnKind::YesNo) {
    return 0;
  }
  const std::size_t length = FixedLength(column.Kind);
  return length == 0 ? column.Length : length;
}

/// Where the fixed columns end that a row of so many columns has, from the first of them.
std::size_t EndOfFixed(const TableLayout& layout, std::uint16_t columns) {
  std::size_t end = 0;
  for (const ColumnLayout& column : layout.Columns) {
    if (column.IsFixed() && column.Number < columns) {
      end = std::max(end, column.FixedOffset + BytesOf(column));
    }
  }
  return end;
}

bool HasVariable(const TableLayout& layout, std::uint16_t columns) {
  return std::any_of(layout.Columns.begin(), layout.Columns.end(), [columns](const auto& column) {
    return !column.IsFixed() && column.Number < columns;
  });
}

/// Whether a text is longer than its column, which no program writes.
bool IsTooLong(const Value& value, const ColumnLayout& column, Format version) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr || column.Kind != ColumnKind::Text) {
    return false;
  }
  return Utf16Length(*text) * (version == Format::Jet3 ? 1 : 2) > column.Length;
}

/// Whether a text has characters that no name has: it is something else that was read as a text.
bool IsNoText(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr && (text->find("\xEF\xBF\xBD") != std::string::npos ||
                             std::any_of(text->begin(), text->end(), [](char c) {
                               return static_cast<unsigned char>(c) < ' ';
                             }));
}

}  // namespace

bool IsSoundLayout(const TableLayout& layout) {
  std::set<std::uint16_t> numbers;
  std::vector<std::pair<std::size_t, std::size_t>> places;
  for (const ColumnLayout& column : layout.Columns) {
    const std::size_t length = FixedLength(column.Kind);
    if (!IsKnown(column.Kind) || column.Name.empty() || column.Number >= layout.ColumnsEver ||
        !numbers.insert(column.Number).second ||
        (column.IsFixed() && length != 0 && column.Length != length)) {
      return false;
    }
    if (column.IsFixed() && BytesOf(column) > 0) {
      places.emplace_back(column.FixedOffset, column.FixedOffset + BytesOf(column));
    }
  }
  std::sort(places.begin(), places.end());
  return std::adjacent_find(places.begin(), places.end(), [](const auto& one, const auto& next) {
           return one.second > next.first;
         }) == places.end();
}

PageYield RowSalvager::Read(PageNumber page) {
  const PagePtr bytes = file_.ReadPage(page, PageKind::Data);
  const DataPage rows(*bytes, file_.Header().Version);
  PageYield yield;
  for (std::uint16_t row = 0; row < rows.RowCount(); ++row) {
    try {
      ReadRow(*bytes, {page, row}, yield);
    } catch (const DamagedFile&) {
      ++yield.LostRows;
    }
  }
  return yield;
}

/// Returns whether the slot stands for a row.
bool RowSalvager::ReadRow(const Bytes& home, RowPointer place, PageYield& yield) {
  const DataPage page(home, file_.Header().Version);
  const std::uint16_t slot = page.Slot(place.Row);
  if ((slot & kRowDeleted) != 0) {
    return false;
  }
  if ((slot & kRowMoved) == 0) {
    yield.Rows.push_back({place.Page, Values(home, page.RowBytes(place.Row), yield)});
    return true;
  }
  const RowPointer target = Target(place);
  const PagePtr bytes = file_.ReadPage(target.Page, PageKind::Data);
  const DataPage moved(*bytes, file_.Header().Version);
  if (moved.Owner() != page.Owner() || (moved.Slot(target.Row) & kRowDeleted) == 0 ||
      !targets_.insert(KeyOf(target)).second) {
    throw DamagedFile();
  }
  yield.Rows.push_back({place.Page, Values(*bytes, moved.RowBytes(target.Row), yield)});
  return true;
}

RowPointer RowSalvager::Target(RowPointer home) {
  const auto target = ResolveRow(file_, home);
  if (!target) {
    throw DamagedFile();
  }
  return *target;
}

void RowSalvager::CheckRow(ByteView bytes) const {
  const Format version = file_.Header().Version;
  const RowView row(bytes, version, layout_.VariableColumns > 0);
  const std::uint16_t columns = row.ColumnCount();
  if (columns == 0 || columns > layout_.ColumnsEver ||
      (HasVariable(layout_, columns) && row.VariableCount() == 0)) {
    throw DamagedFile();
  }
  const std::size_t fixed_end =
      EndOfFixed(layout_, columns) + (version == Format::Jet3 ? std::size_t{1} : std::size_t{2});
  if (fixed_end > bytes.size()) {
    throw DamagedFile();
  }
  if (row.VariableCount() == 0) {
    return;
  }
  const ByteView first = row.Variable(0);
  const auto begin = static_cast<std::size_t>(first.data() - bytes.data());
  if (begin < fixed_end ||
      (fit_ == Fit::Exact &&
       (begin != fixed_end || row.VariableCount() > layout_.VariableColumns))) {
    throw DamagedFile();
  }
}

std::vector<Value> RowSalvager::Values(const Bytes& page, ByteView bytes, PageYield& yield) const {
  const auto begin = static_cast<std::size_t>(bytes.data() - page.data());
  if (ReachIntoZeros(page, begin, begin + bytes.size())) {
    throw DamagedFile();
  }
  CheckRow(bytes);
  const RowView row(bytes, file_.Header().Version, layout_.VariableColumns > 0);
  const CellReader cells(file_, true);
  std::vector<Value> values;
  for (const ColumnLayout& column : layout_.Columns) {
    try {
      values.push_back(cells.ReadValue(row, column));
    } catch (const DamagedFile&) {
      if (!column.IsLong()) {
        throw;
      }
      values.emplace_back(Null{});
      yield.LostTexts.insert(column.Name);
    }
    if (IsTooLong(values.back(), column, file_.Header().Version) ||
        (fit_ == Fit::Exact && !column.IsLong() && IsNoText(values.back()))) {
      throw DamagedFile();
    }
  }
  return values;
}

}  // namespace veyra::access
