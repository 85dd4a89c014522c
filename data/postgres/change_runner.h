#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "data/journal.h"
#include "data/postgres/catalogue.h"
#include "data/postgres/failure.h"
#include "data/postgres/seen_rows.h"
#include "data/postgres/session.h"

namespace veyra::postgres {

/// What a change is about.
struct ChangeScope {
  std::string Table;                 ///< For the report when it fails.
  std::set<FacilityDay> Days;        ///< Of the bookings that it adds or moves.
  std::vector<std::string> Guarded;  ///< Tables that nobody else may write to meanwhile.
};

/// Looks whether a change is made, where the connection broke just when it was.
using Look = std::function<bool()>;

/// A change of rows or tables; gives what looks for it afterwards.
using ChangeWork = std::function<Look()>;

/// Carries out reading and changing: what is found to rest on an old state of
/// the tables, and what the server gives up because two desks wait for each
/// other, is done once more. Throws as Store does.
class ChangeRunner {
 public:
  ChangeRunner(Session& session, Catalogue& catalogue, SeenRows& seen)
      : session_(session), catalogue_(catalogue), seen_(seen) {}

  /// Runs `read` until it succeeds.
  void Read(const std::string& table, const std::function<void()>& read);

  /// Runs `change` in a transaction of its own, which is durable when this
  /// returns. Within BeginOuter and SaveOuter it is a part of that one.
  ///
  /// When the connection breaks while the server is told to keep the change,
  /// the server is asked over a new one what became of it; OutcomeUnknownError
  /// is thrown only when it does not say.
  void Change(const ChangeScope& scope, const ChangeWork& change);

  /// Begins a transaction to which all that follows belongs until SaveOuter.
  void BeginOuter();
  void SaveOuter(const Look& is_made);

  CurrentAction& action() { return action_; }

 private:
  void Repeat(const std::string& table, const std::function<void()>& work);
  void Attempt(const ChangeScope& scope, const ChangeWork& change);
  void Begin(const ChangeScope& scope);
  void LockInOrder(const ChangeScope& scope);
  void Commit(const Look& is_made);
  void RequireMade(const Look& is_made, const Failure& lost);
  bool IsCommitted(const std::string& transaction, const Failure& lost);
  std::optional<std::string> StatusOf(const std::string& transaction);

  Session& session_;
  Catalogue& catalogue_;
  SeenRows& seen_;
  CurrentAction action_;
  bool is_in_outer_ = false;
};

}  // namespace veyra::postgres
