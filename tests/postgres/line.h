#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/temp_folder.h"

namespace veyra {

/// A line to a server's socket for one connection, on which it is counted how often the server is
/// asked and waited for.
class Line {
 public:
  explicit Line(const std::string& server_folder) : server_(Socket(server_folder)) {
    sockaddr_un address = Socket(Folder());
    Require(::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address));
    Require(::listen(listener_, 1));
    carrier_ = std::thread([this] { Carry(); });
  }
  /// REQUIRES: the connection over it has ended, if there was one.
  ~Line() {
    ::shutdown(listener_, SHUT_RDWR);
    carrier_.join();
    ::close(listener_);
  }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  /// Where the line begins: to be named in a link as the server's folder.
  std::string Folder() const { return folder_.path().string(); }

  /// How often something was sent to the server after it had been heard of.
  int Turns() const { return turns_; }

 private:
  static sockaddr_un Socket(const std::string& folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string name = folder + "/.s.PGSQL.5432";
    std::strncpy(address.sun_path, name.c_str(), sizeof address.sun_path - 1);
    return address;
  }

  static void Require(int status) {
    if (status != 0) {
      throw std::runtime_error(std::strerror(errno));
    }
  }

  void Carry() {
    const int desk = ::accept(listener_, nullptr, nullptr);
    const int server = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (::connect(server, reinterpret_cast<sockaddr*>(&server_), sizeof server_) == 0) {
      std::array<pollfd, 2> ends{{{desk, POLLIN, 0}, {server, POLLIN, 0}}};
      bool was_heard_of = true;
      while (::poll(ends.data(), ends.size(), -1) > 0) {
        const bool asks = ends[0].revents != 0;
        turns_ += asks && was_heard_of ? 1 : 0;
        was_heard_of = !asks;
        if (!(asks ? Pass(desk, server) : Pass(server, desk))) {
          break;
        }
      }
    }
    ::close(server);
    ::close(desk);
  }

  static bool Pass(int from, int to) {
    std::array<char, 65536> bytes{};
    const ssize_t size = ::read(from, bytes.data(), bytes.size());
    return size > 0 &&
           ::send(to, bytes.data(), static_cast<std::size_t>(size), MSG_NOSIGNAL) == size;
  }

  TempFolder folder_;
  int listener_ = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un server_;
  std::atomic<int> turns_ = 0;
  std::thread carrier_;
};

}  // namespace veyra
