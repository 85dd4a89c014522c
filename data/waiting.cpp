#include "data/waiting.h"

#include <thread>
#include <utility>

namespace veyra {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPause{5};

}  // namespace

Wait::Wait(WaitPolicy policy) : policy_(std::move(policy)) {}

Wait::~Wait() {
  End();
}

bool Wait::GoOn() {
  if (!waiting_) {
    Begin();
  }
  const auto waited = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begun_);
  if (cancelled_ || waited >= policy_.Timeout) {
    return false;
  }
  if (policy_.Observer != nullptr && !policy_.Observer->StillWaiting(policy_.File, waited)) {
    cancelled_ = true;
    return false;
  }
  std::this_thread::sleep_for(kPause);
  return true;
}

void Wait::End() {
  if (waiting_ && policy_.Observer != nullptr) {
    policy_.Observer->WaitEnded();
  }
  waiting_ = false;
}

void Wait::Begin() {
  waiting_ = true;
  cancelled_ = false;
  begun_ = steady_clock::now();
}

}  // namespace veyra
