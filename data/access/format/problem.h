#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace veyra::access {

/// Why a database file cannot be read or written, without the file's name: the store that knows it
/// turns this into the DatabaseError of the same texts.
class FileProblem : public std::runtime_error {
 public:
  FileProblem(const std::string& cause, std::string advice)
      : std::runtime_error(cause), advice_(std::move(advice)) {}

  const std::string& advice() const { return advice_; }

 private:
  std::string advice_;
};

/// The file does not hold what its format promises.
class DamagedFile : public FileProblem {
 public:
  DamagedFile();
  explicit DamagedFile(const std::string& cause);
};

/// Another program holds the file.
class FileBusy : public FileProblem {
 public:
  FileBusy(const std::string& cause, std::string advice, bool is_cancelled = false)
      : FileProblem(cause, std::move(advice)), is_cancelled_(is_cancelled) {}

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
