#include "data/postgres/connecting.h"

#include <chrono>
#include <vector>

#include "data/errors.h"
#include "data/postgres/reply_wait.h"

namespace veyra::postgres {

namespace {

constexpr std::chrono::milliseconds kConnecting{15'000};

/// What comes before the link in the list gives way to what the link says itself.
PGconn* Start(const Libpq& libpq, const Address& address) {
  std::vector<const char*> names = {"fallback_application_name", "tcp_user_timeout",
                                    "keepalives_idle", "keepalives_interval"};
  std::vector<const char*> values = {"veyra-calendar", "20000", "20", "5"};
  if (!address.Facts.NamesTls && !address.Facts.Tls.empty()) {
    names.push_back("sslmode");
    values.push_back(address.Facts.Tls.c_str());
  }
  names.insert(names.end(), {"dbname", "client_encoding", nullptr});
  values.insert(values.end(), {address.Link.Server.c_str(), "UTF8", nullptr});
  return libpq.ConnectStart(names.data(), values.data(), 1);
}

[[noreturn]] void Fail(const Libpq& libpq, const Address& address, PGconn* connection) {
  const Phrase why = connection == nullptr ? Phrase::Tr("too little memory")
                                           : Phrase(FirstLine(libpq.ErrorMessage(connection)));
  const bool needs_password = connection != nullptr && libpq.NeedsPassword(connection) != 0;
  throw DatabaseError(
      {address.File, Phrase::Tr("The calendar's server cannot be reached: %1.", why),
       needs_password ? Phrase::Tr("Put the password into the file ~/.pgpass of this account.")
                      : Phrase::Tr("Check the network, that the server is running, and that the "
                                   "link names the right one.")});
}

void Await(const Libpq& libpq, const Address& address, PGconn* connection, ReplyWait& wait,
           bool for_writing) {
  while (!wait.Poll(libpq.Socket(connection), for_writing)) {
    if (wait.WasCancelled()) {
      throw WaitCancelledError(
          {address.File, Phrase::Tr("The wait for the calendar's server was ended."), {}});
    }
    if (wait.Lasted() > kConnecting) {
      throw DatabaseError({address.File, Phrase::Tr("The calendar's server does not answer."),
                           Phrase::Tr("Check the network, and that the server is running.")});
    }
  }
}

void Finish(const Libpq& libpq, const Address& address, PGconn* connection,
            const WaitPolicy& policy) {
  ReplyWait wait(policy);
  bool for_writing = true;
  while (true) {
    Await(libpq, address, connection, wait, for_writing);
    switch (libpq.ConnectPoll(connection)) {
      case PGRES_POLLING_OK:
        return;
      case PGRES_POLLING_READING:
        for_writing = false;
        break;
      case PGRES_POLLING_WRITING:
        for_writing = true;
        break;
      default:
        Fail(libpq, address, connection);
    }
  }
}

std::string TlsOf(const Libpq& libpq, PGconn* connection) {
  std::string tls;
  PQconninfoOption* const options = libpq.Conninfo(connection);
  for (const PQconninfoOption* option = options; option != nullptr && option->keyword != nullptr;
       ++option) {
    if (std::string_view(option->keyword) == "sslmode" && option->val != nullptr) {
      tls = option->val;
    }
  }
  libpq.ConninfoFree(options);
  return tls;
}

/// A service file or the environment may name another host than the link does, and nobody has said
/// how to be sure of that one.
void RequireSafeWay(const Libpq& libpq, const Address& address, PGconn* connection) {
  if (address.Facts.NamesTls || IsThisMachine(libpq.Host(connection))) {
    return;
  }
  const std::string tls = TlsOf(libpq, connection);
  if (tls.empty() || tls == "prefer" || tls == "allow") {
    throw DatabaseError(
        {address.File,
         Phrase::Tr(
             "The calendar's server is another machine, %1, and nothing says how to be sure of it.",
             libpq.Host(connection)),
         Phrase::Tr("Put sslmode=verify-full into the service file.")});
  }
}

}  // namespace

PGconn* Connect(const Libpq& libpq, const Address& address, const WaitPolicy& policy) {
  PGconn* const connection = Start(libpq, address);
  try {
    if (connection == nullptr || libpq.Status(connection) == CONNECTION_BAD) {
      Fail(libpq, address, connection);
    }
    Finish(libpq, address, connection, policy);
    RequireSafeWay(libpq, address, connection);
  } catch (...) {
    libpq.Finish(connection);
    throw;
  }
  return connection;
}

std::string FirstLine(std::string_view text) {
  text = text.substr(0, text.find('\n'));
  while (!text.empty() && (text.back() == ' ' || text.back() == '.')) {
    text.remove_suffix(1);
  }
  return std::string(text);
}

}  // namespace veyra::postgres
