#pragma once

#include <signal.h>

#include <vector>

namespace veyra {

/// Signals as bytes in a pipe, where an event loop finds them. One at a time in a process.
class SignalPipe {
 public:
  /// Takes these signals over, but for those that are ignored.
  explicit SignalPipe(const std::vector<int>& numbers);

  /// Gives them back.
  ~SignalPipe();
  SignalPipe(const SignalPipe&) = delete;
  SignalPipe& operator=(const SignalPipe&) = delete;

  /// Can be read from once a signal has come.
  int Descriptor() const { return ends_[0]; }

  /// Takes what has come out of the pipe.
  void Drain() const;

 private:
  struct Taken {
    int Signal;
    struct sigaction Before;
  };

  int ends_[2] = {};
  std::vector<Taken> taken_;
};

}  // namespace veyra
