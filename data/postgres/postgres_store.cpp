#include "data/postgres/postgres_store.h"

#include <optional>
#include <set>
#include <utility>

#include "data/errors.h"
#include "data/names.h"
#include "data/postgres/booking_days.h"
#include "data/postgres/cell.h"
#include "data/postgres/change_listener.h"
#include "data/postgres/change_runner.h"
#include "data/postgres/copy.h"
#include "data/postgres/describe.h"
#include "data/postgres/greeting.h"
#include "data/postgres/result_rows.h"
#include "data/postgres/row_changes.h"
#include "data/postgres/schema_maker.h"
#include "data/same_rows.h"
#include "data/store_errors.h"
#include "data/text.h"

namespace veyra::postgres {

namespace {

std::vector<std::string> NamesOf(const Table& table) {
  std::vector<std::string> names;
  for (const Column& column : table.Columns) {
    names.push_back(column.Name);
  }
  return names;
}

class PostgresStore : public FileStore {
 public:
  /// With `schema_is_to_be_made` nothing is asked of the schema yet.
  PostgresStore(const CalendarLink& link, const std::string& file, StoreAccess access,
                const WaitPolicy& policy, bool schema_is_to_be_made)
      : is_read_only_(access == StoreAccess::ReadOnly),
        place_{.File = file, .Schema = link.Schema},
        session_(link, file, policy,
                 [this, access] {
                   Greet(session_, {.Access = access, .SchemaIsThere = !schema_is_to_be_made_});
                   if (listener_) {
                     listener_->Listen();
                   }
                 }),
        schema_is_to_be_made_(schema_is_to_be_made) {}

  const std::string& FileName() const override { return place_.File; }
  std::vector<std::string> TableNames() override;
  std::vector<std::string> ColumnNames(const std::string& table) override;
  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) override;
  StoreDescription Describe() override;
  std::unique_ptr<RowSource> Select(const Query& query) override;
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override;
  Row Insert(const std::string& table, const FieldValues& fields) override;
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override;
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override;
  void Delete(const std::string& table, const Row& before) override;
  void ChangeAll(const std::vector<RowChange>& changes,
                 const std::vector<QueryResult>& seen) override;
  void CreateTable(const TableDefinition& definition) override;
  void AddColumn(const std::string& table, const ColumnDefinition& column) override;
  void CopyTo(const std::string& new_file) override;
  std::vector<Phrase> Verify() override;
  std::int64_t LastNumber(const std::string& table) override;
  bool KeepsJournal() override;
  void KeepJournal(bool keep) override;
  void BeginAction(const std::string& name) override { runner_.action().Begin(name); }
  void EndAction() override { runner_.action().End(); }
  ChangeFeed* Feed() override;

  /// Looks whether the server can be reached and holds what is needed.
  void Open() {
    runner_.Read({}, [this] { catalogue_.TableNames(); });
  }

  void BeginMaking() {
    runner_.BeginOuter();
    runner_.Change({}, [this]() -> Look {
      schema_.MakeSchema();
      return {};
    });
  }
  void SaveMade() {
    runner_.SaveOuter([this] {
      catalogue_.Forget();
      return !catalogue_.TableNames().empty();
    });
    schema_.EndMaking();
    schema_is_to_be_made_ = false;
  }

 private:
  template <typename Work>
  auto Reading(const std::string& table, const Work& work) {
    std::optional<decltype(work())> result;
    runner_.Read(table, [&] { result = work(); });
    return std::move(*result);
  }

  void Change(const ChangeScope& scope, const ChangeWork& change);

  Statement StatementOf(const Query& query);
  std::unique_ptr<RowSource> SourceOf(const Query& query, Result result);
  std::unique_ptr<RowSource> SelectNow(const Query& query);
  void AddDayOf(const RowChange& change, std::set<FacilityDay>& days);

  bool is_read_only_;
  Place place_;
  Session session_;
  std::unique_ptr<ChangeListener> listener_;  ///< Nothing while nobody has asked for it.
  bool schema_is_to_be_made_;
  Catalogue catalogue_{session_};
  SeenRows seen_;
  ChangeRunner runner_{session_, catalogue_, seen_};
  SchemaMaker schema_{session_, catalogue_, place_};
  RowChanges rows_{session_, catalogue_, schema_, seen_, place_};
};

std::vector<std::string> PostgresStore::TableNames() {
  return Reading({}, [this] {
    catalogue_.Forget();
    return catalogue_.TableNames();
  });
}

std::vector<std::string> PostgresStore::ColumnNames(const std::string& table) {
  return Reading(table, [&] { return NamesOf(catalogue_.Find(table)); });
}

std::size_t PostgresStore::FittingCharacters(const std::string& table, const std::string& column,
                                             std::string_view text) {
  return Reading(table, [&] {
    const Column& found = FindColumn(FileName(), catalogue_.Find(table), column);
    return found.Type == ColumnType::Text ? StorableCharacters(text) : CharacterCount(text);
  });
}

StoreDescription PostgresStore::Describe() {
  return Reading({}, [this] { return postgres::Describe(session_, catalogue_, place_); });
}

std::unique_ptr<RowSource> PostgresStore::Select(const Query& query) {
  return Reading(query.Table, [&] { return SelectNow(query); });
}

std::vector<std::unique_ptr<RowSource>> PostgresStore::SelectAll(
    const std::vector<Query>& queries) {
  return Reading(queries.empty() ? std::string() : queries.front().Table, [&] {
    std::vector<Statement> statements;
    for (const Query& query : queries) {
      statements.push_back(StatementOf(query));
    }
    std::vector<Result> results = session_.RunAll(std::move(statements));
    std::vector<std::unique_ptr<RowSource>> sources;
    for (std::size_t i = 0; i < queries.size(); ++i) {
      sources.push_back(SourceOf(queries[i], std::move(results[i])));
    }
    return sources;
  });
}

Statement PostgresStore::StatementOf(const Query& query) {
  const Table& table = catalogue_.Find(query.Table);
  const auto day = HoldsBookings(query.Table) ? DayOf(query) : std::nullopt;
  BoundSql sql = day ? SelectDaySql(place_, table, query, *day) : SelectSql(place_, table, query);
  return {.Sql = std::move(sql.Text), .Values = std::move(sql.Values)};
}

std::unique_ptr<RowSource> PostgresStore::SourceOf(const Query& query, Result result) {
  RowReader rows(std::move(result));
  if (rows.ColumnNames() != NamesOf(catalogue_.Find(query.Table))) {
    catalogue_.Forget();
  }
  return std::make_unique<ResultRows>(std::move(rows), query.Table, seen_);
}

std::unique_ptr<RowSource> PostgresStore::SelectNow(const Query& query) {
  const Statement statement = StatementOf(query);
  return SourceOf(query, session_.Run(statement.Sql, statement.Values));
}

void PostgresStore::Change(const ChangeScope& scope, const ChangeWork& change) {
  if (is_read_only_) {
    throw OpenedForReadingOnly(FileName());
  }
  SayingNothingSaved([&] { runner_.Change(scope, change); });
}

Row PostgresStore::Insert(const std::string& table, const FieldValues& fields) {
  return InsertAll(table, {fields}).front();
}

std::vector<Row> PostgresStore::InsertAll(const std::string& table,
                                          const std::vector<FieldValues>& rows) {
  ChangeScope scope{.Table = table, .Days = {}, .Guarded = {}};
  for (const FieldValues& fields : rows) {
    if (HoldsBookings(table)) {
      AddDay(fields, scope.Days);
    }
  }
  std::vector<Row> added;
  Change(scope, [&]() -> Look {
    added = rows_.Add(table, rows);
    return [&] { return added.empty() || rows_.IsStored(table, added.back()); };
  });
  return added;
}

Row PostgresStore::Update(const std::string& table, const Row& before, const FieldValues& fields) {
  const RowChange change{
      .What = RowChange::Kind::Set, .Table = table, .Before = before, .Fields = fields};
  ChangeScope scope{.Table = table, .Days = {}, .Guarded = {}};
  AddDayOf(change, scope.Days);
  Row after;
  Change(scope, [&]() -> Look {
    after = rows_.SetFields(table, before, fields);
    return [&] { return rows_.IsStored(table, after); };
  });
  return after;
}

void PostgresStore::Delete(const std::string& table, const Row& before) {
  Change({.Table = table, .Days = {}, .Guarded = {}}, [&]() -> Look {
    rows_.Remove(table, before);
    return [&] { return !rows_.IsStored(table, before); };
  });
}

void PostgresStore::AddDayOf(const RowChange& change, std::set<FacilityDay>& days) {
  if (!HoldsBookings(change.Table) || change.What == RowChange::Kind::Remove) {
    return;
  }
  if (change.What == RowChange::Kind::Add) {
    AddDay(change.Fields, days);
    return;
  }
  const auto columns = FindBookingColumns(change.Table, ColumnNames(change.Table));
  if (columns && change.Before.Values.size() == ColumnNames(change.Table).size()) {
    AddDay(change.Before, *columns, change.Fields, days);
  }
}

void PostgresStore::ChangeAll(const std::vector<RowChange>& changes,
                              const std::vector<QueryResult>& seen) {
  ChangeScope scope;
  for (const QueryResult& result : seen) {
    scope.Guarded.push_back(result.Asked.Table);
  }
  for (const RowChange& change : changes) {
    AddDayOf(change, scope.Days);
    scope.Table = change.Table;
  }
  Change(scope, [&]() -> Look {
    for (const QueryResult& result : seen) {
      if (!GivesTheSame(*SelectNow(result.Asked), result.Rows)) {
        throw RowsChanged(FileName(), result.Asked.Table);
      }
    }
    Look is_made = [] { return true; };
    for (const RowChange& change : changes) {
      is_made = rows_.Make(change);
    }
    return is_made;
  });
}

void PostgresStore::CreateTable(const TableDefinition& definition) {
  Change({.Table = definition.Name, .Days = {}, .Guarded = {}}, [&]() -> Look {
    schema_.MakeTable(definition);
    for (const FieldValues& fields : definition.FirstRows) {
      rows_.Add(definition.Name, {fields});
    }
    return [&] { return FindName(TableNames(), definition.Name).has_value(); };
  });
}

void PostgresStore::AddColumn(const std::string& table, const ColumnDefinition& column) {
  Change({.Table = table, .Days = {}, .Guarded = {}}, [&]() -> Look {
    schema_.AddColumn(table, column);
    return [&] { return FindName(ColumnNames(table), column.Name).has_value(); };
  });
}

void PostgresStore::CopyTo(const std::string& new_file) {
  runner_.Read({}, [&] { CopyToFile(session_, catalogue_, place_, new_file); });
}

std::vector<Phrase> PostgresStore::Verify() {
  return Reading({}, [this] { return postgres::Verify(session_, catalogue_, place_); });
}

std::int64_t PostgresStore::LastNumber(const std::string& table) {
  return Reading(table,
                 [&] { return postgres::LastNumber(session_, place_, catalogue_.Find(table)); });
}

bool PostgresStore::KeepsJournal() {
  return Reading({}, [this] { return schema_.KeepsJournal(); });
}

void PostgresStore::KeepJournal(bool keep) {
  Change({}, [&]() -> Look {
    schema_.KeepJournal(keep);
    return [this, keep] { return schema_.KeepsJournal() == keep; };
  });
}

/// It is set in its place last: a connection that is made meanwhile does not listen by itself.
ChangeFeed* PostgresStore::Feed() {
  if (!listener_) {
    auto listener = std::make_unique<ChangeListener>(session_);
    runner_.Read({}, [&] { listener->Listen(); });
    listener_ = std::move(listener);
  }
  return listener_.get();
}

class MakingOnServer : public CalendarInMaking {
 public:
  MakingOnServer(const CalendarLink& link, const std::string& file, const WaitPolicy& policy)
      : store_(std::make_unique<PostgresStore>(link, file, StoreAccess::ReadWrite, policy, true)) {
    store_->BeginMaking();
  }

  FileStore& Rows() override { return *store_; }
  std::unique_ptr<FileStore> Save() override {
    store_->SaveMade();
    return std::move(store_);
  }

 private:
  std::unique_ptr<PostgresStore> store_;
};

}  // namespace

std::unique_ptr<Store> OpenPostgres(const CalendarLink& link, const std::string& file,
                                    StoreAccess access, const WaitPolicy& policy) {
  auto store = std::make_unique<PostgresStore>(link, file, access, policy, false);
  store->Open();
  return store;
}

std::unique_ptr<CalendarInMaking> CreateSharedCalendar(const CalendarLink& link,
                                                       const std::string& file,
                                                       const WaitPolicy& policy) {
  return std::make_unique<MakingOnServer>(link, file, policy);
}

}  // namespace veyra::postgres
