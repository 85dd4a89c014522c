#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "logic/journal_actions.h"
#include "logic/slots.h"

namespace veyra::modRes {

/// How rows of the journal are named to the operator.
class JournalWords {
 public:
  /// Facilities that are gone are known by what the actions hold of them. Throws DatabaseError.
  JournalWords(Store& store, const std::vector<JournalAction>& actions);

  /// "Pool, 3/5/2026,  9:00A-10:30A Smith"; "the facility Pool"; "the colours".
  Phrase Of(const std::string& table, const FieldValues& fields) const;

  /// The same as the beginning of a sentence: "The facility Pool".
  Phrase AtBeginning(const std::string& table, const FieldValues& fields) const;

  /// "Pool", or "no facility (7)".
  Phrase FacilityName(std::int64_t id) const;

  const std::map<std::int64_t, std::string>& Facilities() const { return names_; }

 private:
  void Learn(const FieldValues& fields);
  Phrase Booking(const FieldValues& fields) const;

  SlotLabelTable labels_;
  std::map<std::int64_t, std::string> names_;
};

/// An action's name as the operator reads it. The calendar holds it in English, for another desk
/// may speak another language; one that this version does not give stays as it is.
Phrase ActionWords(const std::string& name);

/// What a field of that name holds; null when there is none.
const Value& FieldIn(const FieldValues& fields, std::string_view name);

}  // namespace veyra::modRes
