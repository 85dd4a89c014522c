#include "data/postgres/session.h"

#include <array>
#include <string_view>
#include <utility>

#include "data/errors.h"
#include "data/postgres/failure.h"
#include "data/postgres/link_check.h"

namespace veyra::postgres {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kConnecting{15'000};
constexpr milliseconds kCancelling{10'000};
constexpr std::size_t kMostStatements = 200;

/// The server's remarks go to nobody: what matters comes as a failure.
void DropNotice(void*, const PGresult*) {}

std::string FirstLine(std::string_view text) {
  text = text.substr(0, text.find('\n'));
  while (!text.empty() && (text.back() == ' ' || text.back() == '.')) {
    text.remove_suffix(1);
  }
  return std::string(text);
}

std::string Field(const Libpq& libpq, const PGresult* result, int code) {
  const char* const text = libpq.ResultErrorField(result, code);
  return text == nullptr ? std::string() : std::string(text);
}

std::vector<const char*> Pointers(const Parameters& parameters) {
  std::vector<const char*> pointers;
  pointers.reserve(parameters.size());
  for (const auto& parameter : parameters) {
    pointers.push_back(parameter ? parameter->c_str() : nullptr);
  }
  return pointers;
}

}  // namespace

Session::Session(CalendarLink link, std::string file, WaitPolicy policy,
                 std::function<void()> on_connect)
    : libpq_(std::make_shared<Libpq>(file)),
      link_(std::move(link)),
      file_(std::move(file)),
      policy_(std::move(policy)),
      on_connect_(std::move(on_connect)) {
  const LinkFacts facts = CheckLink(file_, link_);
  names_tls_ = facts.NamesTls;
  tls_ = facts.Tls;
}

Session::~Session() {
  Disconnect();
}

void Session::Disconnect() {
  statements_.clear();
  if (connection_ != nullptr) {
    libpq_->Finish(std::exchange(connection_, nullptr));
  }
}

void Session::RequireConnection() {
  if (connection_ != nullptr) {
    return;
  }
  Connect();
  try {
    on_connect_();
  } catch (...) {
    Disconnect();
    throw;
  }
}

void Session::Connect() {
  connection_ = Start();
  try {
    FinishConnecting();
    RequireSafeWay();
  } catch (...) {
    Disconnect();
    throw;
  }
  libpq_->SetNonblocking(connection_, 1);
  libpq_->SetNoticeReceiver(connection_, DropNotice, nullptr);
}

/// What comes before the link in the list gives way to what the link says itself.
PGconn* Session::Start() const {
  std::vector<const char*> names = {"fallback_application_name", "tcp_user_timeout",
                                    "keepalives_idle", "keepalives_interval"};
  std::vector<const char*> values = {"veyra-calendar", "20000", "20", "5"};
  if (!names_tls_ && !tls_.empty()) {
    names.push_back("sslmode");
    values.push_back(tls_.c_str());
  }
  names.insert(names.end(), {"dbname", "client_encoding", nullptr});
  values.insert(values.end(), {link_.Server.c_str(), "UTF8", nullptr});
  return libpq_->ConnectStart(names.data(), values.data(), 1);
}

void Session::FinishConnecting() {
  ReplyWait wait(policy_);
  if (connection_ == nullptr || libpq_->Status(connection_) == CONNECTION_BAD) {
    FailToConnect();
  }
  bool for_writing = true;
  while (true) {
    while (!wait.Poll(libpq_->Socket(connection_), for_writing)) {
      if (wait.WasCancelled()) {
        throw WaitCancelledError({file_, "The wait for the calendar's server was ended.", {}});
      }
      if (wait.Lasted() > kConnecting) {
        throw DatabaseError({file_, "The calendar's server does not answer.",
                             "Check the network, and that the server is running."});
      }
    }
    switch (libpq_->ConnectPoll(connection_)) {
      case PGRES_POLLING_OK:
        return;
      case PGRES_POLLING_READING:
        for_writing = false;
        break;
      case PGRES_POLLING_WRITING:
        for_writing = true;
        break;
      default:
        FailToConnect();
    }
  }
}

void Session::FailToConnect() {
  const std::string why =
      connection_ == nullptr ? "too little memory" : FirstLine(libpq_->ErrorMessage(connection_));
  const bool needs_password = connection_ != nullptr && libpq_->NeedsPassword(connection_) != 0;
  throw DatabaseError({file_, "The calendar's server cannot be reached: " + why + ".",
                       needs_password
                           ? "Put the password into the file ~/.pgpass of this account."
                           : "Check the network, that the server is running, and that the link "
                             "names the right one."});
}

/// A service file or the environment may name another host than the link does, and nobody has said
/// how to be sure of that one.
void Session::RequireSafeWay() const {
  if (names_tls_ || IsThisMachine(libpq_->Host(connection_))) {
    return;
  }
  PQconninfoOption* const options = libpq_->Conninfo(connection_);
  std::string tls;
  for (const PQconninfoOption* option = options; option != nullptr && option->keyword != nullptr;
       ++option) {
    if (std::string_view(option->keyword) == "sslmode" && option->val != nullptr) {
      tls = option->val;
    }
  }
  libpq_->ConninfoFree(options);
  if (tls.empty() || tls == "prefer" || tls == "allow") {
    throw DatabaseError({file_,
                         std::string("The calendar's server is another machine, ") +
                             libpq_->Host(connection_) + ", and nothing says how to be sure of it.",
                         "Put sslmode=verify-full into the service file."});
  }
}

Result Session::Run(const std::string& sql, const Parameters& parameters) {
  RequireConnection();
  Send(sql, parameters);
  return Reply();
}

void Session::RunScript(const std::string& sql) {
  RequireConnection();
  CheckSent(libpq_->SendQuery(connection_, sql.c_str()));
  Reply();
}

/// To prepare a statement is a way to the server and back: it is worth it from the second time on.
void Session::Send(const std::string& sql, const Parameters& parameters) {
  if (statements_.size() > kMostStatements) {
    ForgetStatements();
  }
  const auto [known, is_new] = statements_.try_emplace(sql);
  if (!is_new && known->second.empty()) {
    const std::string name = "veyra_" + std::to_string(++last_statement_);
    Prepare(sql, name);
    statements_[sql] = name;
  }
  const std::vector<const char*> values = Pointers(parameters);
  const int count = static_cast<int>(values.size());
  CheckSent(is_new ? libpq_->SendQueryParams(connection_, sql.c_str(), count, nullptr,
                                             values.data(), nullptr, nullptr, 0)
                   : libpq_->SendQueryPrepared(connection_, statements_[sql].c_str(), count,
                                               values.data(), nullptr, nullptr, 0));
}

void Session::Prepare(const std::string& sql, const std::string& name) {
  CheckSent(libpq_->SendPrepare(connection_, name.c_str(), sql.c_str(), 0, nullptr));
  Reply();
}

void Session::ForgetStatements() {
  statements_.clear();
  if (connection_ != nullptr && !IsInTransaction()) {
    RunScript("DEALLOCATE ALL");
  }
}

void Session::CheckSent(int was_sent) {
  if (was_sent == 0) {
    Lose(FirstLine(libpq_->ErrorMessage(connection_)));
  }
}

/// The last result of a script, or the first that failed.
Result Session::Reply() {
  Result last(libpq_, nullptr);
  std::optional<Failure> failure;
  while (true) {
    AwaitReply();
    PGresult* const result = libpq_->GetResult(connection_);
    if (result == nullptr) {
      break;
    }
    last = Result(libpq_, result);
    const ExecStatusType status = libpq_->ResultStatus(result);
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK && !failure) {
      failure.emplace(Field(*libpq_, result, PG_DIAG_SQLSTATE),
                      Field(*libpq_, result, PG_DIAG_MESSAGE_PRIMARY),
                      Field(*libpq_, result, PG_DIAG_MESSAGE_DETAIL));
    }
  }
  if (libpq_->Status(connection_) == CONNECTION_BAD) {
    Lose(failure && !failure->Message().empty() ? failure->Message()
                                                : FirstLine(libpq_->ErrorMessage(connection_)));
  }
  if (failure) {
    throw Failure(*failure);
  }
  return last;
}

void Session::AwaitReply() {
  ReplyWait wait(policy_);
  std::optional<milliseconds> cancelled_at;
  while (true) {
    const int unsent = libpq_->Flush(connection_);
    if (unsent < 0 || (unsent == 0 && libpq_->IsBusy(connection_) == 0)) {
      return;
    }
    if (wait.Poll(libpq_->Socket(connection_), unsent > 0)) {
      if (libpq_->ConsumeInput(connection_) == 0) {
        return;
      }
    } else if (wait.WasCancelled() && !cancelled_at) {
      cancelled_at = wait.Lasted();
      RequestCancel();
    } else if (cancelled_at && wait.Lasted() > *cancelled_at + kCancelling) {
      Lose("the server did not answer");
    }
  }
}

/// When this fails the wait goes on until the connection is found dead.
void Session::RequestCancel() {
  PGcancel* const cancel = libpq_->GetCancel(connection_);
  if (cancel != nullptr) {
    std::array<char, 256> message{};
    libpq_->Cancel(cancel, message.data(), static_cast<int>(message.size()));
    libpq_->FreeCancel(cancel);
  }
}

void Session::Lose(const std::string& message) {
  Disconnect();
  throw ConnectionLost(message);
}

bool Session::IsInTransaction() const {
  return connection_ != nullptr && libpq_->TransactionStatus(connection_) != PQTRANS_IDLE;
}

void Session::Rollback() noexcept {
  if (!IsInTransaction()) {
    return;
  }
  try {
    RunScript("ROLLBACK");
  } catch (const std::exception&) {
    // The server undoes what a lost connection had open.
    Disconnect();
  }
}

}  // namespace veyra::postgres
