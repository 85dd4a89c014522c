#include "data/access/access_store.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "data/access/access_rows.h"
#include "data/access/broken_change.h"
#include "data/access/check/check_file.h"
#include "data/access/format/file_header.h"
#include "data/access/pages/copy_file.h"
#include "data/access/pages/file_lock.h"
#include "data/access/pages/journal.h"
#include "data/access/pages/other_program.h"
#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/describe.h"
#include "data/access/read/snapshot.h"
#include "data/access/read/table_rows.h"
#include "data/access/reporting.h"
#include "data/access/write/change_words.h"
#include "data/access/write/journal_writer.h"
#include "data/access/write/journalled_rows.h"
#include "data/access/write/row_changes.h"
#include "data/access/write/row_writer.h"
#include "data/access/write/schema_writer.h"
#include "data/access/write/table_writer.h"
#include "data/file_store.h"
#include "data/file_watch.h"
#include "data/names.h"
#include "data/same_rows.h"
#include "data/store_errors.h"

namespace veyra {

namespace {

/// So many that a booking on every day of a year is made in three changes, and so few that the
/// operator sees them come.
constexpr std::size_t kRowsAtOnce = 128;

using access::AccessRows;
using access::FileLock;
using access::Reporting;

class AccessStore : public FileStore {
  template <typename Work>
  auto Reading(const std::string& table, const Work& work) {
    return Reporting(file_name_, table, [&] {
      watch_.CheckBeforeReading();
      file_.SetPath(watch_.NameInFolder());
      broken_change_.Finish();
      const FileLock lock(file_.File().Descriptor(), FileLock::Kind::Reading, policy_);
      return work();
    });
  }

  /// `work` changes pages, which are then written, all or none. `what` then says in words what it
  /// does.
  template <typename Work>
  auto Writing(const std::string& table, const std::string& what, const Work& work) {
    return SayingNothingSaved(
        [&] { return Reporting(file_name_, table, [&] { return Write(what, work); }); });
  }

  template <typename Work>
  auto Write(const std::string& what, const Work& work) {
    CheckMayWrite();
    watch_.CheckBeforeChange();
    file_.SetPath(watch_.NameInFolder());
    const FileLock lock(file_.File().Descriptor(), FileLock::Kind::Writing, policy_);
    broken_change_.FinishUnderLock();
    snapshot_.Tables();
    const access::Snapshot::Held held(snapshot_);
    access::PageChanges changes(file_);
    rows_.Journal().BeginCommit();
    auto result = work(changes);
    const access::PageImages pages = changes.Images();
    if (!pages.empty()) {
      access::Snapshot::Images images = snapshot_.TakeImages();
      Commit(pages, what);
      snapshot_.MendImages(std::move(images), pages);
      rows_.Journal().EndCommit();
    }
    return result;
  }

  /// The same in the rows of one table.
  template <typename Work>
  auto WritingRows(const std::string& table, const std::string& what, const Work& work) {
    return Writing(table, what, [&](access::PageChanges& changes) {
      access::TableWriter writer(changes, snapshot_.DefinitionOf(table));
      access::CheckMayWrite(writer.Layout());
      return work(changes, writer);
    });
  }

 public:
  AccessStore(const std::string& file_name, StoreAccess access, const WaitPolicy& policy,
              access::CommitObserver observer, Durability durability)
      : file_name_(file_name),
        policy_(policy),
        durability_(durability),
        observer_(std::move(observer)),
        watch_(file_name),
        file_(file_name, access != StoreAccess::ReadOnly),
        snapshot_(file_) {
    if (durability == Durability::WhenAsked) {
      file_.ExpectNoOtherWriter();
    }
    TakeFile(access);
    broken_change_.Finish();
  }

  const std::string& FileName() const override { return file_name_; }

  std::vector<std::string> TableNames() override {
    return Reading({}, [&] {
      std::vector<std::string> names;
      for (const access::CatalogueEntry& entry : snapshot_.Tables()) {
        names.push_back(entry.Name);
      }
      return names;
    });
  }

  std::vector<std::string> ColumnNames(const std::string& table) override {
    return Reading(table, [&] {
      std::vector<std::string> names;
      for (const access::ColumnLayout& column : snapshot_.Table(table)->Layout().Columns) {
        names.push_back(column.Name);
      }
      return names;
    });
  }

  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) override {
    return access::FittingCharacters(KnownColumn(table, column), text);
  }

  StoreDescription Describe() override {
    return Reading({}, [&] {
      StoreDescription description = access::DescribeFile(file_.Header());
      const std::vector<access::CatalogueEntry> tables = snapshot_.Tables();
      description.OtherObjects = access::CountOtherObjects(file_);
      for (const access::CatalogueEntry& entry : tables) {
        const auto image = snapshot_.Table(entry.Name);
        description.Tables.push_back(
            access::DescribeTable(entry.Name, image->Layout(), file_.Header().Version));
      }
      return description;
    });
  }

  std::unique_ptr<RowSource> Select(const Query& query) override {
    return Reading(query.Table, [&]() -> std::unique_ptr<RowSource> {
      access::TableRows rows(file_, snapshot_.Table(query.Table), query);
      return std::make_unique<AccessRows>(file_name_, query.Table, std::move(rows));
    });
  }

  Row Insert(const std::string& table, const FieldValues& fields) override {
    const std::string what = access::WordsForInsert(table, fields);
    return WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      return rows_.Insert(changes, writer, table, fields);
    });
  }

  std::size_t RowsAtOnce() const override { return kRowsAtOnce; }

  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override {
    const std::string what = access::WordsForInsertAll(table, rows);
    return WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      return rows_.InsertAll(changes, writer, table, rows);
    });
  }

  void Fill(const std::string& table, const std::vector<FieldValues>& rows) override {
    if (KeepsJournal()) {
      InsertAll(table, rows);
      return;
    }
    const std::string what = access::WordsForInsertAll(table, rows);
    const access::PendingEntries added =
        WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
          return access::FillRows(changes, writer, rows);
        });
    access::PendingEntries& pending = pending_[table];
    pending.resize(std::max(pending.size(), added.size()));
    for (std::size_t i = 0; i < added.size(); ++i) {
      pending[i].insert(pending[i].end(), added[i].begin(), added[i].end());
    }
  }

  void EndFilling(const std::string& table) override {
    auto filled = pending_.extract(table);
    if (!filled.empty()) {
      WritingRows(table, "the indexes of the table " + table,
                  [&](access::PageChanges&, access::TableWriter& writer) {
                    writer.AddEntries(std::move(filled.mapped()));
                    return 0;
                  });
    }
  }

  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    std::string what;
    return WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      what = access::WordsForUpdate(table, writer.Layout(), before);
      return rows_.Update(changes, writer, table, before, fields);
    });
  }

  void Delete(const std::string& table, const Row& before) override {
    std::string what;
    WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      what = access::WordsForDelete(table, writer.Layout(), before);
      rows_.Delete(changes, writer, table, before);
      return 0;
    });
  }

  void DeleteAll(const std::string& table, const std::vector<Row>& rows) override {
    std::string what;
    WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      what = access::WordsForDeleteAll(table, writer.Layout(), rows);
      for (const Row& row : rows) {
        rows_.Delete(changes, writer, table, row);
      }
      return 0;
    });
  }

  std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                             const FieldValues& fields) override {
    std::string what;
    return WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      what = access::WordsForUpdateAll(table, writer.Layout(), rows);
      std::vector<Row> changed;
      changed.reserve(rows.size());
      for (const Row& row : rows) {
        changed.push_back(rows_.Update(changes, writer, table, row, fields));
      }
      return changed;
    });
  }

  void CreateTable(const TableDefinition& definition) override {
    Writing(definition.Name, "the new table " + definition.Name, [&](access::PageChanges& changes) {
      access::CreateTable(changes, definition);
      return 0;
    });
  }

  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    const std::string what = "the new column " + column.Name + " of the table " + table;
    WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      access::AddColumn(changes, writer.Layout().Page, column);
      return 0;
    });
  }

  void ChangeAll(const std::vector<RowChange>& changes,
                 const std::vector<QueryResult>& seen) override {
    Writing({}, access::WordsForChangeAll(changes), [&](access::PageChanges& pages) {
      for (const QueryResult& result : seen) {
        CheckStillGiven(result);
      }
      for (const RowChange& change : changes) {
        Reporting(file_name_, change.Table, [&] { rows_.Make(pages, change); });
      }
      return 0;
    });
  }

  void CopyTo(const std::string& new_file) override {
    Reading({}, [&] {
      access::CopyFile(file_, new_file);
      return 0;
    });
  }

  bool KeepsJournal() override {
    return Reading({}, [&] { return access::JournalWriter::IsKept(file_, snapshot_); });
  }

  void KeepJournal(bool keep) override {
    const std::vector<std::string> tables = TableNames();
    if (keep && !FindName(tables, kJournalTable)) {
      CreateTable(JournalTable());
    }
    if (!FindName(tables, access::kJournalSwitch)) {
      if (keep) {
        CreateTable(access::JournalSwitchTable());
      }
      return;
    }
    Query query;
    query.Table = access::kJournalSwitch;
    Row row;
    if (Select(query)->Next(row)) {
      Update(query.Table, row, {{"Kept", std::int64_t{keep ? 1 : 0}}});
    }
  }

  std::shared_ptr<const void> MarkOf(const std::string& table) override {
    return Reading(table, [&] { return snapshot_.MarkOf(table); });
  }

  void BeginAction(const std::string& name) override { rows_.Journal().action().Begin(name); }
  void EndAction() override { rows_.Journal().action().End(); }

  std::vector<std::string> Verify() override {
    return Reading({}, [&] { return access::CheckFile(file_); });
  }

  std::int64_t LastNumber(const std::string& table) override {
    return Reading(table, [&] {
      const access::TableLayout& layout = snapshot_.Table(table)->Layout();
      const bool gives = std::any_of(layout.Columns.begin(), layout.Columns.end(),
                                     [](const auto& column) { return column.IsAutoNumber(); });
      const auto last = static_cast<std::int32_t>(layout.LastAutoNumber);
      return gives && last > 0 ? std::int64_t{last} : 0;
    });
  }

  std::optional<Report> TakeNotice() override { return broken_change_.TakeNotice(); }

 private:
  void CheckStillGiven(const QueryResult& result) {
    Reporting(file_name_, result.Asked.Table, [&] {
      AccessRows rows(file_name_, result.Asked.Table,
                      access::TableRows(file_, snapshot_.Table(result.Asked.Table), result.Asked));
      if (!GivesTheSame(rows, result.Rows)) {
        throw RowsChanged(file_name_, result.Asked.Table);
      }
    });
  }

  void TakeFile(StoreAccess access) {
    if (access == StoreAccess::ReadOnly) {
      return;
    }
    const bool exclusive = access == StoreAccess::Exclusive;
    if (exclusive) {
      CheckNobodyElse();
    }
    use_.emplace(file_.File().Descriptor(),
                 exclusive ? FileLock::Kind::Exclusive : FileLock::Kind::Open, policy_);
  }

  /// A column as it was when first asked for: its kind and its length never change.
  access::ColumnLayout KnownColumn(const std::string& table, const std::string& column) {
    const auto known = known_columns_.find({table, column});
    if (known != known_columns_.end()) {
      return known->second;
    }
    return Reading(table, [&] {
      const access::TableLayout& layout = snapshot_.Table(table)->Layout();
      const std::size_t place = layout.FindColumn(column);
      if (place == layout.Columns.size()) {
        throw access::StoreProblem(access::Refusal::NoColumn, column);
      }
      return known_columns_[{table, column}] = layout.Columns[place];
    });
  }

  void Commit(const access::PageImages& pages, const std::string& what) {
    if (durability_ == Durability::AtOnce) {
      access::CommitPages(file_, pages, what, observer_);
    } else {
      file_.Write(pages);
    }
  }

  void CheckMayWrite() const {
    if (!file_.IsWritable()) {
      throw access::StoreProblem(access::Refusal::ReadingOnly);
    }
    access::CheckMayWrite(file_.Header());
    CheckNobodyElse();
  }

  /// Other programs may know the file by the name of a link to it.
  void CheckNobodyElse() const {
    access::CheckNobodyElse(file_.Path());
    access::CheckNobodyElse(file_name_);
  }

  std::string file_name_;
  WaitPolicy policy_;
  Durability durability_;
  access::CommitObserver observer_;
  FileWatch watch_;
  access::PageFile file_;
  access::Snapshot snapshot_;
  access::BrokenChange broken_change_{file_name_, policy_, file_, snapshot_};
  access::JournalledRows rows_{file_, snapshot_};
  std::map<std::pair<std::string, std::string>, access::ColumnLayout> known_columns_;
  std::map<std::string, access::PendingEntries> pending_;
  std::optional<FileLock> use_;
};

}  // namespace

bool IsAccessStore(const Store& store) {
  return dynamic_cast<const AccessStore*>(&store) != nullptr;
}

bool LooksLikeAccess(std::string_view first_bytes) {
  const access::Bytes bytes(first_bytes.begin(), first_bytes.end());
  return access::HasAccessSignature(bytes);
}

std::unique_ptr<Store> OpenAccessStore(const std::string& file_name, StoreAccess access,
                                       const WaitPolicy& policy, access::CommitObserver observer) {
  return Reporting(file_name, {}, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<AccessStore>(file_name, access, policy, std::move(observer),
                                         Durability::AtOnce);
  });
}

std::unique_ptr<Store> OpenNewAccessStore(const std::string& file_name, Durability durability) {
  return Reporting(file_name, {}, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<AccessStore>(file_name, StoreAccess::ReadWrite, kStoreTimeout,
                                         access::CommitObserver(), durability);
  });
}

}  // namespace veyra
