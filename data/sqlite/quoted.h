#pragma once

#include <string>
#include <string_view>

namespace veyra::sqlite {

/// A name in quotes, whatever is in it.
std::string Quoted(std::string_view name);

/// A text in quotes, as SQL writes it.
std::string TextLiteral(std::string_view text);

}  // namespace veyra::sqlite
