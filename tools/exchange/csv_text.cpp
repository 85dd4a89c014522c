#include "tools/exchange/csv_text.h"

#include <algorithm>
#include <utility>

#include "data/errors.h"
#include "data/text.h"

namespace veyra {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kFormulaStarts = "=+-@\t\r";

ValueError NoCsv(const Phrase& cause) {
  return ValueError(
      {{},
       cause,
       Phrase::Tr("Nothing was changed. Save the file as CSV, in UTF-8, and try again.")});
}

class CsvReader {
 public:
  explicit CsvReader(std::string_view text) : rest_(text) {
    if (rest_.starts_with(kByteOrderMark)) {
      rest_.remove_prefix(kByteOrderMark.size());
    }
  }

  std::vector<CsvRecord> Read() {
    while (!rest_.empty()) {
      CsvRecord record{line_, {}};
      do {
        record.Cells.push_back(ReadCell());
      } while (Take(','));
      TakeLineEnd();
      const bool is_empty_line = record.Cells.size() == 1 && record.Cells.front().empty();
      if (!is_empty_line) {
        records_.push_back(std::move(record));
      }
    }
    return std::move(records_);
  }

 private:
  bool Take(char c) {
    if (!rest_.starts_with(c)) {
      return false;
    }
    rest_.remove_prefix(1);
    return true;
  }

  void TakeLineEnd() {
    if (rest_.empty()) {
      return;
    }
    Take('\r');
    if (!Take('\n') && !rest_.empty()) {
      throw NoCsv(Phrase::Tr("Line %1: something stands behind the end of a quoted cell.", line_));
    }
    ++line_;
  }

  std::string ReadCell() { return Take('"') ? ReadQuoted() : ReadPlain(); }

  std::string ReadPlain() {
    const std::size_t end = std::min(rest_.find_first_of(",\n"), rest_.size());
    std::size_t size = end;
    const bool ends_line = end == rest_.size() || rest_[end] == '\n';
    if (ends_line && size > 0 && rest_[size - 1] == '\r') {
      --size;
    }
    std::string cell(rest_.substr(0, size));
    rest_.remove_prefix(size);
    return cell;
  }

  std::string ReadQuoted() {
    const std::size_t begin = line_;
    std::string cell;
    while (true) {
      const std::size_t quote = rest_.find('"');
      if (quote == std::string_view::npos) {
        throw NoCsv(Phrase::Tr("Line %1: a quoted cell has no end.", begin));
      }
      AddTo(cell, rest_.substr(0, quote));
      rest_.remove_prefix(quote + 1);
      if (!Take('"')) {
        return cell;
      }
      cell += '"';
    }
  }

  void AddTo(std::string& cell, std::string_view piece) {
    for (const char c : piece) {
      line_ += c == '\n' ? 1U : 0U;
    }
    cell += piece;
  }

  std::string_view rest_;
  std::size_t line_ = 1;
  std::vector<CsvRecord> records_;
};

bool LooksLikeFormula(std::string_view text) {
  const std::size_t start = text.find_first_not_of('\'');
  return start != std::string_view::npos &&
         kFormulaStarts.find(text[start]) != std::string_view::npos;
}

}  // namespace

std::vector<CsvRecord> ParseCsv(std::string_view text) {
  if (!IsUtf8(text)) {
    throw NoCsv(Phrase::Tr("The file is not text in UTF-8."));
  }
  return CsvReader(text).Read();
}

std::string CsvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (const std::string& cell : cells) {
    if (&cell != &cells.front()) {
      line += ',';
    }
    if (cell.find_first_of(",\"\r\n") == std::string::npos) {
      line += cell;
      continue;
    }
    line += '"';
    for (const char c : cell) {
      line += c == '"' ? std::string("\"\"") : std::string(1, c);
    }
    line += '"';
  }
  return line + "\r\n";
}

std::string Defused(const std::string& text) {
  return LooksLikeFormula(text) ? "'" + text : text;
}

std::string Undefused(const std::string& cell) {
  return cell.starts_with('\'') && LooksLikeFormula(cell) ? cell.substr(1) : cell;
}

}  // namespace veyra
