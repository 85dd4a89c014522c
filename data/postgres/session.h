#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "data/calendar_link.h"
#include "data/postgres/libpq.h"
#include "data/postgres/reply_wait.h"
#include "data/postgres/result.h"
#include "data/waiting.h"

namespace veyra::postgres {

/// What stands for $1, $2 ... in a statement, as text; nothing for null.
using Parameters = std::vector<std::optional<std::string>>;

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

  /// Sends one statement and returns its rows.
  Result Run(const std::string& sql, const Parameters& parameters = {});

  /// Sends several statements, with semicolons between them; REQUIRES: they hold no value.
  void RunScript(const std::string& sql);

  /// Whether a transaction is open on the server.
  bool IsInTransaction() const;

  /// Undoes what is open; does nothing when nothing is, or the connection is lost. Throws nothing.
  void Rollback() noexcept;

  /// Forgets what statements the server has prepared, as when a table was changed.
  void ForgetStatements();

  /// Drops the connection; the next statement makes another.
  void Disconnect();

  /// The full name of the link file.
  const std::string& file() const { return file_; }
  const CalendarLink& link() const { return link_; }
  const WaitPolicy& policy() const { return policy_; }

 private:
  void RequireConnection();
  void Connect();
  PGconn* Start() const;
  void FinishConnecting();
  void RequireSafeWay() const;
  [[noreturn]] void FailToConnect();

  void Send(const std::string& sql, const Parameters& parameters);
  void Prepare(const std::string& sql, const std::string& name);
  void CheckSent(int was_sent);
  Result Reply();
  void AwaitReply();
  void RequestCancel();
  [[noreturn]] void Lose(const std::string& message);

  LibpqPtr libpq_;
  CalendarLink link_;
  std::string file_;
  WaitPolicy policy_;
  std::function<void()> on_connect_;
  bool names_tls_ = false;
  std::string tls_;
  PGconn* connection_ = nullptr;
  /// The name under which each text is prepared; empty when it was sent once.
  std::unordered_map<std::string, std::string> statements_;
  long last_statement_ = 0;
};

}  // namespace veyra::postgres
