#include "data/postgres/greeting.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>

#include "data/errors.h"
#include "data/postgres/server_sql.h"

namespace veyra::postgres {

namespace {

/// Whatever the server or the account is set to: dates in the order of ISO, numbers to the last
/// digit, and what is saved is on the disk.
constexpr const char* kSettings =
    "SELECT pg_catalog.set_config('datestyle', 'ISO, YMD', false),"
    " pg_catalog.set_config('extra_float_digits', '1', false),"
    " pg_catalog.set_config('lock_timeout', $1, false),"
    " pg_catalog.set_config('veyra.desk', $2, false),"
    " pg_catalog.set_config('synchronous_commit', CASE"
    " pg_catalog.current_setting('synchronous_commit') WHEN 'off' THEN 'on'"
    " ELSE pg_catalog.current_setting('synchronous_commit') END, false),"
    " pg_catalog.set_config('default_transaction_read_only', $3, false),"
    " EXISTS (SELECT FROM pg_catalog.pg_namespace WHERE nspname = $4)";
constexpr int kSchemaIsThere = 6;

std::string NewDeskName() {
  std::random_device random;
  std::array<char, 9> text{};
  std::snprintf(text.data(), text.size(), "%08x", random());
  return text.data();
}

std::string LockTimeout(const WaitPolicy& policy) {
  // The server takes 0 for no limit.
  return std::to_string(std::max<long long>(policy.Timeout.count(), 1));
}

/// One that needs the calendar for itself is kept apart from those that have it open.
void TakePlace(Session& session, StoreAccess access) {
  if (access == StoreAccess::ReadOnly) {
    return;
  }
  const std::string sql = OpenLockSql(session.link().Schema, access == StoreAccess::Exclusive);
  Wait wait(session.policy());
  while (!session.Run(sql).IsTrue(0, 0)) {
    if (!wait.GoOn()) {
      throw DatabaseBusyError(
          {session.file(),
           Phrase::Tr("Another desk has the calendar open and did not let go of it."),
           Phrase::Tr("Wait until the other desk has finished, and try again.")});
    }
  }
}

}  // namespace

void Greet(Session& session, const Greeting& greeting) {
  const bool is_read_only = greeting.Access == StoreAccess::ReadOnly;
  const std::string& schema = session.link().Schema;
  const Result found = session.Run(kSettings, {LockTimeout(session.policy()), NewDeskName(),
                                               is_read_only ? "on" : "off", schema});
  if (greeting.SchemaIsThere && !found.IsTrue(0, kSchemaIsThere)) {
    throw DatabaseError({session.file(),
                         Phrase::Tr("The server has no calendar in the schema \"%1\".", schema),
                         Phrase::Tr("Check that the link names the right database. \"veyra-data "
                                    "share\" puts a calendar there.")});
  }
  TakePlace(session, greeting.Access);
}

}  // namespace veyra::postgres
