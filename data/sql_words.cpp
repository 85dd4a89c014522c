#include "data/sql_words.h"

namespace veyra {

const char* TestText(Relation test) {
  switch (test) {
    case Relation::Equal:
      return " = ";
    case Relation::NotEqual:
      return " <> ";
    case Relation::Less:
      return " < ";
    case Relation::LessOrEqual:
      return " <= ";
    case Relation::Greater:
      return " > ";
    case Relation::GreaterOrEqual:
      return " >= ";
  }
  return "";
}

std::string CommaList(const std::vector<std::string>& items) {
  std::string list;
  for (const std::string& item : items) {
    if (!list.empty()) {
      list += ", ";
    }
    list += item;
  }
  return list;
}

}  // namespace veyra
