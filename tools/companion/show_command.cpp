#include "tools/companion/show_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/open_store.h"
#include "data/text.h"
#include "tools/companion/folder_argument.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

using Line = std::vector<std::string>;

constexpr const char* kNothing = "-";

std::string OrNothing(const std::string& text) {
  return text.empty() ? kNothing : text;
}

std::string Joined(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    list += (list.empty() ? "" : ", ") + OrNothing(name);
  }
  return OrNothing(list);
}

/// Writes lines so that their cells stand below each other, at least two blanks between them.
void PrintAligned(std::vector<Line> lines, std::ostream& out) {
  for (Line& line : lines) {
    std::transform(line.begin(), line.end(), line.begin(), OneLine);
  }
  std::vector<std::size_t> widths;
  for (const Line& line : lines) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i) {
      widths[i] = std::max(widths[i], CharacterCount(line[i]));
    }
  }
  for (const Line& line : lines) {
    out << "  ";
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
      out << line[i] << std::string(widths[i] + 2 - CharacterCount(line[i]), ' ');
    }
    out << line.back() << '\n';
  }
}

Line ColumnLine(const ColumnDescription& column) {
  return {"column", OrNothing(column.TypeName),
          column.Size == 0 ? kNothing : std::to_string(column.Size),
          column.AutoNumber ? "auto" : kNothing, column.Name};
}

Line IndexLine(const IndexDescription& index) {
  return {"index", Joined(index.Columns), index.IsUnique ? "unique" : kNothing, index.Name};
}

void PrintTable(const TableDescription& table, std::ostream& out) {
  out << '\n' << (table.IsView ? "view " : "table ") << OneLine(table.Name) << '\n';
  PrintAligned({{"rows", std::to_string(table.RowCount)}}, out);
  std::vector<Line> columns;
  for (const ColumnDescription& column : table.Columns) {
    columns.push_back(ColumnLine(column));
  }
  PrintAligned(std::move(columns), out);
  std::vector<Line> indexes;
  for (const IndexDescription& index : table.Indexes) {
    indexes.push_back(IndexLine(index));
  }
  PrintAligned(std::move(indexes), out);
}

void Print(const std::string& file, const StoreDescription& store, std::ostream& out) {
  out << "file\n";
  PrintAligned({{"name", file},
                {"kind", store.KindName},
                {"version", store.Version},
                {"code page", store.CodePage},
                {"encoded", store.IsEncoded ? "yes" : "no"},
                {"tables", std::to_string(store.Tables.size())}},
               out);
  for (const TableDescription& table : store.Tables) {
    PrintTable(table, out);
  }
}

void RunShow(const std::string& file, std::ostream& out) {
  const auto store = OpenStore(file, StoreAccess::ReadOnly);
  Print(store->FileName(), store->Describe(), out);
}

Command::Action Declare(CLI::App& app) {
  const auto file = std::make_shared<std::string>();
  AddRequiredName(app, "FILE", *file, Phrase::Tr("the database file; it may be in use"));
  return [file](Streams& streams) {
    RunShow(*file, streams.Out);
    return ExitStatus::Fine;
  };
}

}  // namespace

Command ShowCommand() {
  return {
      "show", Phrase::Tr("Print what a database file is, and its tables"),
      Phrase::Tr(
          "Its kind, version and code page; each table with its number of rows, its columns "
          "(type, size, whether it is an auto number, name) and its indexes (columns, whether each "
          "value stands once, name). Two blanks or more part them; \"-\" stands for nothing.") +
          Examples({"veyra-data show ~/our-calendar/Calendar.mdb"}),
      Declare};
}

}  // namespace veyra
