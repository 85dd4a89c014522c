#include "data/access/access_store.h"

#include <map>
#include <optional>
#include <utility>

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
#include "data/access/write/row_changes.h"
#include "data/access/write/row_writer.h"
#include "data/access/write/schema_writer.h"
#include "data/access/write/table_writer.h"
#include "data/file_store.h"
#include "data/file_watch.h"
#include "data/same_rows.h"
#include "data/store_errors.h"

namespace veyra {

namespace {

using access::FileLock;
using access::FileProblem;

[[noreturn]] void ReportAs(const access::StoreProblem& problem, const std::string& file,
                           const std::string& table) {
  switch (problem.What()) {
    case access::Wrong::NoTable:
      throw MissingTable(file, problem.Name());
    case access::Wrong::NoColumn:
      throw MissingColumn(file, table, problem.Name());
    case access::Wrong::TableExists:
      throw TableExists(file, problem.Name());
    case access::Wrong::ColumnExists:
      throw ColumnExists(file, table, problem.Name());
    case access::Wrong::RowChanged:
      throw RowChanged(file, table);
    case access::Wrong::RowRemoved:
      throw RowRemoved(file, table);
    case access::Wrong::ReadingOnly:
      break;
  }
  throw OpenedForReadingOnly(file);
}

/// Runs `work`; what goes wrong in it is reported with the names of the file and the table.
template <typename Work>
auto Reporting(const std::string& file, const std::string& table, const Work& work) {
  try {
    return work();
  } catch (const access::StoreProblem& problem) {
    ReportAs(problem, file, table);
  } catch (const access::FileBusy& problem) {
    if (problem.IsCancelled()) {
      throw WaitCancelledError({file, problem.what(), problem.advice()});
    }
    throw DatabaseBusyError({file, problem.what(), problem.advice()});
  } catch (const FileProblem& problem) {
    throw DatabaseError({file, problem.what(), problem.advice()});
  }
}

class AccessRows : public RowSource {
 public:
  AccessRows(const std::string& file_name, const std::string& table, access::TableRows rows)
      : file_name_(file_name), table_(table), rows_(std::move(rows)) {}

  bool Next(Row& row) override {
    return Reporting(file_name_, table_, [&] { return rows_.Next(row); });
  }

 private:
  std::string file_name_;
  std::string table_;
  access::TableRows rows_;
};

class AccessStore : public FileStore {
  template <typename Work>
  auto Reading(const std::string& table, const Work& work) {
    return Reporting(file_name_, table, [&] {
      watch_.CheckBeforeReading();
      file_.SetPath(watch_.NameInFolder());
      FinishBrokenChange();
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Reading, patience_);
      return work();
    });
  }

  /// `work` changes pages, which are then written, all or none.
  template <typename Work>
  auto Writing(const std::string& table, const Work& work) {
    return Reporting(file_name_, table, [&] {
      CheckMayWrite();
      watch_.CheckBeforeChange();
      file_.SetPath(watch_.NameInFolder());
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Writing, patience_);
      RecoverUnderLock();
      snapshot_.Tables();
      access::PageChanges changes(file_);
      auto result = work(changes);
      const access::PageImages pages = changes.Images();
      if (!pages.empty()) {
        snapshot_.ForgetTables();
        Commit(pages);
      }
      return result;
    });
  }

  /// The same in the rows of one table.
  template <typename Work>
  auto WritingRows(const std::string& table, const Work& work) {
    return Writing(table, [&](access::PageChanges& changes) {
      access::TableWriter writer(changes, snapshot_.DefinitionOf(table));
      access::CheckMayWrite(writer.Layout());
      return work(changes, writer);
    });
  }

 public:
  AccessStore(const std::string& file_name, StoreAccess access, const Patience& patience,
              access::CommitObserver observer, Durability durability)
      : file_name_(file_name),
        patience_(patience),
        durability_(durability),
        observer_(std::move(observer)),
        watch_(file_name),
        file_(file_name, access != StoreAccess::ReadOnly),
        snapshot_(file_) {
    if (durability == Durability::WhenAsked) {
      file_.ExpectNoOtherWriter();
    }
    TakeFile(access);
    FinishBrokenChange();
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
    return WritingRows(table, [&](access::PageChanges& changes, access::TableWriter& writer) {
      return access::InsertRow(changes, writer, fields);
    });
  }

  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    return WritingRows(table, [&](access::PageChanges& changes, access::TableWriter& writer) {
      return access::UpdateRow(changes, writer, before, fields);
    });
  }

  void Delete(const std::string& table, const Row& before) override {
    WritingRows(table, [&](access::PageChanges& changes, access::TableWriter& writer) {
      access::DeleteRow(changes, writer, before);
      return 0;
    });
  }

  void CreateTable(const TableDefinition& definition) override {
    Writing(definition.Name, [&](access::PageChanges& changes) {
      access::CreateTable(changes, definition);
      return 0;
    });
  }

  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    WritingRows(table, [&](access::PageChanges& changes, access::TableWriter& writer) {
      access::AddColumn(changes, writer.Layout().Page, column);
      return 0;
    });
  }

  void ChangeAll(const std::vector<RowChange>& changes,
                 const std::vector<QueryResult>& seen) override {
    Writing({}, [&](access::PageChanges& pages) {
      for (const QueryResult& result : seen) {
        CheckStillGiven(result);
      }
      for (const RowChange& change : changes) {
        Reporting(file_name_, change.Table, [&] { Make(pages, change); });
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

  std::vector<std::string> Verify() override {
    std::vector<std::string> problems;
    const auto noting = [&](const std::string& where, const auto& read) {
      try {
        read();
      } catch (const DatabaseBusyError&) {
        throw;
      } catch (const DatabaseError& error) {
        problems.push_back(where + error.report().Cause);
      }
    };
    std::vector<std::string> tables;
    noting({}, [&] { tables = TableNames(); });
    for (const std::string& table : tables) {
      noting("Table " + table + ": ", [&] { ReadThrough(table); });
    }
    return problems;
  }

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

  void Make(access::PageChanges& pages, const RowChange& change) {
    access::TableWriter writer(pages, snapshot_.DefinitionOf(change.Table));
    access::CheckMayWrite(writer.Layout());
    switch (change.What) {
      case RowChange::Kind::Add:
        access::InsertRow(pages, writer, change.Fields);
        return;
      case RowChange::Kind::Set:
        access::UpdateRow(pages, writer, change.Before, change.Fields);
        return;
      case RowChange::Kind::Remove:
        access::DeleteRow(pages, writer, change.Before);
        return;
    }
  }

  void ReadThrough(const std::string& table) {
    Query query;
    query.Table = table;
    const auto rows = Select(query);
    for (Row row; rows->Next(row);) {
    }
  }

  void TakeFile(StoreAccess access) {
    if (access == StoreAccess::ReadOnly) {
      return;
    }
    const bool alone = access == StoreAccess::Alone;
    if (alone) {
      access::CheckNobodyElse(file_.Path());
    }
    use_.emplace(file_.Descriptor(), alone ? FileLock::Kind::Alone : FileLock::Kind::Open,
                 patience_);
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
        throw access::StoreProblem(access::Wrong::NoColumn, column);
      }
      return known_columns_[{table, column}] = layout.Columns[place];
    });
  }

  /// Another copy of this program may have broken off in the middle of a change. A file that is
  /// only read shows the change as made, without its being written.
  void FinishBrokenChange() {
    if (!file_.IsWritable()) {
      ShowBrokenChange();
    } else if (access::HasJournal(file_.Path())) {
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Writing, patience_);
      RecoverUnderLock();
    }
  }

  void RecoverUnderLock() {
    if (access::HasJournal(file_.Path())) {
      access::Recover(file_);
      snapshot_.Forget();
    }
  }

  void ShowBrokenChange() {
    const bool has_journal = access::HasJournal(file_.Path());
    if (has_journal || shows_broken_change_) {
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Reading, patience_);
      file_.SetOverlay({});
      file_.SetOverlay(access::HasJournal(file_.Path()) ? access::PendingPages(file_)
                                                        : access::PageImages());
      snapshot_.Forget();
      shows_broken_change_ = has_journal;
    }
  }

  void Commit(const access::PageImages& pages) {
    if (durability_ == Durability::AtOnce) {
      access::CommitPages(file_, pages, observer_);
    } else {
      file_.Write(pages);
    }
  }

  void CheckMayWrite() const {
    if (!file_.IsWritable()) {
      throw access::StoreProblem(access::Wrong::ReadingOnly);
    }
    access::CheckMayWrite(file_.Header());
    access::CheckNobodyElse(file_.Path());
  }

  std::string file_name_;
  Patience patience_;
  Durability durability_;
  access::CommitObserver observer_;
  FileWatch watch_;
  access::PageFile file_;
  access::Snapshot snapshot_;
  std::map<std::pair<std::string, std::string>, access::ColumnLayout> known_columns_;
  std::optional<FileLock> use_;
  bool shows_broken_change_ = false;
};

}  // namespace

bool LooksLikeAccess(std::string_view first_bytes) {
  const access::Bytes bytes(first_bytes.begin(), first_bytes.end());
  return access::HasAccessSignature(bytes);
}

std::unique_ptr<Store> OpenAccessStore(const std::string& file_name, StoreAccess access,
                                       const Patience& patience, access::CommitObserver observer) {
  return Reporting(file_name, {}, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<AccessStore>(file_name, access, patience, std::move(observer),
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
