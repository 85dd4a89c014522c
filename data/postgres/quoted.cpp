#include "data/postgres/quoted.h"

namespace veyra::postgres {

namespace {

std::string Between(char mark, std::string_view text) {
  std::string quoted(1, mark);
  for (const char c : text) {
    quoted += c == mark ? std::string(2, c) : std::string(1, c);
  }
  return quoted + mark;
}

}  // namespace

std::string Quoted(std::string_view name) {
  return Between('"', name);
}

std::string TextLiteral(std::string_view text) {
  return Between('\'', text);
}

}  // namespace veyra::postgres
