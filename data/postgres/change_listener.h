#pragma once

#include <string>

#include "data/change_feed.h"
#include "data/postgres/session.h"

namespace veyra::postgres {

/// Listens to the notices that the server's triggers send (server_sql.h), over the connection of
/// the store itself: there are not two of them that could fail, and a desk takes one place on the
/// server. What arrives while an ordinary call reads is kept.
class ChangeListener : public ChangeFeed {
 public:
  /// `session` must outlive it. Nothing is asked of the server yet. Throws DatabaseError when the
  /// system gives no descriptors.
  explicit ChangeListener(Session& session);

  /// Begins to listen over the connection that is there. To be called for each connection. Throws
  /// Failure.
  void Listen();

  int Descriptor() const override;
  SharedChanges TakeChanges() override;

 private:
  Session& session_;
  NoticeQueue& notices_;
  int own_number_ = 0;
  bool has_listened_ = false;
};

/// Reads what a trigger tells. Nothing when it is not understood.
std::optional<SharedChange> ReadNotice(const std::string& text);

}  // namespace veyra::postgres
