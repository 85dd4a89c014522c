#include "data/query.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "data/ascii.h"
#include "data/date.h"
#include "data/errors.h"
#include "data/names.h"

namespace veyra {

namespace {

/// Parentheses inside parentheses beyond this are refused: the parser and the stores recurse.
constexpr int kDeepestNesting = 50;

using ascii::IsDigit;

/// Bytes of characters beyond ASCII count as letters.
bool IsLetter(char c) {
  return ascii::IsLetter(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsKeyWord(std::string_view name) {
  for (const std::string_view word :
       {"SELECT", "FROM", "WHERE", "ORDER", "BY", "AND", "OR", "ASC", "DESC"}) {
    if (SameName(name, word)) {
      return true;
    }
  }
  return false;
}

/// Reads the text from left to right, each routine one piece of the grammar in query.h.
class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  Query ReadQuery() {
    Query query;
    ExpectWord("SELECT");
    Expect('*');
    ExpectWord("FROM");
    query.Table = ReadName();
    if (TakeWord("WHERE")) {
      query.Where = ReadCondition();
    }
    if (TakeWord("ORDER")) {
      query.OrderBy = ReadOrder();
    }
    Take(';');
    SkipBlanks();
    if (!AtEnd()) {
      Fail("the end of the text");
    }
    return query;
  }

 private:
  Condition ReadCondition() {
    return ReadJoined("OR", Junction::Kind::Or, &Parser::ReadConjunction);
  }

  Condition ReadConjunction() {
    return ReadJoined("AND", Junction::Kind::And, &Parser::ReadPrimary);
  }

  Condition ReadJoined(std::string_view word, Junction::Kind kind, Condition (Parser::*part)()) {
    Condition first = (this->*part)();
    if (!TakeWord(word)) {
      return first;
    }
    Junction joined{kind, {}};
    joined.Parts.push_back(std::move(first));
    do {
      joined.Parts.push_back((this->*part)());
    } while (TakeWord(word));
    return joined;
  }

  Condition ReadPrimary() {
    if (!Take('(')) {
      return ReadComparison();
    }
    if (++nesting_ > kDeepestNesting) {
      Fail("fewer parentheses inside parentheses");
    }
    Condition condition = ReadCondition();
    Expect(')');
    --nesting_;
    return condition;
  }

  Comparison ReadComparison() {
    Comparison comparison;
    comparison.Left = ReadOperand();
    comparison.Test = ReadTest();
    comparison.Right = ReadOperand();
    return comparison;
  }

  Relation ReadTest() {
    if (Take('=')) {
      return Relation::Equal;
    }
    if (Take('<')) {
      if (TakeNext('>')) {
        return Relation::NotEqual;
      }
      return TakeNext('=') ? Relation::LessOrEqual : Relation::Less;
    }
    if (Take('>')) {
      return TakeNext('=') ? Relation::GreaterOrEqual : Relation::Greater;
    }
    Fail("a comparison");
  }

  Operand ReadOperand() {
    SkipBlanks();
    if (Take('#')) {
      return Value(ReadDate());
    }
    if (Take('\'')) {
      return Value(ReadText());
    }
    if (IsDigit(Peek()) || Peek() == '-' || Peek() == '.') {
      return ReadNumber();
    }
    return ColumnName{ReadName()};
  }

  Value ReadNumber() {
    const std::size_t start = at_;
    TakeNext('-');
    const std::size_t whole_digits = SkipDigits();
    const bool has_point = TakeNext('.');
    const std::size_t digits = whole_digits + (has_point ? SkipDigits() : 0);
    const bool has_exponent = digits > 0 && SkipExponent();
    if (digits == 0 || IsLetter(Peek())) {
      Fail("a number");
    }
    return NumberOf(text_.substr(start, at_ - start), !has_point && !has_exponent);
  }

  /// Moves past an exponent such as "e+20" if one comes right here.
  bool SkipExponent() {
    const std::size_t start = at_;
    const bool begins = TakeNext('e') || TakeNext('E');
    if (begins && !TakeNext('+')) {
      TakeNext('-');
    }
    if (begins && SkipDigits() > 0) {
      return true;
    }
    at_ = start;
    return false;
  }

  /// A whole number too long for 64 bits is read as the nearest double.
  Value NumberOf(std::string_view digits, bool is_whole) {
    const char* end = digits.data() + digits.size();
    std::int64_t whole = 0;
    if (is_whole && std::from_chars(digits.data(), end, whole).ec == std::errc{}) {
      return whole;
    }
    double number = 0;
    if (std::from_chars(digits.data(), end, number).ec != std::errc{}) {
      Fail("a smaller number");
    }
    return number;
  }

  Date ReadDate() {
    const int month = ReadDatePart(2);
    if (!TakeNext('/')) {
      Fail("a date as month/day/year");
    }
    const int day = ReadDatePart(2);
    if (!TakeNext('/')) {
      Fail("a date as month/day/year");
    }
    const int year = ReadDatePart(4);
    if (!TakeNext('#')) {
      Fail("a # at the end of the date");
    }
    const std::optional<Date> date = MakeDate(year, month, day);
    if (!date) {
      Fail("a date that exists");
    }
    return *date;
  }

  int ReadDatePart(std::size_t most_digits) {
    int number = 0;
    std::size_t digits = 0;
    for (; digits < most_digits && IsDigit(Peek()); ++digits, ++at_) {
      number = number * 10 + (Peek() - '0');
    }
    if (digits == 0) {
      Fail("a date as month/day/year");
    }
    return number;
  }

  /// The text up to the closing quote; the opening one has been taken.
  std::string ReadText() {
    std::string text;
    while (true) {
      if (AtEnd()) {
        Fail("a ' at the end of the text");
      }
      const char c = text_[at_++];
      if (c == '\'' && !TakeNext('\'')) {
        return text;
      }
      text += c;
    }
  }

  std::string ReadName() {
    if (Take('[')) {
      return ReadBracketedName();
    }
    const std::size_t start = at_;
    if (!IsLetter(Peek())) {
      Fail("a name");
    }
    while (IsLetter(Peek()) || IsDigit(Peek())) {
      ++at_;
    }
    std::string name(text_.substr(start, at_ - start));
    if (IsKeyWord(name)) {
      at_ = start;
      Fail("a name");
    }
    return name;
  }

  std::string ReadBracketedName() {
    const std::size_t start = at_;
    const std::size_t end = text_.find(']', start);
    if (end == std::string_view::npos || end == start) {
      Fail("a name between [ and ]");
    }
    at_ = end + 1;
    return std::string(text_.substr(start, end - start));
  }

  std::vector<OrderTerm> ReadOrder() {
    ExpectWord("BY");
    std::vector<OrderTerm> order;
    do {
      OrderTerm term{ReadName()};
      term.Descending = TakeWord("DESC");
      if (!term.Descending) {
        TakeWord("ASC");
      }
      order.push_back(std::move(term));
    } while (Take(','));
    return order;
  }

  bool AtEnd() const { return at_ == text_.size(); }

  /// The next character; a blank at the end of the text, which no caller looks for.
  char Peek() const { return AtEnd() ? ' ' : text_[at_]; }

  void SkipBlanks() {
    while (!AtEnd() && IsBlank(text_[at_])) {
      ++at_;
    }
  }

  std::size_t SkipDigits() {
    const std::size_t start = at_;
    while (IsDigit(Peek())) {
      ++at_;
    }
    return at_ - start;
  }

  /// Takes the character if it comes right here.
  bool TakeNext(char c) {
    if (AtEnd() || text_[at_] != c) {
      return false;
    }
    ++at_;
    return true;
  }

  /// Takes the character if it comes after any blanks.
  bool Take(char c) {
    SkipBlanks();
    return TakeNext(c);
  }

  bool TakeWord(std::string_view word) {
    SkipBlanks();
    if (!SameName(text_.substr(at_, word.size()), word)) {
      return false;
    }
    const std::size_t end = at_ + word.size();
    if (end < text_.size() && (IsLetter(text_[end]) || IsDigit(text_[end]))) {
      return false;
    }
    at_ = end;
    return true;
  }

  void Expect(char c) {
    if (!Take(c)) {
      Fail(std::string("\"") + c + '"');
    }
  }

  void ExpectWord(std::string_view word) {
    if (!TakeWord(word)) {
      Fail(std::string(word));
    }
  }

  [[noreturn]] void Fail(const std::string& expected) const {
    throw DatabaseError(
        {{},
         Phrase::Tr("The query \"%1\" was not understood: character %2 should begin %3.",
                    std::string(text_), at_ + 1, expected),
         Phrase::Tr("This is a fault of the program. Please report it with this text.")});
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int nesting_ = 0;
};

}  // namespace

Query ParseQuery(std::string_view sql) {
  return Parser(sql).ReadQuery();
}

}  // namespace veyra
