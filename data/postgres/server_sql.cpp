#include "data/postgres/server_sql.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "data/postgres/quoted.h"
#include "data/postgres/sql_text.h"

namespace veyra::postgres {

namespace {

/// In these texts @S stands for the schema in double quotes, @C for its name as a text and @K for
/// the number that tells its locks from those of other schemas.
constexpr const char* kFunctions = R"sql(
CREATE OR REPLACE FUNCTION @S.lock_place(facility bigint, day date) RETURNS integer
LANGUAGE sql IMMUTABLE AS $veyra$
  -- So few that a transaction over many days never asks for more locks than a server has.
  SELECT (((facility % 1024) * 31 + (day - date '2000-01-01')) % 1024)::integer
$veyra$;

CREATE OR REPLACE FUNCTION @S.lock_days(facilities bigint[], days date[]) RETURNS void
LANGUAGE plpgsql AS $veyra$
DECLARE
  place integer;
BEGIN
  FOR place IN
    SELECT DISTINCT @S.lock_place(f, d) AS p FROM unnest(facilities, days) AS t(f, d)
    WHERE f IS NOT NULL AND d IS NOT NULL ORDER BY p
  LOOP
    PERFORM pg_catalog.pg_advisory_xact_lock(@K, place);
  END LOOP;
END
$veyra$;

CREATE OR REPLACE FUNCTION @S.guard_booking() RETURNS trigger
LANGUAGE plpgsql AS $veyra$
DECLARE
  taken text;
BEGIN
  IF NEW."RmID" IS NULL OR NEW."DateOfRes" IS NULL THEN
    RETURN NEW;
  END IF;
  PERFORM pg_catalog.pg_advisory_xact_lock(@K, @S.lock_place(NEW."RmID", NEW."DateOfRes"));
  SELECT pg_catalog.string_agg(line, E'\x1e') INTO taken FROM (
    SELECT "TimeFrom" || ' ' || "TimeTo" || ' '
      || pg_catalog.translate(coalesce("Event", ''), E'\x1e', ' ') AS line
    FROM @S."Reserv"
    WHERE "RmID" = NEW."RmID" AND "DateOfRes" = NEW."DateOfRes"
      AND "TimeFrom" <= NEW."TimeTo" AND "TimeTo" >= NEW."TimeFrom"
      AND veyra_row <> NEW.veyra_row
      AND xmin::text <> pg_catalog.pg_current_xact_id()::xid::text
      AND veyra_row || ' ' || "TimeFrom" || ' ' || "TimeTo" <> ALL (pg_catalog.string_to_array(
        coalesce(pg_catalog.current_setting('veyra.seen', true), ''), ','))
    ORDER BY "TimeFrom", veyra_row LIMIT 20) AS others;
  IF taken IS NOT NULL THEN
    RAISE EXCEPTION USING ERRCODE = 'VY001',
      MESSAGE = 'Somebody else has booked these times meanwhile.', DETAIL = taken;
  END IF;
  RETURN NEW;
END
$veyra$;

CREATE OR REPLACE FUNCTION @S.tell(changed text, kind text, facility bigint, day date)
RETURNS void LANGUAGE plpgsql AS $veyra$
BEGIN
  PERFORM pg_catalog.pg_notify(@C,
    coalesce(nullif(pg_catalog.current_setting('veyra.desk', true), ''), '-') || ' ' || changed
    || ' ' || kind || ' ' || coalesce(facility::text, '-') || ' '
    || coalesce(pg_catalog.to_char(day, 'YYYY-MM-DD'), '-'));
END
$veyra$;

CREATE OR REPLACE FUNCTION @S.tell_booking() RETURNS trigger
LANGUAGE plpgsql AS $veyra$
BEGIN
  IF TG_OP <> 'INSERT' THEN
    PERFORM @S.tell('Reserv', TG_OP, OLD."RmID", OLD."DateOfRes");
  END IF;
  -- The same notice twice in one transaction is sent once.
  IF TG_OP <> 'DELETE' THEN
    PERFORM @S.tell('Reserv', TG_OP, NEW."RmID", NEW."DateOfRes");
  END IF;
  RETURN NULL;
END
$veyra$;

CREATE OR REPLACE FUNCTION @S.tell_facility() RETURNS trigger
LANGUAGE plpgsql AS $veyra$
BEGIN
  IF TG_OP = 'DELETE' THEN
    PERFORM @S.tell('Rooms', TG_OP, OLD."ID", NULL);
  ELSE
    PERFORM @S.tell('Rooms', TG_OP, NEW."ID", NULL);
  END IF;
  RETURN NULL;
END
$veyra$;

CREATE OR REPLACE FUNCTION @S.tell_settings() RETURNS trigger
LANGUAGE plpgsql AS $veyra$
BEGIN
  PERFORM @S.tell('Settings', TG_OP, NULL, NULL);
  RETURN NULL;
END
$veyra$;
)sql";

/// No place that lock_place gives.
constexpr int kOpenLock = 5000;

constexpr const char* kGuardTrigger = R"sql(
CREATE TRIGGER veyra_guard_new BEFORE INSERT ON @T
  FOR EACH ROW EXECUTE FUNCTION @S.guard_booking();
CREATE TRIGGER veyra_guard_moved BEFORE UPDATE OF "RmID", "DateOfRes", "TimeFrom", "TimeTo" ON @T
  FOR EACH ROW EXECUTE FUNCTION @S.guard_booking();
)sql";

constexpr const char* kTellTrigger = R"sql(
CREATE TRIGGER veyra_tell AFTER INSERT OR UPDATE OR DELETE ON @T
  FOR EACH ROW EXECUTE FUNCTION @S.@F();
)sql";

constexpr const char* kGrants = R"sql(
GRANT USAGE ON SCHEMA @S TO @R;
GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA @S TO @R;
GRANT USAGE, SELECT, UPDATE ON ALL SEQUENCES IN SCHEMA @S TO @R;
ALTER DEFAULT PRIVILEGES IN SCHEMA @S GRANT SELECT, INSERT, UPDATE, DELETE ON TABLES TO @R;
ALTER DEFAULT PRIVILEGES IN SCHEMA @S GRANT USAGE, SELECT, UPDATE ON SEQUENCES TO @R;
)sql";

void Replace(std::string& text, std::string_view mark, const std::string& with) {
  for (std::size_t at = text.find(mark); at != std::string::npos;
       at = text.find(mark, at + with.size())) {
    text.replace(at, mark.size(), with);
  }
}

/// The same number in every version of the program.
std::int32_t LockNumber(std::string_view schema) {
  std::uint32_t number = 2166136261U;
  for (const char c : schema) {
    number = (number ^ static_cast<unsigned char>(c)) * 16777619U;
  }
  return static_cast<std::int32_t>(number & 0x7FFFFFFFU);
}

std::string Filled(std::string text, const std::string& schema) {
  Replace(text, "@S", Quoted(schema));
  Replace(text, "@C", TextLiteral(schema));
  Replace(text, "@K", std::to_string(LockNumber(schema)));
  return text;
}

bool Has(const TableDefinition& table, const char* name, ColumnType type) {
  return std::any_of(table.Columns.begin(), table.Columns.end(), [&](const auto& column) {
    return column.Name == name && column.Type == type;
  });
}

bool HasBookings(const TableDefinition& table) {
  return table.Name == "Reserv" && Has(table, "RmID", ColumnType::WholeNumber) &&
         Has(table, "DateOfRes", ColumnType::Day) &&
         Has(table, "TimeFrom", ColumnType::WholeNumber) &&
         Has(table, "TimeTo", ColumnType::WholeNumber) && Has(table, "Event", ColumnType::Text);
}

std::string TellTrigger(const char* function) {
  std::string trigger = kTellTrigger;
  Replace(trigger, "@F", function);
  return trigger;
}

std::string TriggersOf(const TableDefinition& table) {
  if (HasBookings(table)) {
    return kGuardTrigger + TellTrigger("tell_booking");
  }
  if (table.Name == "Rooms" && Has(table, "ID", ColumnType::WholeNumber)) {
    return TellTrigger("tell_facility");
  }
  return table.Name == "Settings" ? TellTrigger("tell_settings") : std::string();
}

}  // namespace

std::string FunctionsSql(const std::string& schema) {
  return Filled(kFunctions, schema);
}

std::string TriggersSql(const std::string& schema, const TableDefinition& table) {
  std::string triggers = TriggersOf(table);
  Replace(triggers, "@T", FullName({.File = {}, .Schema = schema}, table.Name));
  return Filled(triggers, schema);
}

std::string AdministratorSql(const std::string& schema, const std::string& role,
                             const std::vector<TableDefinition>& tables) {
  const Place place{.File = {}, .Schema = schema};
  std::string sql = "BEGIN;\nCREATE SCHEMA " + Quoted(schema) + ";\n" + FunctionsSql(schema) + "\n";
  for (const TableDefinition& table : tables) {
    sql += CreateTableSql(place, table) + ";\n";
    for (const IndexDefinition& index : table.Indexes) {
      sql += CreateIndexSql(place, table.Name, index) + ";\n";
    }
    sql += TriggersSql(schema, table);
  }
  std::string grants = kGrants;
  Replace(grants, "@R", Quoted(role));
  return sql + Filled(grants, schema) + "COMMIT;\n";
}

std::string LockDaysSql(const std::string& schema) {
  return Filled("SELECT @S.lock_days($1::bigint[], $2::date[])", schema);
}

std::string OpenLockSql(const std::string& schema, bool alone) {
  const std::string function = alone ? "pg_try_advisory_lock" : "pg_try_advisory_lock_shared";
  return Filled("SELECT pg_catalog." + function + "(@K, " + std::to_string(kOpenLock) + ")",
                schema);
}

}  // namespace veyra::postgres
