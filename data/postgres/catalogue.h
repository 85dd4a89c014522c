#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/column_type.h"
#include "data/postgres/session.h"

namespace veyra::postgres {

/// In every table of a shared calendar, before its own columns: the row's number, given in the
/// order in which rows are added and never again. Not one of the columns that a store gives.
inline constexpr const char* kRowColumn = "veyra_row";

/// In the rows that SelectDaySql gives, after their own columns: whether the query is satisfied.
inline constexpr const char* kFoundColumn = "veyra_found";

struct Column {
  std::string Name;
  std::string TypeName;
  std::optional<ColumnType> Type;  ///< Nothing for a type that this program makes no column of.
  bool IsAuto = false;             ///< The server numbers it.
};

/// A table or view of the schema.
struct Table {
  std::string Name;  ///< As the server spells it.
  bool IsView = false;
  bool HasRowColumn = false;    ///< Rows can be told apart.
  std::vector<Column> Columns;  ///< Without kRowColumn.
};

/// What tables and columns the schema has. Asked of the server once; whoever meets another state
/// of things forgets it.
class Catalogue {
 public:
  explicit Catalogue(Session& session) : session_(session) {}

  /// The tables and views in the order of their making.
  std::vector<std::string> TableNames();

  /// The table, found without regard to ASCII letter case; stays where it is until Forget. Throws
  /// MissingItemError when there is none.
  const Table& Find(const std::string& name);

  /// Asks anew when it is next needed.
  void Forget() { tables_.reset(); }

 private:
  const std::vector<Table>& Tables();
  const Table* Look(const std::string& name);

  Session& session_;
  std::optional<std::vector<Table>> tables_;
};

/// The column, found without regard to ASCII letter case. Throws MissingItemError, which names
/// `file`, when there is none.
const Column& FindColumn(const std::string& file, const Table& table, const std::string& name);

/// The type of the values of a server's type, by the number by which it knows it; nothing for one
/// that this program makes no column of.
std::optional<ColumnType> TypeOf(unsigned server_type);

}  // namespace veyra::postgres
