#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/sqlite/database.h"
#include "data/value.h"

struct sqlite3_stmt;

namespace veyra::sqlite {

/// A prepared statement. Every member throws as ThrowError does.
class Statement {
 public:
  Statement(Database& database, std::string_view sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  /// Gives the parameters, in their order, values to use. The values must outlive the steps: texts
  /// are not copied.
  void Bind(const std::vector<Value>& values);

  /// Goes to the next row and returns true; returns false when there is none, or none any more.
  bool Step();

  /// Steps to the end. For statements that give no rows.
  void Run();

  /// Ends the run, and with it any lock it holds; the statement may be bound and run again.
  void Reset();

  /// REQUIRES: Step returned true; 0 <= column < ColumnCount().
  Value Column(int column) const;
  std::int64_t Integer(int column) const;
  std::string Text(int column) const;

  int ColumnCount() const;

 private:
  void BindOne(int parameter, const Value& value);

  Database& database_;
  sqlite3_stmt* statement_ = nullptr;
};

/// Keeps prepared statements for the next query of the same text.
class StatementCache {
 public:
  /// A statement out of the cache. It goes back, reset, when the handle is dropped.
  class Handle {
   public:
    Handle(StatementCache& cache, std::string sql, std::unique_ptr<Statement> statement);
    ~Handle();
    Handle(Handle&&) noexcept = default;
    Handle& operator=(Handle&&) = delete;

    Statement* operator->() const { return statement_.get(); }
    Statement& operator*() const { return *statement_; }

   private:
    StatementCache* cache_;
    std::string sql_;
    std::unique_ptr<Statement> statement_;
  };

  explicit StatementCache(Database& database) : database_(database) {}

  /// A statement of that text that nobody else uses: a kept one, or a new one.
  Handle Take(std::string sql);

  void Clear() { kept_.clear(); }

 private:
  void GiveBack(std::string sql, std::unique_ptr<Statement> statement);

  Database& database_;
  std::unordered_map<std::string, std::unique_ptr<Statement>> kept_;
};

}  // namespace veyra::sqlite
