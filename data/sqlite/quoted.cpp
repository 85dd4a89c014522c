#include "data/sqlite/quoted.h"

namespace veyra::sqlite {

namespace {

std::string Enclosed(std::string_view text, char quote) {
  std::string enclosed(1, quote);
  for (const char c : text) {
    if (c == quote) {
      enclosed += quote;
    }
    enclosed += c;
  }
  return enclosed + quote;
}

}  // namespace

std::string Quoted(std::string_view name) {
  return Enclosed(name, '"');
}

std::string TextLiteral(std::string_view text) {
  return Enclosed(text, '\'');
}

}  // namespace veyra::sqlite
