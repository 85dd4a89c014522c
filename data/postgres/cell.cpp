#include "data/postgres/cell.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "data/errors.h"
#include "data/text.h"

namespace veyra::postgres {

namespace {

ValueRefusedError Refused(const std::string& file, const Column& column, const Phrase& why) {
  return ValueRefusedError(
      {file, Phrase::Tr("The column %1 cannot hold the value: %2.", column.Name, why),
       Phrase::Tr("Enter another one."), Phrase::Tr("Nothing was saved.")});
}

std::optional<std::string> WholeNumber(const std::string& file, const Column& column,
                                       const Value& value) {
  const auto number = ToInteger(value);
  if (!number) {
    throw Refused(file, column, Phrase::Tr("it is not a whole number"));
  }
  return std::to_string(*number);
}

std::optional<std::string> Double(const std::string& file, const Column& column,
                                  const Value& value) {
  const auto number = ToDouble(value);
  if (!number) {
    throw Refused(file, column, Phrase::Tr("it is not a number"));
  }
  return NumberText(*number);
}

std::optional<std::string> Day(const std::string& file, const Column& column, const Value& value) {
  const auto day = ToDate(value);
  if (!day) {
    throw Refused(file, column, Phrase::Tr("it is not a date"));
  }
  return IsoText(*day);
}

std::optional<std::string> Text(const std::string& file, const Column& column, const Value& value) {
  const std::string text = ToText(value);
  if (StorableCharacters(text) < CharacterCount(text)) {
    throw Refused(file, column, Phrase::Tr("there is something in it that is not a character"));
  }
  return text;
}

template <typename Number>
std::optional<Number> Read(const std::string& text) {
  Number number{};
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_whole = error == std::errc{} && stop == text.data() + text.size();
  return is_whole ? std::optional(number) : std::nullopt;
}

double ReadDouble(const std::string& text) {
  if (text == "NaN") {
    return std::nan("");
  }
  if (text.ends_with("Infinity")) {
    return text.front() == '-' ? -HUGE_VAL : HUGE_VAL;
  }
  return Read<double>(text).value_or(0.0);
}

}  // namespace

std::size_t StorableCharacters(std::string_view text) {
  const std::size_t nul = text.find('\0');
  if (nul == std::string_view::npos && IsUtf8(text)) {
    return CharacterCount(text);
  }
  text = text.substr(0, nul);
  std::size_t whole = 0;
  for (std::size_t end = 1; end <= text.size(); ++end) {
    const bool ends_character =
        end == text.size() || (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (ends_character) {
      if (!IsUtf8(text.substr(whole, end - whole))) {
        break;
      }
      whole = end;
    }
  }
  return CharacterCount(text.substr(0, whole));
}

std::optional<std::string> AsStored(const std::string& file, const Column& column,
                                    const Value& value) {
  if (IsNull(value)) {
    return std::nullopt;
  }
  switch (column.Type.value_or(ColumnType::Text)) {
    case ColumnType::WholeNumber:
      return WholeNumber(file, column, value);
    case ColumnType::Double:
      return Double(file, column, value);
    case ColumnType::Day:
      return Day(file, column, value);
    case ColumnType::Text:
      break;
  }
  return Text(file, column, value);
}

std::string CastFor(const Column& column) {
  if (!column.Type) {
    return "::" + column.TypeName;
  }
  switch (*column.Type) {
    case ColumnType::WholeNumber:
      return "::bigint";
    case ColumnType::Double:
      return "::double precision";
    case ColumnType::Day:
      return "::date";
    case ColumnType::Text:
      break;
  }
  return "::text";
}

std::string NumberText(double number) {
  if (std::isnan(number)) {
    return "NaN";
  }
  if (std::isinf(number)) {
    return number < 0 ? "-Infinity" : "Infinity";
  }
  std::array<char, 32> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), end};
}

RowReader::RowReader(Result result) : result_(std::move(result)) {
  for (int column = 0; column < result_.ColumnCount(); ++column) {
    std::string name = result_.ColumnName(column);
    if (name == kRowColumn) {
      row_column_ = column;
    } else if (name == kFoundColumn) {
      found_column_ = column;
    } else {
      names_.push_back(std::move(name));
    }
    types_.push_back(TypeOf(result_.Type(column)).value_or(ColumnType::Text));
  }
}

Row RowReader::At(int row) const {
  Row read;
  read.Values.reserve(names_.size());
  for (int column = 0; column < static_cast<int>(types_.size()); ++column) {
    if (column == row_column_) {
      read.Key = result_.Number(row, column);
    } else if (column != found_column_) {
      read.Values.push_back(Cell(row, column));
    }
  }
  return read;
}

Value RowReader::Cell(int row, int column) const {
  if (result_.IsNull(row, column)) {
    return Null{};
  }
  std::string text = result_.Text(row, column);
  switch (types_[static_cast<std::size_t>(column)]) {
    case ColumnType::WholeNumber:
      return Read<std::int64_t>(text).value_or(0);
    case ColumnType::Double:
      return ReadDouble(text);
    case ColumnType::Day:
      if (const auto day = DateFromIsoText(text)) {
        return *day;
      }
      break;
    case ColumnType::Text:
      break;
  }
  return text;
}

}  // namespace veyra::postgres
