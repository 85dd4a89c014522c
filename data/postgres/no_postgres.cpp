#include "data/errors.h"
#include "data/postgres/link_check.h"
#include "data/postgres/postgres_store.h"
#include "data/postgres/server_sql.h"

namespace veyra::postgres {

namespace {

[[noreturn]] void Fail(const std::string& file) {
  throw DatabaseError({file,
                       Phrase::Tr("The calendar is shared on a server, and this program was built "
                                  "without what talks to such servers."),
                       Phrase::Tr("Use a program that was built with it.")});
}

}  // namespace

std::unique_ptr<Store> OpenPostgres(const CalendarLink&, const std::string& file, StoreAccess,
                                    const WaitPolicy&) {
  Fail(file);
}

std::unique_ptr<CalendarInMaking> CreateSharedCalendar(const CalendarLink&, const std::string& file,
                                                       const WaitPolicy&) {
  Fail(file);
}

std::string AdministratorSql(const std::string&, const std::string&,
                             const std::vector<TableDefinition>&) {
  Fail({});
}

LinkFacts CheckLink(const std::string& file, const CalendarLink&) {
  Fail(file);
}

}  // namespace veyra::postgres
