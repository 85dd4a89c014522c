#include "data/access/write/row_changes.h"

#include <algorithm>

#include "data/access/format/data_page.h"
#include "data/access/read/condition.h"
#include "data/access/read/table_image.h"
#include "data/access/read/table_rows.h"
#include "data/access/write/long_writer.h"

namespace veyra::access {

namespace {

Row ReadRow(PageChanges& pages, const TableLayout& layout, RowPointer home) {
  const std::optional<RowPointer> place = ResolveRow(pages, home);
  if (!place) {
    throw StoreProblem(Refusal::RowRemoved);
  }
  const PagePtr page = pages.ReadPage(place->Page, PageKind::Data);
  const ByteView bytes = DataPage(*page, Format::Jet4).RowBytes(place->Row);
  const RowView view(bytes, Format::Jet4, layout.VariableColumns > 0);
  return {KeyOf(home), ReadValues(CellReader(pages), view, layout)};
}

/// Throws RowChanged unless the row is the same as `before`.
void CheckUnchanged(PageChanges& pages, TableWriter& writer, const Row& before) {
  writer.Read(HomeOf(before.Key));
  const Row now = ReadRow(pages, writer.Layout(), HomeOf(before.Key));
  if (!std::equal(now.Values.begin(), now.Values.end(), before.Values.begin(), before.Values.end(),
                  IsSame)) {
    throw StoreProblem(Refusal::RowChanged);
  }
}

void SetFields(PageChanges& pages, RawRow& row, const TableLayout& layout,
               const FieldValues& fields) {
  for (const auto& [name, value] : fields) {
    const std::size_t place = PlaceOfColumn(layout, name);
    const ColumnLayout& column = layout.Columns[place];
    row[place] = EncodeValue(value, column);
    if (row[place] && column.IsLong()) {
      row[place] = StoreLong(pages, layout, column, *row[place]);
    }
  }
}

/// Gives back the long values of `before` that `after` does not have.
void DropLongValues(PageChanges& pages, const TableLayout& layout, const RawRow& before,
                    const RawRow& after) {
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (layout.Columns[i].IsLong() && before[i] && before[i] != after[i]) {
      DropLong(pages, layout, layout.Columns[i], *before[i]);
    }
  }
}

std::vector<RawRow> EncodeRows(PageChanges& pages, const TableLayout& layout,
                               const std::vector<FieldValues>& rows) {
  std::vector<RawRow> raw;
  raw.reserve(rows.size());
  for (const FieldValues& fields : rows) {
    raw.emplace_back(layout.Columns.size());
    SetFields(pages, raw.back(), layout, fields);
  }
  return raw;
}

}  // namespace

Row InsertRow(PageChanges& pages, TableWriter& writer, const FieldValues& fields) {
  RawRow row(writer.Layout().Columns.size());
  SetFields(pages, row, writer.Layout(), fields);
  const RowPointer home = writer.Insert(row);
  return ReadRow(pages, writer.Layout(), home);
}

std::vector<Row> InsertRows(PageChanges& pages, TableWriter& writer,
                            const std::vector<FieldValues>& rows) {
  std::vector<RawRow> raw = EncodeRows(pages, writer.Layout(), rows);
  std::vector<Row> added;
  for (const RowPointer home : writer.InsertAll(raw)) {
    added.push_back(ReadRow(pages, writer.Layout(), home));
  }
  return added;
}

PendingEntries FillRows(PageChanges& pages, TableWriter& writer,
                        const std::vector<FieldValues>& rows) {
  std::vector<RawRow> raw = EncodeRows(pages, writer.Layout(), rows);
  return writer.InsertWithoutEntries(raw);
}

/// A field that is set to what it holds stays as it is, so that a date keeps its time of day.
Row UpdateRow(PageChanges& pages, TableWriter& writer, const Row& before,
              const FieldValues& fields) {
  CheckUnchanged(pages, writer, before);
  FieldValues changed;
  for (const auto& field : fields) {
    if (!IsSame(before.Values[PlaceOfColumn(writer.Layout(), field.first)], field.second)) {
      changed.push_back(field);
    }
  }
  const RowPointer home = HomeOf(before.Key);
  RawRow row = writer.Read(home);
  const RawRow old = row;
  SetFields(pages, row, writer.Layout(), changed);
  if (row != old) {
    writer.Update(home, row);
    DropLongValues(pages, writer.Layout(), old, row);
  }
  return ReadRow(pages, writer.Layout(), home);
}

void DeleteRow(PageChanges& pages, TableWriter& writer, const Row& before) {
  CheckUnchanged(pages, writer, before);
  const RawRow old = writer.Read(HomeOf(before.Key));
  writer.Delete(HomeOf(before.Key));
  DropLongValues(pages, writer.Layout(), old, RawRow(old.size()));
}

}  // namespace veyra::access
