#include "help/reader_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>

namespace veyra {
namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

/// A process whose standard output we read. Killed, if it still runs, when the object goes.
class Child {
 public:
  Child(const std::string& program, const std::string& argument);
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  bool Started() const { return id_ > 0; }
  int Output() const { return output_; }

  /// Waits for its end, which is near as it has closed its output. Whether it ended with 0.
  bool EndedWell(SteadyTime deadline);

 private:
  pid_t id_ = -1;
  int output_ = -1;
};

Child::Child(const std::string& program, const std::string& argument) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) {
    return;
  }
  output_ = ends[0];
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::string name = program;
  std::string only_argument = argument;
  char* arguments[] = {name.data(), only_argument.data(), nullptr};
  if (posix_spawn(&id_, program.c_str(), &actions, nullptr, arguments, environ) != 0) {
    id_ = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
}

Child::~Child() {
  if (output_ >= 0) {
    close(output_);
  }
  if (id_ <= 0) {
    return;
  }
  kill(id_, SIGKILL);
  while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

bool Child::EndedWell(SteadyTime deadline) {
  int status = 0;
  while (std::chrono::steady_clock::now() < deadline) {
    const pid_t ended = waitpid(id_, &status, WNOHANG);
    if (ended == 0) {
      poll(nullptr, 0, 1);
      continue;
    }
    if (ended < 0 && errno == EINTR) {
      continue;
    }
    const bool reaped = ended == id_;
    id_ = -1;
    return reaped && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  return false;
}

bool WaitForOutput(int output, SteadyTime deadline) {
  while (true) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0) {
      return false;
    }
    pollfd waiting{output, POLLIN, 0};
    const int ready = poll(&waiting, 1, static_cast<int>(left.count()));
    if (ready > 0) {
      return true;
    }
    if (ready < 0 && errno != EINTR) {
      return false;
    }
  }
}

/// Everything up to the end of the output.
std::optional<std::string> ReadAll(int output, std::size_t most_bytes, SteadyTime deadline) {
  std::string read_bytes;
  char block[1U << 16U];
  while (WaitForOutput(output, deadline)) {
    const ssize_t count = read(output, block, sizeof block);
    if (count == 0) {
      return read_bytes;
    }
    if (count < 0 && errno != EINTR) {
      return std::nullopt;
    }
    if (count > 0) {
      read_bytes.append(block, static_cast<std::size_t>(count));
    }
    if (read_bytes.size() > most_bytes) {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> OutputOf(const std::filesystem::path& program,
                                    const std::string& argument, std::size_t most_bytes,
                                    std::chrono::milliseconds timeout) {
  const SteadyTime deadline = std::chrono::steady_clock::now() + timeout;
  Child child(program.string(), argument);
  if (!child.Started()) {
    return std::nullopt;
  }
  std::optional<std::string> output = ReadAll(child.Output(), most_bytes, deadline);
  if (!output || !child.EndedWell(deadline)) {
    return std::nullopt;
  }
  return output;
}

}  // namespace veyra
