#include "app/signal_pipe.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <system_error>

namespace veyra {
namespace {

/// A signal handler is given nothing but the number, so where it writes to stands here.
std::atomic<int> writing_end = -1;

void Report(int) {
  const int error = errno;
  const char byte = 0;
  // A full pipe holds enough to be found.
  [[maybe_unused]] const ssize_t written = write(writing_end.load(), &byte, 1);
  errno = error;
}

}  // namespace

SignalPipe::SignalPipe(const std::vector<int>& numbers) {
  if (pipe2(ends_, O_CLOEXEC | O_NONBLOCK) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  writing_end = ends_[1];
  for (const int number : numbers) {
    struct sigaction before {};
    sigaction(number, nullptr, &before);
    if (before.sa_handler == SIG_IGN) {
      continue;
    }
    struct sigaction now {};
    now.sa_handler = Report;
    now.sa_flags = SA_RESTART;
    sigaction(number, &now, nullptr);
    taken_.push_back({number, before});
  }
}

SignalPipe::~SignalPipe() {
  for (const Taken& taken : taken_) {
    sigaction(taken.Signal, &taken.Before, nullptr);
  }
  writing_end = -1;
  close(ends_[0]);
  close(ends_[1]);
}

void SignalPipe::Drain() const {
  char bytes[64];
  while (read(ends_[0], bytes, sizeof bytes) > 0) {
  }
}

}  // namespace veyra
