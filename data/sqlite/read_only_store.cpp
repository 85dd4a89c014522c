#include "data/sqlite/read_only_store.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

#include "data/errors.h"
#include "data/file_store.h"
#include "data/names.h"
#include "data/sqlite/copy.h"
#include "data/sqlite/describe.h"
#include "data/sqlite/file_reading.h"
#include "data/sqlite/verify.h"
#include "data/store_errors.h"
#include "data/text.h"

namespace veyra::sqlite {

namespace {

using std::chrono::steady_clock;

/// So many failures, while nothing is seen to change, are those of the file itself.
constexpr int kProof = 3;

/// The rows of a file that cannot change while they are read.
class OpenRows : public RowSource {
 public:
  OpenRows(std::shared_ptr<FileReading> reading, std::unique_ptr<RowSource> rows)
      : reading_(std::move(reading)), rows_(std::move(rows)) {}

  bool Next(Row& row) override { return rows_->Next(row); }

 private:
  std::shared_ptr<FileReading> reading_;
  std::unique_ptr<RowSource> rows_;
};

/// Rows that were all read before the first is handed out.
class HeldRows : public RowSource {
 public:
  explicit HeldRows(RowSource& rows) {
    for (Row row; rows.Next(row); row = Row()) {
      rows_.push_back(std::move(row));
    }
  }

  bool Next(Row& row) override {
    if (next_ == rows_.size()) {
      return false;
    }
    row = std::move(rows_[next_++]);
    return true;
  }

 private:
  std::vector<Row> rows_;
  std::size_t next_ = 0;
};

class ReadOnlyStore : public FileStore {
 public:
  ReadOnlyStore(std::string file, WaitPolicy policy)
      : file_(std::move(file)), policy_(std::move(policy)) {}

  /// Throws when the file is locked, damaged or cut short.
  void CheckWhole() {
    Ask([](const auto& reading) { reading->reader().database().CheckWhole(); });
  }

  const std::string& FileName() const override { return file_; }

  std::vector<std::string> TableNames() override {
    std::vector<std::string> names;
    Ask([&](const auto& reading) { names = reading->reader().catalogue().TableNames(); });
    return names;
  }

  std::vector<std::string> ColumnNames(const std::string& table) override {
    std::vector<std::string> names;
    Ask([&](const auto& reading) { names = reading->reader().catalogue().Find(table).Columns; });
    return names;
  }

  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) override {
    if (!FindName(ColumnNames(table), column)) {
      throw MissingColumn(file_, table, column);
    }
    return CharacterCount(text);
  }

  StoreDescription Describe() override {
    StoreDescription description;
    Ask([&](const auto& reading) { description = sqlite::Describe(reading->reader()); });
    return description;
  }

  std::unique_ptr<RowSource> Select(const Query& query) override {
    std::unique_ptr<RowSource> source;
    Ask([&](const auto& reading) {
      auto rows = reading->reader().Select(query);
      if (reading->IsUnlocked()) {
        source = std::make_unique<HeldRows>(*rows);
      } else {
        source = std::make_unique<OpenRows>(reading, std::move(rows));
      }
    });
    return source;
  }

  void CopyTo(const std::string& new_file) override {
    bool is_made = false;
    const auto drop = [&] {
      if (std::exchange(is_made, false)) {
        std::filesystem::remove(new_file);
      }
    };
    try {
      Ask([&](const auto& reading) {
        drop();
        CopyDatabase(reading->reader().database(), new_file);
        is_made = true;
      });
    } catch (const Error&) {
      drop();
      throw;
    }
  }

  std::vector<Phrase> Verify() override {
    std::vector<Phrase> problems;
    Ask([&](const auto& reading) { problems = sqlite::Verify(reading->reader()); });
    return problems;
  }

  std::int64_t LastNumber(const std::string& table) override {
    std::int64_t number = 0;
    Ask([&](const auto& reading) { number = sqlite::LastNumber(reading->reader(), table); });
    return number;
  }

  bool KeepsJournal() override {
    bool keeps = false;
    Ask([&](const auto& reading) { keeps = reading->reader().catalogue().KeepsJournal(); });
    return keeps;
  }

  void KeepJournal(bool) override { Refuse(); }
  Row Insert(const std::string&, const FieldValues&) override { Refuse(); }
  Row Update(const std::string&, const Row&, const FieldValues&) override { Refuse(); }
  void Delete(const std::string&, const Row&) override { Refuse(); }
  void CreateTable(const TableDefinition&) override { Refuse(); }
  void AddColumn(const std::string&, const ColumnDefinition&) override { Refuse(); }
  void ChangeAll(const std::vector<RowChange>&, const std::vector<QueryResult>&) override {
    Refuse();
  }

 private:
  using Question = std::function<void(const std::shared_ptr<FileReading>&)>;

  /// Puts the question until the file stood still while it was answered.
  void Ask(const Question& question) {
    const auto deadline = steady_clock::now() + policy_.Timeout;
    Wait wait(policy_);
    int failures = 0;
    while (!TryToAnswer(question, deadline, wait, failures)) {
    }
  }

  bool TryToAnswer(const Question& question, steady_clock::time_point deadline, Wait& wait,
                   int& failures) {
    const FilesBeside before(file_);
    try {
      const auto reading = std::make_shared<FileReading>(file_, policy_);
      question(reading);
      return !reading->HasChanged() || !GoesOn(wait);
    } catch (const WaitCancelledError&) {
      throw;
    } catch (const DatabaseBusyError&) {
      // The other program is setting up its log, or SQLite has waited for it till the deadline.
      if (steady_clock::now() >= deadline || !wait.GoOn()) {
        throw;
      }
    } catch (const DatabaseError&) {
      // What was read while the file changed need not make sense: then it is asked again. A program
      // that came and went within one question leaves no trace, so that one failure proves nothing.
      const bool stood_still = FilesBeside(file_) == before;
      if (steady_clock::now() >= deadline || (stood_still && ++failures == kProof)) {
        throw;
      }
    }
    return false;
  }

  /// Throws when it does not.
  bool GoesOn(Wait& wait) const {
    if (!wait.GoOn()) {
      throw DatabaseBusyError(
          {file_, Phrase::Tr("Another program is writing to the file all the time."),
           Phrase::Tr("Wait until the other program has finished, and try again.")});
    }
    return true;
  }

  [[noreturn]] void Refuse() const { throw OpenedForReadingOnly(file_); }

  std::string file_;
  WaitPolicy policy_;
};

}  // namespace

std::unique_ptr<Store> OpenReadOnly(const std::string& file, const WaitPolicy& policy) {
  auto store = std::make_unique<ReadOnlyStore>(file, policy);
  store->CheckWhole();
  return store;
}

}  // namespace veyra::sqlite
