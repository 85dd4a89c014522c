#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "data/phrase.h"

namespace veyra {

/// What the operator is told when something fails. Each text is a whole sentence or empty.
struct Report {
  std::string File;    ///< Full name of the file concerned; empty when there is none.
  Phrase Cause;        ///< What happened, in words a front desk understands.
  Phrase Advice;       ///< What to do about it.
  Phrase Effect = {};  ///< What it means for the one row that met it: "Nothing was saved."
};

/// The whole report: file, cause, effect and advice, each on a line of its own.
Phrase ReportText(const Report& report, const char* line_break);

/// The root of every failure the operator is told of. what() is the whole report in English.
class Error : public std::exception {
 public:
  explicit Error(Report report);

  const Report& report() const { return report_; }
  const char* what() const noexcept override { return text_.c_str(); }

  /// Says what it means for all that was being done, where the one who threw it knew of a part
  /// only.
  void SetEffect(const Phrase& effect);

 private:
  Report report_;
  std::string text_;
};

/// A database cannot be opened, read or written.
class DatabaseError : public Error {
 public:
  using Error::Error;
};

/// A row to be changed or deleted is no longer as it was read: another program changed or removed
/// it. Nothing has been overwritten.
class RowChangedError : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// Another program holds the database and did not let go of it within the timeout.
class DatabaseBusyError : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// The name of the database leads to another file than the one that was opened, or to none, or the
/// file was overwritten: somebody replaced, moved or removed it. Nothing has been written; to go
/// on, the file that bears the name now must be opened anew.
class FileReplacedError : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// It is not certain whether a change was saved: a failure of the disk met just the moment that
/// decides it. What the file holds when it is read next is what holds.
class OutcomeUnknownError : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// The operator has ended the wait for another program that holds the database.
class WaitCancelledError : public DatabaseBusyError {
 public:
  using DatabaseBusyError::DatabaseBusyError;
};

/// A database lacks a table, or a table lacks a column, that is needed.
class MissingItemError : public DatabaseError {
 public:
  /// `column` is empty where the table itself is missing.
  MissingItemError(Report report, std::string table, std::string column)
      : DatabaseError(std::move(report)), table_(std::move(table)), column_(std::move(column)) {}

  const std::string& Table() const { return table_; }
  const std::string& Column() const { return column_; }

 private:
  std::string table_;
  std::string column_;
};

/// A column cannot hold a value: a text too long, a number out of range. Nothing was changed.
class ValueRefusedError : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// A booking that stands in the way of another one.
struct TakenTime {
  std::int64_t From = 0;  ///< Its slots, 1 to 48, both included.
  std::int64_t To = 0;
  std::string Name;
};

/// A booking would overlap others of the same facility and day that were not there when this
/// program last looked: somebody else has made them meanwhile. Nothing was saved.
class TimeTakenError : public DatabaseError {
 public:
  /// `taken` in the order of their slots; not all of them when they are many.
  TimeTakenError(Report report, std::vector<TakenTime> taken)
      : DatabaseError(std::move(report)), taken_(std::move(taken)) {}

  const std::vector<TakenTime>& Taken() const { return taken_; }

 private:
  std::vector<TakenTime> taken_;
};

/// There is no database file of the name that was asked for.
class MissingFileError : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// A text file cannot be opened, read or written.
class FileError : public Error {
 public:
  using Error::Error;
};

/// A stored value is not of the kind that is needed there: a text that is not a number, a number
/// that is not a slot.
class ValueError : public Error {
 public:
  using Error::Error;
};

}  // namespace veyra
