#include "data/sqlite/sqlite_store.h"

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <utility>

#include "data/file_store.h"
#include "data/file_watch.h"
#include "data/names.h"
#include "data/open_note.h"
#include "data/same_rows.h"
#include "data/sqlite/copy.h"
#include "data/sqlite/delayed_flush.h"
#include "data/sqlite/describe.h"
#include "data/sqlite/file_keeper.h"
#include "data/sqlite/journal_keeper.h"
#include "data/sqlite/left_log.h"
#include "data/sqlite/reader.h"
#include "data/sqlite/row_writer.h"
#include "data/sqlite/sql_text.h"
#include "data/sqlite/verify.h"
#include "data/store_errors.h"
#include "data/text.h"

namespace veyra::sqlite {

namespace {

constexpr std::chrono::milliseconds kNoWait{0};

/// A table as it will stand in the catalogue once it is there for good.
Table NewTable(const TableDefinition& definition) {
  Table table{.Name = definition.Name, .Columns = {}, .Computed = {}, .Key = {}};
  for (const ColumnDefinition& column : definition.Columns) {
    table.Columns.push_back(column.Name);
    table.Computed.push_back(false);
  }
  return table;
}

/// Removes the note that a program which ended without closing has left, when the file has been
/// closed by the only one that had it open. A log that is still there goes on needing the note.
class NoteRemover {
 public:
  explicit NoteRemover(std::string file) : file_(std::move(file)) {}
  ~NoteRemover() {
    if (!HasLeftLog(file_)) {
      RemoveOpenNote(file_);
    }
  }
  NoteRemover(const NoteRemover&) = delete;
  NoteRemover& operator=(const NoteRemover&) = delete;

 private:
  std::string file_;
};

/// A SQLite file that this program reads and writes.
class SqliteStore : public FileStore {
 public:
  /// Without a `keeper` nobody else knows of the file.
  SqliteStore(std::unique_ptr<Database> database, std::unique_ptr<FileKeeper> keeper,
              std::optional<Report> notice)
      : keeper_(std::move(keeper)),
        reader_(std::move(database)),
        watch_(reader_.file()),
        notice_(std::move(notice)) {}

  /// The file is taken by this program alone, and kept with no note.
  SqliteStore(std::unique_ptr<Database> database, std::unique_ptr<NoteRemover> remover,
              std::optional<Report> notice)
      : remover_(std::move(remover)),
        reader_(std::move(database)),
        watch_(reader_.file()),
        notice_(std::move(notice)) {}

  ~SqliteStore() override {
    if (keeper_) {
      keeper_->BeforeClosing(reader_.database());
    }
  }

  const std::string& FileName() const override { return reader_.file(); }
  std::optional<Report> TakeNotice() override { return std::exchange(notice_, std::nullopt); }
  std::vector<std::string> TableNames() override { return Watched().catalogue().TableNames(); }
  std::vector<std::string> ColumnNames(const std::string& table) override {
    return Watched().catalogue().Find(table).Columns;
  }
  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) override {
    RequireColumn(FileName(), Watched().catalogue().Find(table), column);
    // SQLite takes texts of any length, whatever length is declared.
    return CharacterCount(text);
  }
  StoreDescription Describe() override { return sqlite::Describe(Watched()); }
  std::unique_ptr<RowSource> Select(const Query& query) override { return Watched().Select(query); }

  Row Insert(const std::string& table, const FieldValues& fields) override;
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override;
  void Fill(const std::string& table, const std::vector<FieldValues>& rows) override;
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override;
  void Delete(const std::string& table, const Row& before) override;
  void CreateTable(const TableDefinition& definition) override;
  void AddColumn(const std::string& table, const ColumnDefinition& column) override;
  void ChangeAll(const std::vector<RowChange>& changes,
                 const std::vector<QueryResult>& seen) override;
  void CopyTo(const std::string& new_file) override {
    CopyDatabase(Watched().database(), new_file);
  }
  std::vector<Phrase> Verify() override { return sqlite::Verify(Watched()); }
  std::int64_t LastNumber(const std::string& table) override {
    return sqlite::LastNumber(Watched(), table);
  }
  bool KeepsJournal() override { return Watched().catalogue().KeepsJournal(); }
  void KeepJournal(bool keep) override;
  void BeginAction(const std::string& name) override { journal_.action().Begin(name); }
  void EndAction() override { journal_.action().End(); }
  void DelayFlushes() override {
    // Without a log SQLite itself must flush each change, in an order of its own.
    if (keeper_ && keeper_->HasLog()) {
      flushes_.Delay();
    }
  }
  void Flush() override { flushes_.Flush(); }

 private:
  /// The reader, once it is sure that it reads the file that is meant.
  Reader& Watched() {
    watch_.CheckBeforeReading();
    if (keeper_) {
      keeper_->CheckBeforeReading(reader_.database());
    }
    return reader_;
  }

  /// The database to be changed, once it is sure that the change will be found again.
  Database& ForChange() {
    watch_.CheckBeforeChange();
    if (keeper_) {
      keeper_->CheckBeforeChange(reader_.database());
    }
    return reader_.database();
  }

  using Look = std::function<bool()>;

  /// A change, and what the journal had before it.
  struct Change {
    explicit Change(SqliteStore& store)
        : Work(store.ForChange()), LastEntry(store.journal_.BeginChange()) {}

    /// A change of which nothing is entered.
    Change(SqliteStore& store, std::nullopt_t) : Work(store.ForChange()) {}

    Transaction Work;
    std::optional<std::int64_t> LastEntry;
  };

  void Commit(Change& change, const Look& is_made);
  bool IsMadeAfterAll(const DatabaseError& failure, const Look& is_made);

  Look Make(const RowChange& change);

  std::unique_ptr<FileKeeper> keeper_;    ///< Goes when the file is closed.
  std::unique_ptr<NoteRemover> remover_;  ///< Likewise.
  Reader reader_;
  RowWriter rows_{reader_};
  JournalKeeper journal_{reader_};
  DelayedFlush flushes_{reader_.database()};
  FileWatch watch_;
  std::optional<Report> notice_;
};

/// Makes the change; `is_made` looks whether it is.
void SqliteStore::Commit(Change& change, const Look& is_made) {
  const auto number = journal_.NameEntries(change.LastEntry);
  try {
    change.Work.Commit();
  } catch (const DatabaseBusyError&) {
    throw;
  } catch (const DatabaseError& failure) {
    if (!IsMadeAfterAll(failure, is_made)) {
      throw;
    }
  }
  if (number) {
    journal_.action().SetNumber(*number);
  }
  flushes_.AfterChange();
  if (keeper_) {
    keeper_->AfterChange(reader_.database());
  }
}

/// A change whose last step failed may stand in the log all the same. When it can be taken from
/// there, or seen, its outcome is known.
bool SqliteStore::IsMadeAfterAll(const DatabaseError& failure, const Look& is_made) {
  const bool has_log = keeper_ && keeper_->HasLog();
  try {
    if (!has_log || reader_.database().DropLogOfFailedChange()) {
      return is_made();
    }
  } catch (const DatabaseError&) {
    // Not even reading works now.
  }
  throw OutcomeUnknown(FileName(), failure.report().Cause);
}

Row SqliteStore::Insert(const std::string& table_name, const FieldValues& fields) {
  Change change(*this);
  const Table& table = rows_.Find(table_name);
  rows_.Insert(table, fields);
  Row row = rows_.ReadNew(table);
  Commit(change, [&] { return rows_.IsStored(table_name, row); });
  return row;
}

std::vector<Row> SqliteStore::InsertAll(const std::string& table_name,
                                        const std::vector<FieldValues>& rows) {
  Change change(*this);
  const Table& table = rows_.Find(table_name);
  std::vector<Row> added;
  for (const FieldValues& fields : rows) {
    rows_.Insert(table, fields);
    added.push_back(rows_.ReadNew(table));
  }
  Commit(change, [&] { return added.empty() || rows_.IsStored(table_name, added.back()); });
  return added;
}

void SqliteStore::Fill(const std::string& table_name, const std::vector<FieldValues>& rows) {
  if (rows.empty()) {
    return;
  }
  Change change(*this);
  const Table& table = rows_.Find(table_name);
  rows_.InsertAll(table, rows);
  const Row last = rows_.ReadNew(table);
  Commit(change, [&] { return rows_.IsStored(table_name, last); });
}

Row SqliteStore::Update(const std::string& table_name, const Row& before,
                        const FieldValues& fields) {
  Change change(*this);
  Row after = rows_.Change(rows_.Find(table_name), before, fields);
  if (fields.empty()) {
    return after;
  }
  Commit(change, [&] { return rows_.IsStored(table_name, after); });
  return after;
}

void SqliteStore::Delete(const std::string& table_name, const Row& before) {
  Change change(*this);
  rows_.Remove(rows_.Find(table_name), before);
  Commit(change, [&] { return !rows_.IsStored(table_name, before); });
}

/// Returns what looks whether the change is made.
SqliteStore::Look SqliteStore::Make(const RowChange& change) {
  const Table& table = rows_.Find(change.Table);
  if (change.What == RowChange::Kind::Remove) {
    rows_.Remove(table, change.Before);
    return [this, &change] { return !rows_.IsStored(change.Table, change.Before); };
  }
  Row after;
  if (change.What == RowChange::Kind::Set) {
    after = rows_.Change(table, change.Before, change.Fields);
  } else {
    rows_.Insert(table, change.Fields);
    after = rows_.ReadNew(table);
  }
  return [this, &change, after] { return rows_.IsStored(change.Table, after); };
}

void SqliteStore::ChangeAll(const std::vector<RowChange>& changes,
                            const std::vector<QueryResult>& seen) {
  Change change(*this);
  for (const QueryResult& result : seen) {
    if (!GivesTheSame(*reader_.Select(result.Asked), result.Rows)) {
      throw RowsChanged(FileName(), result.Asked.Table);
    }
  }
  Look is_made = [] { return true; };
  for (const RowChange& each : changes) {
    is_made = Make(each);
  }
  Commit(change, is_made);
}

void SqliteStore::CreateTable(const TableDefinition& definition) {
  Change change(*this);
  if (FindName(TableNames(), definition.Name)) {
    throw TableExists(FileName(), definition.Name);
  }
  reader_.database().Execute(CreateTableSql(definition));
  for (const IndexDefinition& index : definition.Indexes) {
    reader_.database().Execute(CreateIndexSql(definition.Name, index));
  }
  for (const FieldValues& fields : definition.FirstRows) {
    rows_.Insert(NewTable(definition), fields);
  }
  journal_.TableWasMade(NewTable(definition));
  Commit(change, [&] { return FindName(TableNames(), definition.Name).has_value(); });
}

void SqliteStore::AddColumn(const std::string& table_name, const ColumnDefinition& column) {
  Change change(*this);
  Table table = reader_.catalogue().Find(table_name);
  if (FindName(table.Columns, column.Name)) {
    throw ColumnExists(FileName(), table.Name, column.Name);
  }
  reader_.database().Execute(AddColumnSql(table, column));
  if (column.Copied) {
    rows_.Run(CopyFieldSql(table, column.Name, *column.Copied), {column.Copied->Row});
  }
  table.Columns.push_back(column.Name);
  table.Computed.push_back(false);
  journal_.TableWasMade(table);
  Commit(change, [&] { return FindName(ColumnNames(table_name), column.Name).has_value(); });
}

void SqliteStore::KeepJournal(bool keep) {
  Change change(*this, std::nullopt);
  if (keep) {
    journal_.Begin();
  } else {
    journal_.End();
  }
  Commit(change, [&] { return KeepsJournal() == keep; });
}

/// Makes what was saved survive a loss of power. A file system that cannot serve a write-ahead log,
/// or another program that is reading just now, leaves the file with its rollback journal: as safe,
/// only slower. So a refusal is not a failure, and is not waited for.
void MakeDurable(Database& database, const WaitPolicy& policy) {
  database.SetWaitPolicy(kNoWait);
  sqlite3_exec(database.handle(), "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
  database.SetWaitPolicy(policy);
  database.Execute("PRAGMA synchronous = FULL");
}

std::unique_ptr<Database> OpenDurable(const std::string& file, const WaitPolicy& policy) {
  auto database = std::make_unique<Database>(file, file, OpenMode::ReadWrite, policy);
  database->CheckWhole();
  MakeDurable(*database, policy);
  return database;
}

/// The name under which a log is kept, which is not that of a link to the file.
std::string NameWithoutLinks(const std::string& file) {
  return std::filesystem::canonical(file).string();
}

std::unique_ptr<Store> KeptStore(std::unique_ptr<Database> database, const std::string& file,
                                 std::optional<Report> notice) {
  auto keeper = std::make_unique<FileKeeper>(*database, file);
  return std::make_unique<SqliteStore>(std::move(database), std::move(keeper), std::move(notice));
}

}  // namespace

std::unique_ptr<Store> OpenReadWrite(const std::string& file, const WaitPolicy& policy) {
  const std::string real_name = NameWithoutLinks(file);
  const OpenNoteLock lock(real_name);
  auto notice = SettleLeftLog(real_name);
  return KeptStore(OpenDurable(file, policy), real_name, std::move(notice));
}

std::unique_ptr<Store> OpenExclusive(const std::string& file, const WaitPolicy& policy) {
  const std::string real_name = NameWithoutLinks(file);
  const OpenNoteLock lock(real_name);
  auto notice = SettleLeftLog(real_name);
  auto database = std::make_unique<Database>(file, file, OpenMode::ReadWrite, policy);
  database->Execute("PRAGMA locking_mode = EXCLUSIVE");
  // In that mode the lock that a change takes is kept when the change is done.
  database->Execute("BEGIN EXCLUSIVE");
  database->Execute("COMMIT");
  // Who has the file alone keeps the index of its log in memory: one on the disk is nobody's.
  unlink((real_name + "-shm").c_str());
  database->CheckWhole();
  return std::make_unique<SqliteStore>(std::move(database),
                                       std::make_unique<NoteRemover>(real_name), std::move(notice));
}

std::unique_ptr<Store> OpenNew(const std::string& file, const WaitPolicy& policy, bool durable) {
  // The first thing written turns an empty file into a database.
  Database(file, file, OpenMode::ReadWrite, policy).Execute("PRAGMA user_version = 1");
  auto database = OpenDurable(file, policy);
  if (!durable) {
    database->Execute("PRAGMA synchronous = OFF");
    return std::make_unique<SqliteStore>(std::move(database), std::unique_ptr<FileKeeper>(),
                                         std::nullopt);
  }
  const std::string real_name = NameWithoutLinks(file);
  const OpenNoteLock lock(real_name);
  return KeptStore(std::move(database), real_name, std::nullopt);
}

std::string FirstBytes(const std::string& file, std::size_t count) {
  return Database(file, file, OpenMode::ReadOnly, kNoWait).FirstBytes(count);
}

}  // namespace veyra::sqlite
