#include "data/access/write/change_words.h"

#include "data/text.h"

namespace veyra::access {

namespace {

constexpr std::size_t kMostOfAText = 60;

std::string Shortened(const std::string& text) {
  if (text.size() <= kMostOfAText) {
    return text;
  }
  std::size_t end = kMostOfAText;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  return text.substr(0, end) + "...";
}

/// " (Event Chess, TimeFrom 20)", or nothing when all are null.
std::string InBrackets(const FieldValues& fields) {
  std::string words;
  for (const auto& [name, value] : fields) {
    if (!IsNull(value)) {
      words += (words.empty() ? " (" : ", ") + name + " " + Shortened(ToText(value));
    }
  }
  return words.empty() ? words : words + ")";
}

FieldValues FieldsOf(const TableLayout& layout, const Row& row) {
  FieldValues fields;
  for (std::size_t i = 0; i < std::min(row.Values.size(), layout.Columns.size()); ++i) {
    fields.emplace_back(layout.Columns[i].Name, row.Values[i]);
  }
  return fields;
}

/// "30 rows in Reserv, from (RmID 3, ...) to (RmID 3, ...)".
std::string CountAndBounds(const std::string& table, const TableLayout& layout,
                           const std::vector<Row>& rows, const std::string& rows_of) {
  const std::string count = std::to_string(rows.size()) + rows_of + table;
  return rows.empty() ? count
                      : count + ", from" + InBrackets(FieldsOf(layout, rows.front())) + " to" +
                            InBrackets(FieldsOf(layout, rows.back()));
}

std::string WordsForChange(const RowChange& change) {
  switch (change.What) {
    case RowChange::Kind::Add:
      return WordsForInsert(change.Table, change.Fields);
    case RowChange::Kind::Set:
      return "a change of a row in " + change.Table + InBrackets(change.Fields);
    case RowChange::Kind::Remove:
      break;
  }
  return "the removal of a row from " + change.Table;
}

}  // namespace

std::string WordsForInsert(const std::string& table, const FieldValues& fields) {
  return "a new row in " + table + InBrackets(fields);
}

std::string WordsForInsertAll(const std::string& table, const std::vector<FieldValues>& rows) {
  if (rows.size() < 2) {
    return rows.empty() ? "nothing" : WordsForInsert(table, rows.front());
  }
  return std::to_string(rows.size()) + " new rows in " + table + ", from" +
         InBrackets(rows.front()) + " to" + InBrackets(rows.back());
}

std::string WordsForUpdateAll(const std::string& table, const TableLayout& layout,
                              const std::vector<Row>& rows) {
  return rows.size() == 1 ? WordsForUpdate(table, layout, rows.front())
                          : "changes of " + CountAndBounds(table, layout, rows, " rows in ");
}

std::string WordsForDeleteAll(const std::string& table, const TableLayout& layout,
                              const std::vector<Row>& rows) {
  return rows.size() == 1 ? WordsForDelete(table, layout, rows.front())
                          : "the removal of " + CountAndBounds(table, layout, rows, " rows from ");
}

std::string WordsForUpdate(const std::string& table, const TableLayout& layout, const Row& before) {
  return "a change of a row in " + table + InBrackets(FieldsOf(layout, before));
}

std::string WordsForDelete(const std::string& table, const TableLayout& layout, const Row& before) {
  return "the removal of a row from " + table + InBrackets(FieldsOf(layout, before));
}

std::string WordsForChangeAll(const std::vector<RowChange>& changes) {
  if (changes.empty()) {
    return "nothing";
  }
  const std::string first = WordsForChange(changes.front());
  return changes.size() == 1
             ? first
             : std::to_string(changes.size()) + " changes together, the first " + first;
}

}  // namespace veyra::access
