#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "data/errors.h"
#include "data/forwarding_store.h"

namespace veyra {

enum class Statement { Select, Insert, Update, Delete, Flush };

/// What is to go wrong in a FailingStore.
class Faults {
 public:
  using Failure = std::function<void()>;  ///< Throws.

  /// Of the statements of that kind from now on the `first`, 1 for the next one, and those after
  /// it, `times` in all, change nothing and throw.
  void Fail(Statement kind, int first, int times = 1, Failure failure = ThrowBusy) {
    At(kind) = {first, times, std::move(failure), false};
  }

  /// That statement is carried out, and throws all the same.
  void FailWhenDone(Statement kind, int first, Failure failure) {
    At(kind) = {first, 1, std::move(failure), true};
  }

  /// Called before that statement, which then goes on.
  void Before(Statement kind, int first, Failure call) { Fail(kind, first, 1, std::move(call)); }

  /// From now on all goes well.
  void Heal() { plans_ = {}; }

  /// How many rows are said to be added at once, which then fail together as one statement; each
  /// by itself unless told otherwise, whatever the store does.
  void AddTogether(std::size_t rows) { together_ = rows; }
  std::size_t Together() const { return together_; }

  void Begin(Statement kind) {
    Plan& plan = At(kind);
    --plan.First;
    if (IsDue(plan) && !plan.WhenDone) {
      plan.What();
    }
  }
  void End(Statement kind) {
    if (const Plan plan = At(kind); IsDue(plan) && plan.WhenDone) {
      plan.What();
    }
  }

  [[noreturn]] static void ThrowBusy() {
    throw DatabaseBusyError({"/desk/Calendar.mdb", "Another program is using the file.",
                             "Wait until it has finished.", "Nothing was saved."});
  }

 private:
  struct Plan {
    int First = 0;
    int Times = 0;
    Failure What;
    bool WhenDone = false;
  };

  static bool IsDue(const Plan& plan) { return plan.First <= 0 && plan.First > -plan.Times; }
  Plan& At(Statement kind) { return plans_.at(static_cast<std::size_t>(kind)); }

  std::array<Plan, 5> plans_;
  std::size_t together_ = 1;
};

/// A store of any kind whose statements fail as they are told to.
class FailingStore : public ForwardingStore {
 public:
  /// `faults` must outlive the store.
  FailingStore(std::unique_ptr<Store> store, Faults& faults)
      : ForwardingStore(std::move(store)), faults_(faults) {}

  std::unique_ptr<RowSource> Select(const Query& query) override {
    faults_.Begin(Statement::Select);
    return ForwardingStore::Select(query);
  }
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override {
    return Store::SelectAll(queries);
  }
  Row Insert(const std::string& table, const FieldValues& fields) override {
    faults_.Begin(Statement::Insert);
    Row row = ForwardingStore::Insert(table, fields);
    faults_.End(Statement::Insert);
    return row;
  }
  std::size_t RowsAtOnce() const override { return faults_.Together(); }
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override {
    faults_.Begin(Statement::Insert);
    std::vector<Row> added = ForwardingStore::InsertAll(table, rows);
    faults_.End(Statement::Insert);
    return added;
  }
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    faults_.Begin(Statement::Update);
    Row row = ForwardingStore::Update(table, before, fields);
    faults_.End(Statement::Update);
    return row;
  }
  void Delete(const std::string& table, const Row& before) override {
    faults_.Begin(Statement::Delete);
    ForwardingStore::Delete(table, before);
    faults_.End(Statement::Delete);
  }
  void DeleteAll(const std::string& table, const std::vector<Row>& rows) override {
    faults_.Begin(Statement::Delete);
    ForwardingStore::DeleteAll(table, rows);
    faults_.End(Statement::Delete);
  }
  std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                             const FieldValues& fields) override {
    faults_.Begin(Statement::Update);
    std::vector<Row> changed = ForwardingStore::UpdateAll(table, rows, fields);
    faults_.End(Statement::Update);
    return changed;
  }
  void Flush() override {
    faults_.Begin(Statement::Flush);
    ForwardingStore::Flush();
  }

 private:
  Faults& faults_;
};

}  // namespace veyra
