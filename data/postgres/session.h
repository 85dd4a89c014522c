#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/calendar_link.h"
#include "data/phrase.h"
#include "data/postgres/connecting.h"
#include "data/postgres/libpq.h"
#include "data/postgres/notice_queue.h"
#include "data/postgres/prepared_statements.h"
#include "data/postgres/result.h"
#include "data/waiting.h"

namespace veyra::postgres {

/// What stands for $1, $2 ... in a statement, as text; nothing for null.
using Parameters = std::vector<std::optional<std::string>>;

struct Statement {
  std::string Sql;
  Parameters Values = {};
};

/// A connection to the server, made when it is first needed and again when it was lost. While it
/// waits the policy's observer is told, who can end the wait.
///
/// Throws Failure when the server refuses something, one of the class state::kConnection when the
/// connection turns out to be dead: whatever was open on it is undone by the server. Throws
/// DatabaseError when none can be made.
class Session {
 public:
  /// `on_connect` is run over each new connection before anything else. REQUIRES: it uses this
  /// session, which is in place by then. Throws DatabaseError when libpq is not on this machine or
  /// the link is refused (link_check.h).
  Session(CalendarLink link, std::string file, WaitPolicy policy, std::function<void()> on_connect);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Sends one statement, after those that were to go with it, and returns its rows: one way to the
  /// server and back. What one of them fails with is thrown; those after it are not carried out.
  Result Run(const std::string& sql, const Parameters& parameters = {});

  /// Sends several in one go, in the same way, and returns the rows of each.
  std::vector<Result> RunAll(std::vector<Statement> statements);

  /// A statement whose rows nobody wants, to be sent with the next that Run or RunScript sends.
  void RunLater(const std::string& sql, const Parameters& parameters = {});

  /// Sends several statements, with semicolons between them, and returns the rows of the last one;
  /// REQUIRES: they hold no value.
  Result RunScript(const std::string& sql);

  /// Keeps from now on what the server tells without being asked, whichever call it arrives in. The
  /// queue lives as long as the session. Throws DatabaseError when the system gives no descriptors.
  NoticeQueue& KeepNotices();

  /// Takes in what has arrived, without waiting; does nothing in the middle of a call. A connection
  /// that is found dead is dropped.
  void ReadArrived();

  /// Whether a transaction is open on the server.
  bool IsInTransaction() const;

  /// Undoes what is open; does nothing when nothing is, or the connection is lost. Throws nothing.
  void Rollback() noexcept;

  /// Forgets what statements the server has prepared, as when a table was changed.
  void ForgetStatements();

  /// Drops the connection; the next statement makes another.
  void Disconnect();

  /// The full name of the link file.
  const std::string& file() const { return address_.File; }
  const CalendarLink& link() const { return address_.Link; }
  const WaitPolicy& policy() const { return policy_; }

 private:
  void RequireConnection();
  void Connect();

  struct Sent;
  std::vector<Result> SendAndRead(const std::vector<Statement>& statements);
  void Send(const Statement& statement, Sent& sent);
  void CheckSent(int was_sent);
  std::vector<Result> Replies(bool to_script);
  void AwaitReply();
  void TakeNotices();
  void RequestCancel();
  [[noreturn]] void Lose(const Phrase& message);

  LibpqPtr libpq_;
  Address address_;
  WaitPolicy policy_;
  std::function<void()> on_connect_;
  PGconn* connection_ = nullptr;
  PreparedStatements prepared_;
  std::vector<Statement> later_;
  bool is_waiting_ = false;               ///< In the middle of a call.
  std::unique_ptr<NoticeQueue> notices_;  ///< Nothing while they are not kept.
};

}  // namespace veyra::postgres
