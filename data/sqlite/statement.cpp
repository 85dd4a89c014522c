#include "data/sqlite/statement.h"

#include <sqlite3.h>

#include <utility>

namespace veyra::sqlite {

namespace {

/// The program asks a dozen kinds of question; more than this are not worth keeping.
constexpr std::size_t kMostKept = 64;

}  // namespace

Statement::Statement(Database& database, std::string_view sql) : database_(database) {
  database_.Check(sqlite3_prepare_v3(database_.handle(), sql.data(), static_cast<int>(sql.size()),
                                     SQLITE_PREPARE_PERSISTENT, &statement_, nullptr));
}

Statement::~Statement() {
  sqlite3_finalize(statement_);
}

void Statement::Bind(const std::vector<Value>& values) {
  int parameter = 0;
  for (const Value& value : values) {
    BindOne(++parameter, value);
  }
}

void Statement::BindOne(int parameter, const Value& value) {
  int code = SQLITE_OK;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    code = sqlite3_bind_int64(statement_, parameter, *whole);
  } else if (const auto* number = std::get_if<double>(&value)) {
    code = sqlite3_bind_double(statement_, parameter, *number);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    code = sqlite3_bind_text64(statement_, parameter, text->data(), text->size(), SQLITE_STATIC,
                               SQLITE_UTF8);
  } else if (const auto* date = std::get_if<Date>(&value)) {
    const std::string iso = IsoText(*date);
    code = sqlite3_bind_text64(statement_, parameter, iso.data(), iso.size(), SQLITE_TRANSIENT,
                               SQLITE_UTF8);
  } else {
    code = sqlite3_bind_null(statement_, parameter);
  }
  database_.Check(code);
}

bool Statement::Step() {
  const int code = sqlite3_step(statement_);
  database_.EndWait();
  if (code == SQLITE_ROW) {
    return true;
  }
  if (code != SQLITE_DONE) {
    database_.Check(code);
  }
  return false;
}

void Statement::Run() {
  while (Step()) {
  }
}

void Statement::Reset() {
  // The code tells of the last step, which has been reported already.
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

Value Statement::Column(int column) const {
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_INTEGER:
      return Integer(column);
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement_, column);
    case SQLITE_NULL:
      return Null{};
    default:
      return Text(column);
  }
}

std::int64_t Statement::Integer(int column) const {
  return sqlite3_column_int64(statement_, column);
}

std::string Statement::Text(int column) const {
  const bool is_blob = sqlite3_column_type(statement_, column) == SQLITE_BLOB;
  const void* bytes =
      is_blob ? sqlite3_column_blob(statement_, column) : sqlite3_column_text(statement_, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
  return bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), size);
}

int Statement::ColumnCount() const {
  return sqlite3_column_count(statement_);
}

StatementCache::Handle::Handle(StatementCache& cache, std::string sql,
                               std::unique_ptr<Statement> statement)
    : cache_(&cache), sql_(std::move(sql)), statement_(std::move(statement)) {}

StatementCache::Handle::~Handle() {
  if (statement_ != nullptr) {
    cache_->GiveBack(std::move(sql_), std::move(statement_));
  }
}

StatementCache::Handle StatementCache::Take(std::string sql) {
  const auto found = kept_.find(sql);
  if (found == kept_.end() || found->second == nullptr) {
    auto statement = std::make_unique<Statement>(database_, sql);
    return Handle(*this, std::move(sql), std::move(statement));
  }
  return Handle(*this, std::move(sql), std::move(found->second));
}

void StatementCache::GiveBack(std::string sql, std::unique_ptr<Statement> statement) {
  statement->Reset();
  if (kept_.size() >= kMostKept) {
    Clear();
  }
  kept_.insert_or_assign(std::move(sql), std::move(statement));
}

}  // namespace veyra::sqlite
