#include "data/access/access_store.h"

#include <optional>
#include <utility>

#include "data/access/format/file_header.h"
#include "data/access/pages/file_lock.h"
#include "data/access/pages/journal.h"
#include "data/access/pages/other_program.h"
#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/describe.h"
#include "data/access/read/snapshot.h"
#include "data/access/read/table_rows.h"
#include "data/access/write/row_changes.h"
#include "data/access/write/schema_writer.h"
#include "data/access/write/table_writer.h"
#include "data/store_errors.h"

namespace veyra {

namespace {

using mdb::FileLock;
using mdb::FileProblem;

[[noreturn]] void ReportAs(const mdb::StoreProblem& problem, const std::string& file,
                           const std::string& table) {
  switch (problem.What()) {
    case mdb::Wrong::NoTable:
      throw MissingTable(file, problem.Name());
    case mdb::Wrong::NoColumn:
      throw MissingColumn(file, table, problem.Name());
    case mdb::Wrong::TableExists:
      throw TableExists(file, problem.Name());
    case mdb::Wrong::ColumnExists:
      throw ColumnExists(file, table, problem.Name());
    case mdb::Wrong::RowChanged:
      throw RowChanged(file, table);
    case mdb::Wrong::RowRemoved:
      throw RowRemoved(file, table);
    case mdb::Wrong::ReadingOnly:
      break;
  }
  throw OpenedForReadingOnly(file);
}

/// Runs `work`; what goes wrong in it is reported with the names of the file and the table.
template <typename Work>
auto Reporting(const std::string& file, const std::string& table, const Work& work) {
  try {
    return work();
  } catch (const mdb::StoreProblem& problem) {
    ReportAs(problem, file, table);
  } catch (const mdb::FileBusy& problem) {
    throw DatabaseBusyError({file, problem.what(), problem.advice()});
  } catch (const FileProblem& problem) {
    throw DatabaseError({file, problem.what(), problem.advice()});
  }
}

class AccessRows : public RowSource {
 public:
  AccessRows(const std::string& file_name, const std::string& table, mdb::TableRows rows)
      : file_name_(file_name), table_(table), rows_(std::move(rows)) {}

  bool Next(Row& row) override {
    return Reporting(file_name_, table_, [&] { return rows_.Next(row); });
  }

 private:
  std::string file_name_;
  std::string table_;
  mdb::TableRows rows_;
};

class AccessStore : public Store {
  template <typename Work>
  auto Reading(const std::string& table, const Work& work) {
    return Reporting(file_name_, table, [&] {
      FinishBrokenChange();
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Reading, timeout_);
      return work();
    });
  }

  /// `work` changes pages, which are then written, all or none.
  template <typename Work>
  auto Writing(const std::string& table, const Work& work) {
    return Reporting(file_name_, table, [&] {
      CheckMayWrite();
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Writing, timeout_);
      RecoverUnderLock();
      snapshot_.Tables();
      mdb::PageChanges changes(file_);
      auto result = work(changes);
      const mdb::PageImages pages = changes.Images();
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
    return Writing(table, [&](mdb::PageChanges& changes) {
      mdb::TableWriter writer(changes, snapshot_.DefinitionOf(table));
      mdb::CheckMayWrite(writer.Layout());
      return work(changes, writer);
    });
  }

 public:
  AccessStore(const std::string& file_name, StoreAccess access, std::chrono::milliseconds timeout,
              mdb::CommitObserver observer, Durability durability)
      : file_name_(file_name),
        timeout_(timeout),
        durability_(durability),
        observer_(std::move(observer)),
        file_(file_name, access != StoreAccess::ReadOnly),
        snapshot_(file_) {
    TakeFile(access);
    FinishBrokenChange();
  }

  const std::string& FileName() const override { return file_name_; }

  std::vector<std::string> TableNames() override {
    return Reading({}, [&] {
      std::vector<std::string> names;
      for (const mdb::CatalogueEntry& entry : snapshot_.Tables()) {
        names.push_back(entry.Name);
      }
      return names;
    });
  }

  std::vector<std::string> ColumnNames(const std::string& table) override {
    return Reading(table, [&] {
      std::vector<std::string> names;
      for (const mdb::ColumnLayout& column : snapshot_.Table(table)->Layout().Columns) {
        names.push_back(column.Name);
      }
      return names;
    });
  }

  StoreDescription Describe() override {
    return Reading({}, [&] {
      StoreDescription description = mdb::DescribeFile(file_.Header());
      const std::vector<mdb::CatalogueEntry> tables = snapshot_.Tables();
      for (const mdb::CatalogueEntry& entry : tables) {
        const auto image = snapshot_.Table(entry.Name);
        description.Tables.push_back(
            mdb::DescribeTable(entry.Name, image->Layout(), file_.Header().Version));
      }
      return description;
    });
  }

  std::unique_ptr<RowSource> Select(const Query& query) override {
    return Reading(query.Table, [&]() -> std::unique_ptr<RowSource> {
      mdb::TableRows rows(file_, snapshot_.Table(query.Table), query);
      return std::make_unique<AccessRows>(file_name_, query.Table, std::move(rows));
    });
  }

  Row Insert(const std::string& table, const FieldValues& fields) override {
    return WritingRows(table, [&](mdb::PageChanges& changes, mdb::TableWriter& writer) {
      return mdb::InsertRow(changes, writer, fields);
    });
  }

  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    return WritingRows(table, [&](mdb::PageChanges& changes, mdb::TableWriter& writer) {
      return mdb::UpdateRow(changes, writer, before, fields);
    });
  }

  void Delete(const std::string& table, const Row& before) override {
    WritingRows(table, [&](mdb::PageChanges& changes, mdb::TableWriter& writer) {
      mdb::DeleteRow(changes, writer, before);
      return 0;
    });
  }

  void CreateTable(const TableDefinition& definition) override {
    Writing(definition.Name, [&](mdb::PageChanges& changes) {
      mdb::CreateTable(changes, definition);
      return 0;
    });
  }

  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    WritingRows(table, [&](mdb::PageChanges& changes, mdb::TableWriter& writer) {
      mdb::AddColumn(changes, writer.Layout().Page, column);
      return 0;
    });
  }

 private:
  void TakeFile(StoreAccess access) {
    if (access == StoreAccess::ReadOnly) {
      return;
    }
    const bool alone = access == StoreAccess::Alone;
    if (alone) {
      mdb::CheckNobodyElse(file_.Path());
    }
    use_.emplace(file_.Descriptor(), alone ? FileLock::Kind::Alone : FileLock::Kind::Open,
                 timeout_);
  }

  /// Another copy of this program may have broken off in the middle of a change. A file that is
  /// only read shows the change as made, without its being written.
  void FinishBrokenChange() {
    if (!file_.IsWritable()) {
      ShowBrokenChange();
    } else if (mdb::HasJournal(file_.Path())) {
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Writing, timeout_);
      RecoverUnderLock();
    }
  }

  void RecoverUnderLock() {
    if (mdb::HasJournal(file_.Path())) {
      mdb::Recover(file_);
      snapshot_.Forget();
    }
  }

  void ShowBrokenChange() {
    const bool has_journal = mdb::HasJournal(file_.Path());
    if (has_journal || shows_broken_change_) {
      const FileLock lock(file_.Descriptor(), FileLock::Kind::Reading, timeout_);
      file_.SetOverlay({});
      file_.SetOverlay(mdb::HasJournal(file_.Path()) ? mdb::PendingPages(file_)
                                                     : mdb::PageImages());
      snapshot_.Forget();
      shows_broken_change_ = has_journal;
    }
  }

  void Commit(const mdb::PageImages& pages) {
    if (durability_ == Durability::AtOnce) {
      mdb::CommitPages(file_, pages, observer_);
    } else {
      file_.Write(pages);
    }
  }

  void CheckMayWrite() const {
    if (!file_.IsWritable()) {
      throw mdb::StoreProblem(mdb::Wrong::ReadingOnly);
    }
    mdb::CheckMayWrite(file_.Header());
    mdb::CheckNobodyElse(file_.Path());
  }

  std::string file_name_;
  std::chrono::milliseconds timeout_;
  Durability durability_;
  mdb::CommitObserver observer_;
  mdb::PageFile file_;
  mdb::Snapshot snapshot_;
  std::optional<FileLock> use_;
  bool shows_broken_change_ = false;
};

}  // namespace

bool LooksLikeAccess(std::string_view first_bytes) {
  const mdb::Bytes bytes(first_bytes.begin(), first_bytes.end());
  return mdb::HasAccessSignature(bytes);
}

std::unique_ptr<Store> OpenAccessStore(const std::string& file_name, StoreAccess access,
                                       std::chrono::milliseconds timeout,
                                       mdb::CommitObserver observer) {
  return Reporting(file_name, {}, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<AccessStore>(file_name, access, timeout, std::move(observer),
                                         Durability::AtOnce);
  });
}

std::unique_ptr<Store> OpenNewAccessStore(const std::string& file_name, Durability durability) {
  return Reporting(file_name, {}, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<AccessStore>(file_name, StoreAccess::ReadWrite, kStoreTimeout,
                                         mdb::CommitObserver(), durability);
  });
}

}  // namespace veyra
