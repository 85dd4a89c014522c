#pragma once

#include <string>
#include <string_view>

namespace veyra {

/// The text as it may be shown on a line of a terminal or written into a report: each control
/// character is a blank, marks that turn the direction of writing are left out, and what is no
/// UTF-8 is replaced.
std::string OneLine(std::string_view text);

/// The same of each line of a text.
std::string PlainLines(std::string_view text);

}  // namespace veyra
