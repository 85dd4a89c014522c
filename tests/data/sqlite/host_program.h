#pragma once

#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "tests/data/sqlite/foreign_program.h"

namespace veyra {

/// A program in a process of its own that has a SQLite file open until it is closed or breaks down.
class HostProgram {
 public:
  explicit HostProgram(const std::string& file) {
    int to_host[2];
    int from_host[2];
    if (pipe(to_host) != 0 || pipe(from_host) != 0) {
      throw std::runtime_error("no pipe");
    }
    process_ = fork();
    if (process_ < 0) {
      throw std::runtime_error("no process");
    }
    if (process_ == 0) {
      close(to_host[1]);
      close(from_host[0]);
      Serve(file, to_host[0], from_host[1]);
    }
    close(to_host[0]);
    close(from_host[1]);
    to_host_ = to_host[1];
    from_host_ = from_host[0];
  }

  /// Closes the file in the orderly way, and waits for the end.
  ~HostProgram() {
    close(to_host_);
    close(from_host_);
    waitpid(process_, nullptr, 0);
  }

  HostProgram(const HostProgram&) = delete;
  HostProgram& operator=(const HostProgram&) = delete;

  /// Returns when the host has carried the statements out.
  void Run(const std::string& sql) {
    Start(sql);
    Finish();
  }

  /// Returns while the host is at work. REQUIRES: the statements are shorter than a page.
  void Start(const std::string& sql) {
    if (write(to_host_, sql.c_str(), sql.size() + 1) < 0) {
      throw std::runtime_error("no host");
    }
  }

  /// Waits until the host has done what it was started on.
  void Finish() {
    char answer = 0;
    if (read(from_host_, &answer, 1) != 1 || answer != kDone) {
      throw std::runtime_error("the host failed");
    }
  }

  /// Ends at once, leaving all as it is.
  void BreakDown() { kill(process_, SIGKILL); }

 private:
  static constexpr char kDone = 'd';
  static constexpr char kFailed = 'f';

  [[noreturn]] static void Serve(const std::string& file, int in, int out) {
    {
      ForeignProgram program(file);
      std::string sql;
      for (char c = 0; read(in, &c, 1) == 1;) {
        if (c != 0) {
          sql += c;
          continue;
        }
        const char answer = Try(program, sql);
        if (write(out, &answer, 1) != 1) {
          break;
        }
        sql.clear();
      }
    }
    _exit(0);
  }

  static char Try(ForeignProgram& program, const std::string& sql) {
    try {
      program.Run(sql);
      return kDone;
    } catch (const std::exception&) {
      return kFailed;
    }
  }

  pid_t process_ = 0;
  int to_host_ = -1;
  int from_host_ = -1;
};

}  // namespace veyra
