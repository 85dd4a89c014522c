#pragma once

#include <string>
#include <vector>

#include "data/access/pages/page_changes.h"
#include "data/access/read/snapshot.h"
#include "data/access/write/journal_writer.h"
#include "data/access/write/table_writer.h"
#include "data/store.h"

namespace veyra::access {

/// Changes rows, in pages that are not written yet, and enters each change in the journal of the
/// file in the same pages. Throws as InsertRow, UpdateRow and DeleteRow do.
class JournalledRows {
 public:
  /// Both must outlive it.
  JournalledRows(PageSource& file, Snapshot& snapshot) : file_(file), snapshot_(snapshot) {}

  JournalWriter& Journal() { return journal_; }

  /// `writer` is one of the table's, upon the same pages.
  Row Insert(PageChanges& pages, TableWriter& writer, const std::string& table,
             const FieldValues& fields);
  std::vector<Row> InsertAll(PageChanges& pages, TableWriter& writer, const std::string& table,
                             const std::vector<FieldValues>& rows);
  Row Update(PageChanges& pages, TableWriter& writer, const std::string& table, const Row& before,
             const FieldValues& fields);
  void Delete(PageChanges& pages, TableWriter& writer, const std::string& table, const Row& before);

  /// Makes one of several changes, in whatever table it is.
  void Make(PageChanges& pages, const RowChange& change);

 private:
  void Enter(PageChanges& pages, const TableWriter& writer, const std::string& table,
             const Row* before, const Row* after);

  PageSource& file_;
  Snapshot& snapshot_;
  JournalWriter journal_;
};

}  // namespace veyra::access
