#pragma once

#include <string>
#include <string_view>

namespace veyra {

/// What a reader of an HTML page sees, as plain text with single blanks.
std::string PlainText(std::string_view html);

/// The page's <title>, as plain text; empty when it has none.
std::string PageTitle(std::string_view html);

}  // namespace veyra
