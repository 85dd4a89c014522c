#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/forwarding_store.h"
#include "data/journal.h"
#include "data/store.h"

namespace veyra {

/// What became of one row, as the journal would hold it (data/journal.h).
struct NotedChange {
  std::string Table;
  std::optional<std::string> OldValues;
  std::optional<std::string> NewValues;
};

/// What was done at a stroke, under a name.
struct NotedAction {
  std::int64_t Number = 0;  ///< A later action has a higher one.
  std::string Name;         ///< "New series"
  std::vector<NotedChange> Changes;
};

/// Keeps in memory what a program changes in a calendar, whether the file keeps a journal or not:
/// the named actions, less one of which it is not known whether all of it was carried out. Of older
/// ones so many are kept that all of them together have no more than kMostChanges; the last one is
/// kept whatever its size.
class ActionNotes {
 public:
  static constexpr std::size_t kMostChanges = 10'000;

  void Begin(const std::string& name);
  void End();

  /// REQUIRES: AreTaken(), which is true between Begin and End.
  void Add(NotedChange change);
  void MarkUncertain() { is_uncertain_ = true; }
  bool AreTaken() const { return current_.IsNamed(); }

  /// Those that have ended, the last one at the back.
  const std::deque<NotedAction>& Actions() const { return actions_; }

  /// Forgets the action of that number.
  void Forget(std::int64_t number);

 private:
  CurrentAction current_;
  NotedAction noted_;
  bool is_uncertain_ = false;
  std::deque<NotedAction> actions_;
  std::size_t changes_ = 0;  ///< Of all actions.
  std::int64_t last_number_ = 0;
};

/// A store that notes what is changed through it. What ChangeAll does is not noted.
class NotingStore : public ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

  ActionNotes& Notes() { return notes_; }

  /// Puts another store between this one and what it has noted from.
  template <typename Wrap>
  void WrapInner(const Wrap& wrap) {
    SetInner(wrap(TakeInner()));
  }

  Row Insert(const std::string& table, const FieldValues& fields) override;
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override;
  void DeleteAll(const std::string& table, const std::vector<Row>& rows) override;
  std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                             const FieldValues& fields) override;
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override;
  void Delete(const std::string& table, const Row& before) override;
  void BeginAction(const std::string& name) override;
  void EndAction() override;

 private:
  template <typename Work>
  auto Noting(const Work& work);
  /// Must be called before the change, for it may fail; nothing when no note is needed.
  const std::vector<std::string>* ColumnsToNote(const std::string& table);
  void Note(const std::string& table, const std::vector<std::string>* columns, const Row* before,
            const Row* after);

  ActionNotes notes_;
  std::map<std::string, std::vector<std::string>> columns_;  ///< Of the action that goes on.
};

}  // namespace veyra
