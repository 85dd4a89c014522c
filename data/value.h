#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "data/date.h"

namespace veyra {

/// The absence of a value in a column.
using Null = std::monostate;

/// What a column of a row holds. A store that keeps dates as text gives them as text; ToDate
/// reads either form.
using Value = std::variant<Null, std::int64_t, double, std::string, Date>;

bool IsNull(const Value& value);

/// The value as a whole number: integers, and doubles and decimal texts that stand for one.
/// Nothing for null and for anything else.
std::optional<std::int64_t> ToInteger(const Value& value);

/// The value as a number; nothing for null and for what is not a number.
std::optional<double> ToDouble(const Value& value);

/// The value as a date: a date, or a text that begins with an ISO date. Nothing for anything else.
std::optional<Date> ToDate(const Value& value);

/// The value as text: empty for null, plain decimal digits for whole numbers (never an exponent
/// up to 2^53), the ISO text for a date.
std::string ToText(const Value& value);

/// Whether both are the same, to the last bit of a number, so that one that is none equals itself.
bool IsSame(const Value& one, const Value& other);

}  // namespace veyra
