#include "tests/faults/contents.h"

#include <sqlite3.h>

#include <fstream>
#include <memory>

#include "data/access/write/journal_writer.h"
#include "data/connection.h"
#include "data/open_store.h"
#include "tests/data/access/index_check.h"

namespace veyra::faults {

namespace {

std::string SqliteDamage(const std::string& calendar) {
  sqlite3* handle = nullptr;
  if (sqlite3_open_v2(calendar.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    sqlite3_close(handle);
    return "cannot be opened";
  }
  std::string found;
  const auto add_line = [](void* text, int, char** columns, char**) {
    *static_cast<std::string*>(text) += columns[0];
    return 0;
  };
  char* error = nullptr;
  if (sqlite3_exec(handle, "PRAGMA integrity_check", add_line, &found, &error) != SQLITE_OK) {
    found = error != nullptr ? error : "cannot be checked";
  }
  sqlite3_free(error);
  sqlite3_close(handle);
  return found == "ok" ? "" : found;
}

std::string AccessDamage(const std::string& calendar) {
  std::string found;
  for (const std::string& table : OpenStore(calendar, StoreAccess::ReadWrite)->TableNames()) {
    found += IndexFaults(calendar, table);
  }
  return found;
}

}  // namespace

std::string Contents(const std::string& calendar) {
  Connection connection(OpenStore(calendar, StoreAccess::ReadWrite));
  std::string text;
  for (const std::string& table : connection.TableNames()) {
    if (table == access::kJournalSwitch) {
      continue;
    }
    const auto columns = connection.ColumnNames(table);
    const auto rows =
        connection.Open("SELECT * FROM [" + table + "]", CursorType::ForwardOnlyReadOnly);
    text += table + " " + std::to_string(columns.size()) + "\n";
    for (; !rows->AtEnd(); rows->MoveNext()) {
      for (const std::string& column : columns) {
        text += ToText(rows->Field(column)) + "|";
      }
      text += "\n";
    }
  }
  return text;
}

std::string Damage(const std::string& calendar) {
  std::ifstream file(calendar, std::ios::binary);
  std::string start(6, '\0');
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  return start == "SQLite" ? SqliteDamage(calendar) : AccessDamage(calendar);
}

}  // namespace veyra::faults
