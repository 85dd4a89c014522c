#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "data/phrase.h"

namespace veyra::access {

/// Why a database file cannot be read or written, without the file's name: the store that knows it
/// turns this into the DatabaseError of the same texts. what() is the cause in English.
class FileProblem : public std::runtime_error {
 public:
  FileProblem(Phrase cause, Phrase advice)
      : std::runtime_error(cause.English()), cause_(std::move(cause)), advice_(std::move(advice)) {}

  const Phrase& cause() const { return cause_; }
  const Phrase& advice() const { return advice_; }

 private:
  Phrase cause_;
  Phrase advice_;
};

/// The file does not hold what its format promises.
class DamagedFile : public FileProblem {
 public:
  DamagedFile();
  explicit DamagedFile(const Phrase& cause);
};

/// Another program holds the file.
class FileBusy : public FileProblem {
 public:
  FileBusy(Phrase cause, Phrase advice, bool is_cancelled = false)
      : FileProblem(std::move(cause), std::move(advice)), is_cancelled_(is_cancelled) {}

  /// Whether the operator has ended the wait for it.
  bool IsCancelled() const { return is_cancelled_; }

 private:
  bool is_cancelled_;
};

/// A column cannot hold a value.
class ValueRefused : public FileProblem {
 public:
  using FileProblem::FileProblem;
};

/// A change could neither be made nor be taken back, for that cause.
class OutcomeUnknown : public FileProblem {
 public:
  explicit OutcomeUnknown(const FileProblem& cause);
};

/// What every kind of store reports in the same words.
enum class Refusal {
  NoTable,
  NoColumn,
  TableExists,
  ColumnExists,
  RowChanged,
  RowRemoved,
  ReadingOnly,
};

class StoreProblem : public FileProblem {
 public:
  /// `name` is that of the table or the column that is missing or there already.
  explicit StoreProblem(Refusal what, std::string name = {});

  Refusal What() const { return what_; }
  const std::string& Name() const { return name_; }

 private:
  Refusal what_;
  std::string name_;
};

}  // namespace veyra::access
