#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/change_feed.h"
#include "data/column_type.h"
#include "data/errors.h"
#include "data/query.h"
#include "data/store_description.h"
#include "data/value.h"

namespace veyra {

/// Values by column name.
using FieldValues = std::vector<std::pair<std::string, Value>>;

/// What a column that is added to a table holds in one row from its first moment, in place of its
/// default: what another column holds there. Nothing when there is no such row.
struct CopiedField {
  std::string From;      ///< The other column.
  std::string RowKey;    ///< The WholeNumber column that tells the row from the others,
  std::int64_t Row = 0;  ///< and what it holds there.
};

/// A column that is to be made.
struct ColumnDefinition {
  std::string Name;
  ColumnType Type = ColumnType::Text;
  int Size = 0;                ///< Text: the most characters it is meant for; 0 for no limit.
  bool AutoIncrement = false;  ///< WholeNumber: the key, given by the store to each new row.
  Value Default = Null{};      ///< What rows that stood before the column came read as.
  std::optional<CopiedField> Copied = {};  ///< Only for a column that is added to a table.
  bool AllowsEmpty = true;                 ///< Text: other programs, too, may store an empty one.
};

/// An index that is to be made with its table. Its name is unique in the file.
struct IndexDefinition {
  std::string Name;
  std::vector<std::string> Columns;
  std::vector<std::string> Held = {};  ///< Further columns, whose values a SQLite file's index has
                                       ///< beside these: who asks for no others need not look for
                                       ///< the rows, which may lie all over the file.
};

struct TableDefinition {
  std::string Name;
  std::vector<ColumnDefinition> Columns;
  std::vector<IndexDefinition> Indexes =
      {};  ///< A kind of file that cannot use them leaves them out.
  std::vector<FieldValues> FirstRows = {};  ///< Rows that stand in it from its first moment.
};

/// Tells a row from every other of its table, for as long as the store is open and the row stands.
using RowKey = std::int64_t;

/// A row as it was when it was read, its values in the order of the table's columns.
struct Row {
  RowKey Key = 0;
  std::vector<Value> Values;
};

/// The rows of a query, one after another, each once.
class RowSource {
 public:
  virtual ~RowSource() = default;

  /// Reads the next row into `row` and returns true; returns false after the last.
  virtual bool Next(Row& row) = 0;
};

/// One of several changes that are made together.
struct RowChange {
  enum class Kind { Add, Set, Remove };

  Kind What = Kind::Add;
  std::string Table;
  Row Before = {};          ///< Set, Remove: the row as it was read.
  FieldValues Fields = {};  ///< Add, Set: as for Insert and Update.
};

/// A query, and the rows that it gave.
struct QueryResult {
  Query Asked;
  std::vector<Row> Rows;
};

/// What a kind of database file must provide to serve as a store. Used from one thread. Table and
/// column names are those of the file; they are found without regard to ASCII letter case.
///
/// Every member throws DatabaseError when the file cannot be read or written or lacks the table or
/// a column, DatabaseBusyError when another program holds it for longer than the timeout,
/// FileReplacedError when the name leads to another file by now. A member that throws has changed
/// nothing in the file, unless it throws OutcomeUnknownError.
///
/// Each change is durable when the member returns: it survives a loss of power. Between
/// DelayFlushes and Flush it need not be.
class Store {
 public:
  virtual ~Store() = default;

  /// The file's full name on this platform.
  virtual const std::string& FileName() const = 0;

  /// What the operator is to be told, once, of the state in which the file was found when it was
  /// opened; nothing when all was well.
  virtual std::optional<Report> TakeNotice() { return std::nullopt; }

  virtual std::vector<std::string> TableNames() = 0;

  /// The table's columns in their order, as the file spells them.
  virtual std::vector<std::string> ColumnNames(const std::string& table) = 0;

  /// How many characters of `text`, from its first one on, the column can hold: all of them when it
  /// can hold the text. What a character is, data/text.h says. A column that is not for texts, or
  /// that has no limit, counts as one that holds them all.
  virtual std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                        std::string_view text) = 0;

  /// What kind of file this is and what is in it. Counts the rows, so it may take a while.
  virtual StoreDescription Describe() = 0;

  /// The rows of the query. The source must be dropped before the store is, and before the table
  /// it reads is changed through this store.
  virtual std::unique_ptr<RowSource> Select(const Query& query) = 0;

  /// The rows of each query, as Select gives them. A store at the end of a line is asked for all of
  /// them in one go.
  virtual std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries);

  /// Adds a row and returns it as stored, an auto-increment key filled in. Columns that `fields`
  /// does not name hold null, whatever default they declare.
  virtual Row Insert(const std::string& table, const FieldValues& fields) = 0;

  /// Sets `fields` in the row that was read as `before`, and returns the row as it is now.
  /// Throws RowChangedError when the row in the file is no longer equal to `before`.
  virtual Row Update(const std::string& table, const Row& before, const FieldValues& fields) = 0;

  /// Removes the row that was read as `before`.
  /// Throws RowChangedError when the row in the file is no longer equal to `before`.
  virtual void Delete(const std::string& table, const Row& before) = 0;

  /// Makes these changes in their order, all or none of them, provided that every query of `seen`
  /// still gives the rows that it gave: they are compared while nobody else can write. Throws
  /// RowChangedError when one gives others, or a row is no longer equal to its `Before`.
  virtual void ChangeAll(const std::vector<RowChange>& changes,
                         const std::vector<QueryResult>& seen) = 0;

  /// Makes a table, its indexes and its first rows, all in one change of the file. Throws
  /// DatabaseError when one of that name is there.
  virtual void CreateTable(const TableDefinition& definition) = 0;

  /// Adds a column after the last one and fills it, in one change of the file. Throws DatabaseError
  /// when one of that name is there.
  virtual void AddColumn(const std::string& table, const ColumnDefinition& column) = 0;

  /// Whether changes are entered in the journal (data/journal.h), those of other programs too where
  /// the kind of file can do that.
  virtual bool KeepsJournal() = 0;

  /// What is changed from now on until EndAction is one action of that name in the journal
  /// (data/journal.h), where the file keeps one. Within another action it counts as a part of that.
  /// To be called by JournalledAction.
  virtual void BeginAction(const std::string&) {}
  virtual void EndAction() {}

  /// Tells from the first call on what is changed in a calendar that several desks share; lives as
  /// long as the store. Null for a file, of which nobody tells.
  virtual ChangeFeed* Feed() { return nullptr; }

  /// A mark of the rows that a table holds now: while a mark that was given is given again, they
  /// are the same. To be asked for before the rows are read for which it shall stand. Null where
  /// that cannot be told.
  virtual std::shared_ptr<const void> MarkOf(const std::string&) { return nullptr; }

  /// The failure to be thrown by whoever finds that the table lacks a column.
  virtual MissingItemError NoSuchColumn(const std::string& table, const std::string& column) const;

  /// How many rows the operator's actions give InsertAll, DeleteAll and UpdateAll at a time; 1
  /// where each row of theirs is a change of its own.
  virtual std::size_t RowsAtOnce() const { return 1; }

  /// Adds rows in their order and returns them as stored. A kind of file that can adds all of them
  /// in one change, for a little more than one of them costs; any other adds them one by one, and
  /// then a member that throws may have added the first of them.
  virtual std::vector<Row> InsertAll(const std::string& table,
                                     const std::vector<FieldValues>& rows);

  /// The same with rows that were read as these: removes them,
  virtual void DeleteAll(const std::string& table, const std::vector<Row>& rows);

  /// or sets `fields` in each and returns them as they are now.
  virtual std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                                     const FieldValues& fields);

  /// From now on until Flush a kind of file that can flushes many changes at once, the first of
  /// them a second ago at the most when another is made. Every other program sees each change as
  /// soon as its member returns, and it survives the end of this one. A loss of power leaves the
  /// first of them, none of which is missing before another.
  virtual void DelayFlushes() {}

  /// Ends that: all changes so far are durable when this returns. Throws OutcomeUnknownError when
  /// that cannot be said, as the disk has failed; it can be called again then.
  virtual void Flush() {}
};

}  // namespace veyra
