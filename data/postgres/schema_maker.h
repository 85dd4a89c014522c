#pragma once

#include <string>
#include <vector>

#include "data/postgres/catalogue.h"
#include "data/postgres/sql_text.h"
#include "data/store.h"

namespace veyra::postgres {

/// Makes and changes what the calendar's schema holds beside rows. REQUIRES of every member that
/// changes something: a transaction is open. Throws Failure, and as Store does.
class SchemaMaker {
 public:
  SchemaMaker(Session& session, Catalogue& catalogue, const Place& place)
      : session_(session), catalogue_(catalogue), place_(place) {}

  /// Makes the schema and the server's functions; takes a schema as it is that an administrator has
  /// made before.
  void MakeSchema();
  void EndMaking() { is_making_ = false; }

  /// Makes a table with its indexes and triggers, without its first rows. In a calendar that is
  /// being made, a table that is there, is empty and has these columns is taken as it is.
  void MakeTable(const TableDefinition& definition);

  /// Adds a column and fills it.
  void AddColumn(const std::string& table, const ColumnDefinition& column);

  /// Sees to it that the server gives no number that one of these rows is to have.
  void KeepNumbersAhead(const Table& table, const std::vector<FieldValues>& rows);

  bool KeepsJournal();
  void KeepJournal(bool keep);

 private:
  void RequireEmpty(const TableDefinition& definition);
  void MakeJournal();
  void EnterChanges(const std::string& table);
  bool Has(const std::string& table);

  Session& session_;
  Catalogue& catalogue_;
  const Place& place_;
  bool is_making_ = false;
};

}  // namespace veyra::postgres
