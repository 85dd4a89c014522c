#pragma once

#include <string>
#include <string_view>

namespace veyra::postgres {

/// A name as it stands in SQL, in double quotes, letter case kept.
std::string Quoted(std::string_view name);

/// A text as it stands in SQL where no value can be bound: in what makes tables and functions.
std::string TextLiteral(std::string_view text);

}  // namespace veyra::postgres
