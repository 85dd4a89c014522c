#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "data/store.h"
#include "logic/journal_actions.h"

namespace veyra::modRes {

/// The rows that stand in the calendar where an action of the journal is to be taken back. A row
/// may be taken once: it is then as good as gone.
class CurrentRows {
 public:
  /// Reads the facilities, the colours, and of each facility that the changes concern the bookings
  /// from the first to the last day that they concern. Throws DatabaseError.
  CurrentRows(Store& store, const std::vector<JournalledChange>& changes);

  struct Found {
    Row Content;
    FieldValues Fields;
    bool IsTaken = false;
  };

  /// The rows among which these fields would stand: the bookings of the same facility and day, all
  /// facilities, the colours.
  const std::vector<Found>& Beside(const std::string& table, const FieldValues& fields);

  /// Takes a row that holds these fields, whatever mark a facility has, and returns it; nullptr
  /// when there is none left.
  const Found* Take(const std::string& table, const FieldValues& fields);

  /// How many bookings of a facility there are, those that are taken left out.
  std::size_t CountBookingsOf(std::int64_t facility);

  /// The columns that the table has now.
  const std::vector<std::string>& Columns(const std::string& table);

  const std::vector<QueryResult>& Seen() const { return seen_; }

 private:
  void Read(const std::string& table, const Query& query);

  Store& store_;
  std::map<std::string, std::vector<std::string>> columns_;
  std::map<std::string, std::vector<Found>> rows_;  ///< By table and what stands beside.
  std::map<std::string, std::set<RowKey>> known_;   ///< By table.
  std::vector<QueryResult> seen_;
};

/// Whether both have the same value in every field that both have, whatever kind of file either
/// comes from. A facility's mark does not count.
bool HoldSame(const std::string& table, const FieldValues& one, const FieldValues& other);

}  // namespace veyra::modRes
