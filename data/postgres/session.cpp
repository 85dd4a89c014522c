#include "data/postgres/session.h"

#include <array>
#include <chrono>
#include <iterator>
#include <utility>

#include "data/errors.h"
#include "data/postgres/failure.h"
#include "data/postgres/reply_wait.h"

namespace veyra::postgres {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kCancelling{10'000};
constexpr std::size_t kMostStatements = 200;

/// The server's remarks go to nobody: what matters comes as a failure.
void DropNotice(void*, const PGresult*) {}

std::string Field(const Libpq& libpq, const PGresult* result, int code) {
  const char* const text = libpq.ResultErrorField(result, code);
  return text == nullptr ? std::string() : std::string(text);
}

Failure FailureIn(const Libpq& libpq, const PGresult* result) {
  return {Field(libpq, result, PG_DIAG_SQLSTATE), Field(libpq, result, PG_DIAG_MESSAGE_PRIMARY),
          Field(libpq, result, PG_DIAG_MESSAGE_DETAIL)};
}

/// Who is told of a wait may look for notices meanwhile, but what arrives then is not his to read.
class InTheMiddle {
 public:
  explicit InTheMiddle(bool& is_so) : is_so_(is_so) { is_so_ = true; }
  ~InTheMiddle() { is_so_ = false; }
  InTheMiddle(const InTheMiddle&) = delete;
  InTheMiddle& operator=(const InTheMiddle&) = delete;

 private:
  bool& is_so_;
};

std::vector<const char*> Pointers(const Parameters& parameters) {
  std::vector<const char*> pointers;
  pointers.reserve(parameters.size());
  for (const auto& parameter : parameters) {
    pointers.push_back(parameter ? parameter->c_str() : nullptr);
  }
  return pointers;
}

}  // namespace

/// What has gone to the server, and is to be read from it.
struct Session::Sent {
  std::vector<bool> IsWanted;             ///< Of each result, whether it is one of a statement.
  std::vector<std::string> ToBePrepared;  ///< The texts.
};

Session::Session(CalendarLink link, std::string file, WaitPolicy policy,
                 std::function<void()> on_connect)
    : libpq_(std::make_shared<Libpq>(file)),
      address_{.File = std::move(file), .Link = std::move(link), .Facts = {}},
      policy_(std::move(policy)),
      on_connect_(std::move(on_connect)) {
  address_.Facts = CheckLink(address_.File, address_.Link);
}

Session::~Session() {
  Disconnect();
}

void Session::Disconnect() {
  prepared_.Clear();
  later_.clear();
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
  connection_ = postgres::Connect(*libpq_, address_, policy_);
  libpq_->SetNonblocking(connection_, 1);
  libpq_->SetNoticeReceiver(connection_, DropNotice, nullptr);
  if (notices_) {
    notices_->Watch(libpq_->Socket(connection_));
  }
}

Result Session::Run(const std::string& sql, const Parameters& parameters) {
  std::vector<Statement> statements;
  statements.push_back({.Sql = sql, .Values = parameters});
  return std::move(RunAll(std::move(statements)).front());
}

void Session::RunLater(const std::string& sql, const Parameters& parameters) {
  RequireConnection();
  later_.push_back({.Sql = sql, .Values = parameters});
}

std::vector<Result> Session::RunAll(std::vector<Statement> statements) {
  RequireConnection();
  if (prepared_.Count() > kMostStatements) {
    ForgetStatements();
  }
  const auto before = static_cast<std::ptrdiff_t>(later_.size());
  std::move(statements.begin(), statements.end(), std::back_inserter(later_));
  std::vector<Result> results = SendAndRead(std::exchange(later_, {}));
  results.erase(results.begin(), results.begin() + before);
  return results;
}

/// In libpq's pipeline mode, where the server answers when it has all of them.
std::vector<Result> Session::SendAndRead(const std::vector<Statement>& statements) {
  Sent sent;
  CheckSent(libpq_->EnterPipelineMode(connection_));
  for (const Statement& statement : statements) {
    Send(statement, sent);
  }
  CheckSent(libpq_->PipelineSync(connection_));
  std::vector<Result> results;
  try {
    results = Replies(false);
  } catch (...) {
    for (const std::string& sql : sent.ToBePrepared) {
      prepared_.Unmake(sql);
    }
    throw;
  }
  std::vector<Result> wanted;
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (sent.IsWanted.at(i)) {
      wanted.push_back(std::move(results[i]));
    }
  }
  return wanted;
}

void Session::Send(const Statement& statement, Sent& sent) {
  const PreparedStatements::Way way = prepared_.Next(statement.Sql);
  if (way.IsToBeMade) {
    sent.ToBePrepared.push_back(statement.Sql);
    sent.IsWanted.push_back(false);
    CheckSent(
        libpq_->SendPrepare(connection_, way.Name.c_str(), statement.Sql.c_str(), 0, nullptr));
  }
  sent.IsWanted.push_back(true);
  const std::vector<const char*> values = Pointers(statement.Values);
  const int count = static_cast<int>(values.size());
  CheckSent(way.Name.empty() ? libpq_->SendQueryParams(connection_, statement.Sql.c_str(), count,
                                                       nullptr, values.data(), nullptr, nullptr, 0)
                             : libpq_->SendQueryPrepared(connection_, way.Name.c_str(), count,
                                                         values.data(), nullptr, nullptr, 0));
}

Result Session::RunScript(const std::string& sql) {
  RequireConnection();
  if (!later_.empty()) {
    RunAll({});
  }
  CheckSent(libpq_->SendQuery(connection_, sql.c_str()));
  std::vector<Result> results = Replies(true);
  return results.empty() ? Result(libpq_, nullptr) : std::move(results.back());
}

NoticeQueue& Session::KeepNotices() {
  if (!notices_) {
    notices_ = std::make_unique<NoticeQueue>(address_.File);
    if (connection_ != nullptr) {
      notices_->Watch(libpq_->Socket(connection_));
    }
  }
  return *notices_;
}

void Session::ReadArrived() {
  if (connection_ == nullptr || is_waiting_) {
    return;
  }
  if (libpq_->ConsumeInput(connection_) == 0 || libpq_->Status(connection_) == CONNECTION_BAD) {
    Disconnect();
  } else {
    TakeNotices();
  }
}

/// Also those of which the reading of a reply has read more than it needed.
void Session::TakeNotices() {
  PGnotify* told = nullptr;
  while (notices_ && (told = libpq_->Notifies(connection_)) != nullptr) {
    notices_->Add({.Sender = told->be_pid, .Text = told->extra});
    libpq_->FreeMem(told);
  }
}

void Session::ForgetStatements() {
  prepared_.Clear();
  if (connection_ != nullptr && !IsInTransaction()) {
    RunScript("DEALLOCATE ALL");
  }
}

void Session::CheckSent(int was_sent) {
  if (was_sent == 0) {
    Lose(FirstLine(libpq_->ErrorMessage(connection_)));
  }
}

/// What came for each statement. Throws the first failure, when all has been read.
std::vector<Result> Session::Replies(bool to_script) {
  std::vector<Result> results;
  std::optional<Failure> failure;
  for (bool is_read = false; !is_read;) {
    AwaitReply();
    PGresult* const result = libpq_->GetResult(connection_);
    if (result == nullptr) {
      is_read = to_script || libpq_->Status(connection_) == CONNECTION_BAD;
      continue;
    }
    Result held(libpq_, result);
    switch (libpq_->ResultStatus(result)) {
      case PGRES_TUPLES_OK:
      case PGRES_COMMAND_OK:
        results.push_back(std::move(held));
        break;
      case PGRES_PIPELINE_SYNC:
        is_read = true;
        break;
      case PGRES_PIPELINE_ABORTED:
        break;
      default:
        if (!failure) {
          failure = FailureIn(*libpq_, result);
        }
    }
  }
  if (libpq_->Status(connection_) == CONNECTION_BAD) {
    Lose(failure && !failure->Message().IsEmpty() ? failure->Message()
                                                  : FirstLine(libpq_->ErrorMessage(connection_)));
  }
  libpq_->ExitPipelineMode(connection_);
  TakeNotices();
  if (failure) {
    throw Failure(*failure);
  }
  return results;
}

void Session::AwaitReply() {
  const InTheMiddle of_a_call(is_waiting_);
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
      Lose(Phrase::Tr("the server did not answer"));
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

void Session::Lose(const Phrase& message) {
  Disconnect();
  throw ConnectionLost(message);
}

bool Session::IsInTransaction() const {
  return connection_ != nullptr && libpq_->TransactionStatus(connection_) != PQTRANS_IDLE;
}

void Session::Rollback() noexcept {
  later_.clear();
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
