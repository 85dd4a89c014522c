#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "data/access/access_rows.h"
#include "data/access/broken_change.h"
#include "data/access/pages/commit_step.h"
#include "data/access/pages/file_lock.h"
#include "data/access/pages/page_changes.h"
#include "data/access/pages/page_file.h"
#include "data/access/read/snapshot.h"
#include "data/access/reporting.h"
#include "data/access/write/journalled_rows.h"
#include "data/access/write/table_writer.h"
#include "data/durability.h"
#include "data/file_watch.h"
#include "data/store_access.h"
#include "data/store_errors.h"
#include "data/waiting.h"

namespace veyra::access {

/// An Access file that a store holds open. What reads it and what changes it runs in here: under
/// the lock it needs, over the file that still bears the name, after a change that broke off is
/// finished, and with failures told of the file and the table.
class HeldFile {
 public:
  /// Opens the file, and finishes a change that broke off. Throws FileProblem.
  HeldFile(const std::string& file_name, StoreAccess access, const WaitPolicy& policy,
           CommitObserver observer, Durability durability);
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  const std::string& Name() const { return name_; }
  PageFile& Pages() { return pages_; }
  Snapshot& Tables() { return tables_; }
  JournalledRows& Rows() { return rows_; }

  /// What the operator is to be told, once, of a change that could not be finished.
  std::optional<Report> TakeNotice() { return broken_change_.TakeNotice(); }

  /// Runs `work`, which reads the table, or any when that is empty, and gives what it gives.
  template <typename Work>
  auto Reading(const std::string& table, const Work& work) {
    return Reporting(name_, table, [&] {
      watch_.CheckBeforeReading();
      pages_.SetPath(watch_.NameInFolder());
      broken_change_.Finish();
      const FileLock lock(pages_.File().Descriptor(), FileLock::Kind::Reading, policy_);
      return work();
    });
  }

  /// Runs `work`, which changes pages; they are then written, all or none. `what` then says in
  /// words what it does.
  template <typename Work>
  auto Writing(const std::string& table, const std::string& what, const Work& work) {
    return SayingNothingSaved(
        [&] { return Reporting(name_, table, [&] { return Write(what, work); }); });
  }

  /// The same in the rows of one table, with a writer of it.
  template <typename Work>
  auto WritingRows(const std::string& table, const std::string& what, const Work& work) {
    return Writing(table, what, [&](PageChanges& changes) {
      TableWriter writer(changes, tables_.DefinitionOf(table));
      access::CheckMayWrite(writer.Layout());
      return work(changes, writer);
    });
  }

  /// The rows of a query. REQUIRES: it runs within Reading or Writing.
  std::unique_ptr<AccessRows> RowsOf(const Query& query) {
    return std::make_unique<AccessRows>(name_, query.Table,
                                        TableRows(pages_, tables_.Table(query.Table), query));
  }

 private:
  template <typename Work>
  auto Write(const std::string& what, const Work& work) {
    CheckMayWrite();
    watch_.CheckBeforeChange();
    pages_.SetPath(watch_.NameInFolder());
    const FileLock lock(pages_.File().Descriptor(), FileLock::Kind::Writing, policy_);
    broken_change_.FinishUnderLock();
    tables_.Tables();
    const Snapshot::Held held(tables_);
    PageChanges changes(pages_);
    rows_.Journal().BeginCommit();
    auto result = work(changes);
    Commit(changes.Images(), what);
    return result;
  }

  void TakeFor(StoreAccess access);
  void CheckMayWrite() const;
  void CheckNobodyElse() const;
  void Commit(const PageImages& images, const std::string& what);

  std::string name_;
  WaitPolicy policy_;
  Durability durability_;
  CommitObserver observer_;
  FileWatch watch_;
  PageFile pages_;
  Snapshot tables_;
  BrokenChange broken_change_{name_, policy_, pages_, tables_};
  JournalledRows rows_{pages_, tables_};
  std::optional<FileLock> use_;
};

}  // namespace veyra::access
