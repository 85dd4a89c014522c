#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "data/phrase.h"

namespace veyra::postgres {

/// Why the server did not do what it was asked for, in its own words, or why it could not be asked.
/// Never leaves the store: server_errors.h makes of it what the operator is told.
class Failure : public std::exception {
 public:
  Failure(std::string state, Phrase message, std::string detail = {})
      : state_(std::move(state)),
        message_(std::move(message)),
        text_(message_.English()),
        detail_(std::move(detail)) {}

  const char* what() const noexcept override { return text_.c_str(); }

  /// The five characters of SQLSTATE.
  const std::string& State() const { return state_; }
  const Phrase& Message() const { return message_; }
  const std::string& Detail() const { return detail_; }

  bool IsOf(std::string_view state_class) const { return state_.starts_with(state_class); }

 private:
  std::string state_;
  Phrase message_;
  std::string text_;
  std::string detail_;
};

/// The states that the store itself looks for.
namespace state {
inline constexpr std::string_view kConnection = "08";
inline constexpr std::string_view kStalePlan = "0A000";
inline constexpr std::string_view kBadData = "22";
inline constexpr std::string_view kReadOnly = "25006";
inline constexpr std::string_view kRetry = "40";
inline constexpr std::string_view kNoRight = "42501";
inline constexpr std::string_view kNoColumn = "42703";
inline constexpr std::string_view kNoTable = "42P01";
inline constexpr std::string_view kDiskFull = "53100";
inline constexpr std::string_view kTooMany = "53300";
inline constexpr std::string_view kLockTimeout = "55P03";
inline constexpr std::string_view kCancelled = "57014";
inline constexpr std::string_view kShutDown = "57P";
inline constexpr std::string_view kTaken = "VY001";  ///< The guard's own: somebody has booked it.
}  // namespace state

/// What a call finds whose connection is dead; the next one connects again.
inline Failure ConnectionLost(Phrase message) {
  return {"08006", std::move(message)};
}

}  // namespace veyra::postgres
