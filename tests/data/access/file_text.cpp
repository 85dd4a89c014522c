#include "tests/data/access/file_text.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>

#include "data/access/read/snapshot.h"

namespace veyra {

namespace {

std::string Joined(const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    line += (i == 0 ? "" : "\t") + cells[i];
  }
  return line;
}

std::string Escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '\t':
        result += "\\t";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\\':
        result += "\\\\";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string NumberText(double number) {
  std::array<char, 64> text{};
  if (number == std::floor(number) && std::abs(number) < 1e18) {
    std::snprintf(text.data(), text.size(), "%.0f", number);
  } else {
    std::snprintf(text.data(), text.size(), "%.17g", number);
  }
  return text.data();
}

std::string DateText(access::DateSerial serial) {
  const access::DaySeconds split = access::SplitSerial(serial);
  const auto date = access::DateFromDays(split.Days);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d",
                date ? static_cast<int>(date->year()) : 0,
                date ? static_cast<unsigned>(date->month()) : 0,
                date ? static_cast<unsigned>(date->day()) : 0, split.Seconds / 3600,
                split.Seconds / 60 % 60, split.Seconds % 60);
  return text.data();
}

}  // namespace

std::string CellText(const access::Cell& cell) {
  struct Writer {
    std::string operator()(Null) const { return "\\N"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return NumberText(number); }
    std::string operator()(const std::string& text) const { return Escaped(text); }
    std::string operator()(access::DateSerial serial) const { return DateText(serial); }
    std::string operator()(const access::Bytes& bytes) const {
      return "bytes " + std::to_string(bytes.size());
    }
  };
  return std::visit(Writer(), cell);
}

std::vector<std::string> TableText(access::PageFile& file, const std::string& table) {
  access::Snapshot snapshot(file);
  const auto image = snapshot.Table(table);
  const access::CellReader reader(file);
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < image->RowCount(); ++i) {
    std::vector<std::string> cells;
    for (const access::ColumnLayout& column : image->Layout().Columns) {
      cells.push_back(CellText(reader.Read(image->View(i), column)));
    }
    lines.push_back(Joined(cells));
  }
  return lines;
}

std::vector<std::string> TableText(const std::filesystem::path& file, const std::string& table) {
  access::PageFile pages(file, false);
  return TableText(pages, table);
}

std::string ColumnsText(access::PageFile& file, const std::string& table) {
  access::Snapshot snapshot(file);
  std::vector<std::string> names;
  for (const access::ColumnLayout& column : snapshot.Table(table)->Layout().Columns) {
    names.push_back(column.Name);
  }
  return Joined(names);
}

std::vector<std::string> Lines(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

}  // namespace veyra
