#include "data/shared_calendar.h"

#include "data/postgres/link_check.h"
#include "data/postgres/postgres_store.h"
#include "data/postgres/server_sql.h"
#include "data/schema.h"

namespace veyra {

std::unique_ptr<CalendarInMaking> BeginSharedCalendar(const std::filesystem::path& file,
                                                      const CalendarLink& link) {
  return postgres::CreateSharedCalendar(link, file.string());
}

std::string SharedCalendarSql(const std::string& schema, const std::string& role) {
  return postgres::AdministratorSql(schema, role, CalendarTables());
}

Phrase LinkWarning(const std::filesystem::path& file, const CalendarLink& link) {
  const postgres::LinkFacts facts = postgres::CheckLink(file.string(), link);
  if (!facts.IsRemote || facts.Tls == "verify-full") {
    return {};
  }
  return Phrase::Tr(
      "The link says sslmode=%1: whoever stands between this machine and the server "
      "could pass for it. Without that word it is sslmode=verify-full.",
      facts.Tls);
}

}  // namespace veyra
