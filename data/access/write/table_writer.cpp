#include "data/access/write/table_writer.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "data/access/format/data_page.h"
#include "data/access/read/table_image.h"
#include "data/access/write/index_key.h"
#include "data/access/write/index_tree.h"
#include "data/access/write/usage_map_writer.h"

namespace veyra::access {

namespace {

constexpr std::size_t kRowCountAt = 16;
constexpr std::size_t kAutoNumberAt = 20;
constexpr std::size_t kManyRows = 200;
Phrase ConvertAdvice() {
  return Phrase::Tr("Convert the calendar with veyra-data convert, then start again.");
}

Bytes PointerBytes(RowPointer pointer) {
  Bytes bytes;
  Append(bytes, PointerNumber(pointer));
  return bytes;
}

bool IsOwnedBy(const Bytes& page, PageNumber table) {
  return page.front() == static_cast<Byte>(PageKind::Data) && ByteView(page).U32(4) == table;
}

/// Whether two entries of an index have the same key, which is not null in all of its columns: a
/// null is a single byte, a value has more.
bool HaveSameKey(const IndexLayout& index, const Bytes& one, const Bytes& other) {
  constexpr std::size_t kRowBytes = 4;
  return one.size() == other.size() && one.size() > kRowBytes + index.Columns.size() &&
         std::equal(one.begin(), one.end() - kRowBytes, other.begin());
}

[[noreturn]] void RefuseSecond(const IndexLayout& index) {
  throw FileProblem(Phrase::Tr("There is a row already with the same value in the index %1, which "
                               "allows each value once.",
                               index.Name),
                    Phrase::Tr("Change the value and try again."));
}

}  // namespace

void CheckMayWrite(const FileHeader& header) {
  if (header.Version == Format::Jet3) {
    throw FileProblem(Phrase::Tr("The database is of Access 97, which this program only reads."),
                      ConvertAdvice());
  }
  if (header.IsEncoded()) {
    throw FileProblem(Phrase::Tr("The database is encoded; this program only reads such files."),
                      ConvertAdvice());
  }
}

void CheckMayWrite(const TableLayout& table) {
  for (const IndexLayout& index : table.Indexes) {
    if (!HasKnownKeys(index, table)) {
      throw FileProblem(
          Phrase::Tr("The database has an index, %1, that this program cannot keep right.",
                     index.Name),
          ConvertAdvice());
    }
  }
}

TableWriter::TableWriter(PageChanges& pages, PageNumber definition)
    : pages_(pages), table_(ReadTableLayout(pages, definition)) {}

RowPointer TableWriter::Resolve(RowPointer home) {
  if (home.Page >= pages_.PageCount()) {
    throw StoreProblem(Refusal::RowRemoved);
  }
  const PagePtr page = pages_.ReadPage(home.Page);
  if (!IsOwnedBy(*page, table_.Page) || home.Row >= DataPage(*page, Format::Jet4).RowCount()) {
    throw StoreProblem(Refusal::RowRemoved);
  }
  const std::optional<RowPointer> place = ResolveRow(pages_, home);
  if (!place) {
    throw StoreProblem(Refusal::RowRemoved);
  }
  return *place;
}

RawRow TableWriter::Read(RowPointer home) {
  const RowPointer place = Resolve(home);
  const PagePtr page = pages_.ReadPage(place.Page, PageKind::Data);
  const ByteView bytes = DataPage(*page, Format::Jet4).RowBytes(place.Row);
  return RawColumns(RowView(bytes, Format::Jet4, table_.VariableColumns > 0), table_);
}

RowPointer TableWriter::Insert(RawRow& row) {
  GiveAutoNumber(row);
  CheckUnique(row, {}, nullptr);
  const RowPointer home = PlaceNew(EncodeRow(row, table_));
  SetRowCount(table_.RowCount + 1);
  ChangeIndexes(home, nullptr, &row);
  return home;
}

/// Many rows are entered in an index at once, by building it anew.
std::vector<RowPointer> TableWriter::InsertAll(std::vector<RawRow>& rows) {
  std::vector<RowPointer> homes;
  if (rows.size() < kManyRows || rows.size() < table_.RowCount / kManyRows) {
    for (RawRow& row : rows) {
      homes.push_back(Insert(row));
    }
    return homes;
  }
  homes = PlaceAll(rows);
  for (const IndexLayout& index : table_.Indexes) {
    AddToIndex(index, EntriesOf(index, rows, homes));
  }
  return homes;
}

PendingEntries TableWriter::InsertWithoutEntries(std::vector<RawRow>& rows) {
  const std::vector<RowPointer> homes = PlaceAll(rows);
  PendingEntries pending;
  for (const IndexLayout& index : table_.Indexes) {
    pending.push_back(EntriesOf(index, rows, homes));
    if (index.IsUnique()) {
      AddToIndex(index, std::exchange(pending.back(), {}));
    }
  }
  return pending;
}

void TableWriter::AddEntries(PendingEntries pending) {
  for (std::size_t i = 0; i < pending.size(); ++i) {
    if (!pending[i].empty()) {
      AddToIndex(table_.Indexes.at(i), std::move(pending[i]));
    }
  }
}

std::vector<RowPointer> TableWriter::PlaceAll(std::vector<RawRow>& rows) {
  std::vector<RowPointer> homes;
  homes.reserve(rows.size());
  for (RawRow& row : rows) {
    GiveAutoNumber(row);
    homes.push_back(PlaceNew(EncodeRow(row, table_)));
  }
  SetRowCount(table_.RowCount + static_cast<std::uint32_t>(rows.size()));
  return homes;
}

std::vector<Bytes> TableWriter::EntriesOf(const IndexLayout& index, const std::vector<RawRow>& rows,
                                          const std::vector<RowPointer>& homes) const {
  std::vector<Bytes> keys;
  keys.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (HasEntry(index, &rows[i])) {
      keys.push_back(EntryKey(IndexKey(index, table_, rows[i]), homes[i]));
    }
  }
  return keys;
}

void TableWriter::AddToIndex(const IndexLayout& index, std::vector<Bytes> keys) {
  std::sort(keys.begin(), keys.end());
  IndexTree tree(pages_, table_.Page, index);
  std::vector<Bytes> before = tree.Keys();
  std::vector<Bytes> all;
  all.reserve(before.size() + keys.size());
  std::merge(std::make_move_iterator(before.begin()), std::make_move_iterator(before.end()),
             std::make_move_iterator(keys.begin()), std::make_move_iterator(keys.end()),
             std::back_inserter(all));
  const auto same = std::adjacent_find(
      all.begin(), all.end(),
      [&](const Bytes& one, const Bytes& other) { return HaveSameKey(index, one, other); });
  if (index.IsUnique() && same != all.end()) {
    RefuseSecond(index);
  }
  tree.Rebuild(std::move(all));
}

void TableWriter::Update(RowPointer home, const RawRow& row) {
  const RawRow before = Read(home);
  CheckUnique(row, home, &before);
  const Bytes bytes = EncodeRow(row, table_);
  const RowPointer place = Resolve(home);
  if (HasRoomToReplace(*pages_.ReadPage(place.Page), place.Row, bytes.size())) {
    const std::uint16_t flags = place == home ? 0 : kRowDeleted;
    ReplaceRow(pages_.Edit(place.Page), place.Row, bytes, flags);
  } else {
    Move(home, place, bytes);
  }
  ChangeIndexes(home, &before, &row);
}

/// The row goes where there is room; its home slot points there.
void TableWriter::Move(RowPointer home, RowPointer place, const Bytes& row) {
  if (place != home) {
    Empty(place);
  }
  const RowPointer target = Place(row, kRowDeleted);
  const Bytes pointer = PointerBytes(target);
  if (!HasRoomToReplace(*pages_.ReadPage(home.Page), home.Row, pointer.size())) {
    throw DamagedFile();
  }
  ReplaceRow(pages_.Edit(home.Page), home.Row, pointer, kRowMoved);
}

void TableWriter::Delete(RowPointer home) {
  const RawRow before = Read(home);
  const RowPointer place = Resolve(home);
  if (place != home) {
    Empty(place);
  }
  Empty(home);
  SetRowCount(table_.RowCount - 1);
  ChangeIndexes(home, &before, nullptr);
}

/// A page whose last row goes is given back, as long as the table keeps another.
void TableWriter::Empty(RowPointer place) {
  Bytes& page = pages_.Edit(place.Page);
  DeleteRow(page, place.Row);
  if (!HasNoRows(page) || ReadUsageMap(pages_, table_.Owned).size() < 2) {
    AddToMap(pages_, table_.Free, place.Page);
    return;
  }
  RemoveFromMap(pages_, table_.Owned, place.Page);
  RemoveFromMap(pages_, table_.Free, place.Page);
  FreePage(pages_, place.Page);
}

/// Programs take rows in the order of their places for the order of their numbers.
bool TableWriter::KeepsOrder() const {
  return std::any_of(table_.Columns.begin(), table_.Columns.end(),
                     [](const ColumnLayout& column) { return column.IsAutoNumber(); });
}

RowPointer TableWriter::PlaceNew(const Bytes& row) {
  const SlotUse use = KeepsOrder() ? SlotUse::New : SlotUse::Any;
  if (filling_ != 0 && HasRoomFor(*pages_.ReadPage(filling_), row.size(), use)) {
    return {filling_, AddRow(pages_.Edit(filling_), row, 0, use)};
  }
  const RowPointer place = KeepsOrder() ? PlaceLast(row) : Place(row, 0);
  filling_ = place.Page;
  return place;
}

/// Puts a row on the first of the table's pages that has room, and returns where. Pages that have
/// none are taken out of the map of those with room.
RowPointer TableWriter::Place(const Bytes& row, std::uint16_t flags) {
  for (const PageNumber number : ReadUsageMap(pages_, table_.Free)) {
    const PagePtr page = pages_.ReadPage(number);
    if (IsOwnedBy(*page, table_.Page) && HasRoomFor(*page, row.size(), SlotUse::Any)) {
      return {number, AddRow(pages_.Edit(number), row, flags, SlotUse::Any)};
    }
    RemoveFromMap(pages_, table_.Free, number);
  }
  const PageNumber added = AddPage(0);
  return {added, AddRow(pages_.Edit(added), row, flags)};
}

/// Puts a row after all others.
RowPointer TableWriter::PlaceLast(const Bytes& row) {
  const std::vector<PageNumber> owned = ReadUsageMap(pages_, table_.Owned);
  const PageNumber last = owned.empty() ? 0 : owned.back();
  if (last != 0) {
    const PagePtr page = pages_.ReadPage(last);
    if (IsOwnedBy(*page, table_.Page) && HasRoomFor(*page, row.size())) {
      return {last, AddRow(pages_.Edit(last), row)};
    }
    RemoveFromMap(pages_, table_.Free, last);
  }
  const PageNumber added = AddPage(last);
  return {added, AddRow(pages_.Edit(added), row)};
}

PageNumber TableWriter::AddPage(PageNumber above) {
  const PageNumber page = TakePage(pages_, above);
  pages_.Edit(page) = EmptyDataPage(table_.Page);
  AddToMap(pages_, table_.Owned, page);
  AddToMap(pages_, table_.Free, page);
  return page;
}

void TableWriter::SetRowCount(std::uint32_t count) {
  table_.RowCount = count;
  Put(pages_.Edit(table_.Page), kRowCountAt, count);
}

void TableWriter::GiveAutoNumber(RawRow& row) {
  for (std::size_t i = 0; i < table_.Columns.size(); ++i) {
    if (!table_.Columns[i].IsAutoNumber() || table_.Columns[i].Kind != ColumnKind::Long) {
      continue;
    }
    if (!row[i]) {
      row[i].emplace();
      Append(*row[i], table_.LastAutoNumber + 1);
    }
    const std::int32_t number = ByteView(*row[i]).I32(0);
    if (number > static_cast<std::int32_t>(table_.LastAutoNumber)) {
      table_.LastAutoNumber = static_cast<std::uint32_t>(number);
      Put(pages_.Edit(table_.Page), kAutoNumberAt, table_.LastAutoNumber);
    }
  }
}

void TableWriter::CheckUnique(const RawRow& row, RowPointer home, const RawRow* before) {
  for (const IndexLayout& index : table_.Indexes) {
    if (index.IsUnique() && !HasSameKey(index, before, &row) && !IsNullKey(index, table_, row) &&
        IndexTree(pages_, table_.Page, index).HasKey(IndexKey(index, table_, row), home)) {
      RefuseSecond(index);
    }
  }
}

bool TableWriter::HasEntry(const IndexLayout& index, const RawRow* row) const {
  return row != nullptr && !(index.SkipsNulls() && IsNullKey(index, table_, *row));
}

void TableWriter::ChangeIndexes(RowPointer home, const RawRow* before, const RawRow* after) {
  for (const IndexLayout& index : table_.Indexes) {
    bool followed = false;
    try {
      followed = ChangeIndex(index, home, before, after);
    } catch (const DamagedFile&) {
      followed = false;
    }
    if (!followed) {
      RebuildIndex(index);
    }
  }
}

/// Whether both rows have the same values in the index's columns.
bool TableWriter::HasSameKey(const IndexLayout& index, const RawRow* one,
                             const RawRow* other) const {
  return one != nullptr && other != nullptr &&
         std::all_of(index.Columns.begin(), index.Columns.end(), [&](const IndexColumn& column) {
           return ColumnOf(column, table_, *one) == ColumnOf(column, table_, *other);
         });
}

/// Returns false when the index lacks the entry that is to go.
bool TableWriter::ChangeIndex(const IndexLayout& index, RowPointer home, const RawRow* before,
                              const RawRow* after) {
  if (HasSameKey(index, before, after)) {
    return true;
  }
  IndexTree tree(pages_, table_.Page, index);
  const bool had = HasEntry(index, before);
  const bool has = HasEntry(index, after);
  const Bytes old_key = had ? IndexKey(index, table_, *before) : Bytes();
  const Bytes new_key = has ? IndexKey(index, table_, *after) : Bytes();
  if (had == has && old_key == new_key) {
    return true;
  }
  if (had && !tree.Remove(old_key, home)) {
    return false;
  }
  if (has) {
    tree.Insert(new_key, home);
  }
  return true;
}

void TableWriter::RebuildIndexes() {
  for (const IndexLayout& index : table_.Indexes) {
    RebuildIndex(index);
  }
}

void TableWriter::RebuildIndex(const IndexLayout& index) {
  const TableImage image(pages_, table_.Page);
  std::vector<Bytes> keys;
  for (std::size_t i = 0; i < image.RowCount(); ++i) {
    const RawRow row = RawColumns(image.View(i), table_);
    if (HasEntry(index, &row)) {
      keys.push_back(EntryKey(IndexKey(index, table_, row), HomeOf(image.Key(i))));
    }
  }
  std::sort(keys.begin(), keys.end());
  IndexTree(pages_, table_.Page, index).Rebuild(std::move(keys));
}

}  // namespace veyra::access
