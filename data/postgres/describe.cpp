#include "data/postgres/describe.h"

#include "data/postgres/failure.h"
#include "data/postgres/quoted.h"

namespace veyra::postgres {

namespace {

constexpr const char* kIndexes =
    "SELECT i.relname, x.indisunique, coalesce(a.attname, '')"
    " FROM pg_catalog.pg_index x JOIN pg_catalog.pg_class i ON i.oid = x.indexrelid"
    " CROSS JOIN LATERAL unnest(x.indkey::int2[]) WITH ORDINALITY AS k(number, place)"
    " LEFT JOIN pg_catalog.pg_attribute a ON a.attrelid = x.indrelid AND a.attnum = k.number"
    " WHERE x.indrelid = $1::regclass ORDER BY i.oid, k.place";

std::vector<IndexDescription> Indexes(Session& session, const std::string& table) {
  const Result rows = session.Run(kIndexes, {table});
  std::vector<IndexDescription> indexes;
  for (int row = 0; row < rows.RowCount(); ++row) {
    if (rows.Text(row, 2) == kRowColumn) {
      continue;
    }
    if (indexes.empty() || indexes.back().Name != rows.Text(row, 0)) {
      indexes.push_back({.Name = rows.Text(row, 0), .IsUnique = rows.IsTrue(row, 1)});
    }
    indexes.back().Columns.push_back(rows.Text(row, 2));
  }
  return indexes;
}

TableDescription DescribeTable(Session& session, const Place& place, const Table& table) {
  const std::string name = FullName(place, table.Name);
  TableDescription described{.Name = table.Name, .IsView = table.IsView};
  for (const Column& column : table.Columns) {
    described.Columns.push_back({.Name = column.Name,
                                 .TypeName = column.TypeName,
                                 .Type = column.Type,
                                 .AutoNumber = column.IsAuto});
  }
  described.Indexes = Indexes(session, name);
  described.RowCount = session.Run("SELECT count(*) FROM " + name).Number(0, 0);
  return described;
}

const Column* AutoColumn(const Table& table) {
  for (const Column& column : table.Columns) {
    if (column.IsAuto) {
      return &column;
    }
  }
  return nullptr;
}

/// A number that is behind the rows would be given twice.
void VerifyNumbers(Session& session, const Place& place, const Table& table,
                   std::vector<Phrase>& wrong) {
  const Column* column = AutoColumn(table);
  if (column == nullptr) {
    return;
  }
  const Result rows =
      session.Run("SELECT max(" + Quoted(column->Name) + ") FROM " + FullName(place, table.Name));
  if (rows.Number(0, 0) > LastNumber(session, place, table)) {
    wrong.push_back(Phrase::Tr(
        "The table %1 has a row with a higher number than the server has given.", table.Name));
  }
}

}  // namespace

std::int64_t LastNumber(Session& session, const Place& place, const Table& table) {
  const Column* column = AutoColumn(table);
  if (column == nullptr) {
    return 0;
  }
  return session
      .Run(
          "SELECT pg_catalog.pg_sequence_last_value("
          "pg_catalog.pg_get_serial_sequence($1, $2)::regclass)",
          {FullName(place, table.Name), column->Name})
      .Number(0, 0);
}

StoreDescription Describe(Session& session, Catalogue& catalogue, const Place& place) {
  catalogue.Forget();
  const Result server = session.Run(
      "SELECT pg_catalog.current_setting('server_version'),"
      " pg_catalog.current_setting('server_encoding')");
  StoreDescription store{.Kind = FileKind::Postgres,
                         .KindName = "PostgreSQL",
                         .Version = server.Text(0, 0),
                         .CodePage = server.Text(0, 1) == "UTF8" ? "UTF-8" : server.Text(0, 1)};
  for (const std::string& name : catalogue.TableNames()) {
    store.Tables.push_back(DescribeTable(session, place, catalogue.Find(name)));
  }
  return store;
}

std::vector<Phrase> Verify(Session& session, Catalogue& catalogue, const Place& place) {
  catalogue.Forget();
  std::vector<Phrase> wrong;
  for (const std::string& name : catalogue.TableNames()) {
    const Table& table = catalogue.Find(name);
    try {
      // As text every field of every row has to be read.
      session.Run("SELECT sum(length(t::text)) FROM " + FullName(place, name) + " AS t");
      VerifyNumbers(session, place, table, wrong);
    } catch (const Failure& failure) {
      if (failure.IsOf(state::kConnection)) {
        throw;
      }
      wrong.push_back(Phrase::Tr("The table %1 cannot be read: %2.", name, failure.Message()));
    }
  }
  return wrong;
}

}  // namespace veyra::postgres
