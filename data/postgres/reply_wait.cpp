#include "data/postgres/reply_wait.h"

#include <poll.h>

namespace veyra::postgres {

namespace {

constexpr int kPollMilliseconds = 20;

}  // namespace

ReplyWait::~ReplyWait() {
  if (was_told_) {
    policy_.Observer->WaitEnded();
  }
}

bool ReplyWait::Poll(int socket, bool for_writing) {
  pollfd waited_for{.fd = socket,
                    .events = static_cast<short>(for_writing ? POLLIN | POLLOUT : POLLIN),
                    .revents = 0};
  if (::poll(&waited_for, 1, kPollMilliseconds) > 0) {
    return true;
  }
  if (policy_.Observer != nullptr && !was_cancelled_) {
    was_told_ = true;
    was_cancelled_ = !policy_.Observer->StillWaiting(policy_.File, Lasted());
  }
  return false;
}

std::chrono::milliseconds ReplyWait::Lasted() const {
  using std::chrono::steady_clock;
  return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - begun_);
}

}  // namespace veyra::postgres
