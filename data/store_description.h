#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/column_type.h"

namespace veyra {

/// The kinds of database file that a calendar may be kept in, and a server that a link leads to.
enum class FileKind { Sqlite, Access, Postgres };

struct ColumnDescription {
  std::string Name;
  std::string TypeName = {};  ///< What this kind of file calls the type; may be empty.
  std::optional<ColumnType> Type =
      {};        ///< The type that its values are of; nothing when any may be.
  int Size = 0;  ///< Text: the most characters; else bytes. 0: no limit, or not declared.
  bool AutoNumber = false;  ///< The key, given by the store to each new row.
  bool IsReadable = true;   ///< A store gives its values; if not, they read as null.
};

struct IndexDescription {
  std::string Name;
  std::vector<std::string> Columns = {};  ///< Empty names for what is not a column.
  bool IsUnique = false;
};

struct TableDescription {
  std::string Name;
  bool IsView = false;  ///< It has no rows of its own: a query that the file keeps.
  std::vector<ColumnDescription> Columns = {};
  std::vector<IndexDescription> Indexes = {};
  std::int64_t RowCount = 0;
};

/// A database file as it describes itself.
struct StoreDescription {
  FileKind Kind = FileKind::Sqlite;
  std::string KindName = {};  ///< "Access 2000-2003"
  std::string Version =
      {};  ///< Of the format, and of the program that wrote it where that is told.
  std::string CodePage = {};  ///< How its texts are written: "1252", "UTF-8".
  bool IsEncoded = false;     ///< Its pages are, so that they tell nothing without a key.
  int OtherObjects = 0;       ///< Queries, forms, reports, links: what is not a table.
  bool IsWritable = true;     ///< Whether this program writes files of this kind at all.
  std::vector<TableDescription> Tables = {};
};

}  // namespace veyra
