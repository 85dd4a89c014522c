#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace veyra::postgres {

/// What the server has told without being asked.
struct Notice {
  int Sender = 0;  ///< The number of the connection that has made the change.
  std::string Text;
};

/// Notices that nobody has taken yet, and a descriptor to wait for them.
class NoticeQueue {
 public:
  /// So many are kept. When there are more, all are forgotten and count as missed.
  static constexpr std::size_t kMost = 10'000;

  /// Throws DatabaseError, naming `file`, when the system gives no descriptors.
  explicit NoticeQueue(const std::string& file);
  ~NoticeQueue();
  NoticeQueue(const NoticeQueue&) = delete;
  NoticeQueue& operator=(const NoticeQueue&) = delete;

  /// Can be read while there is anything to take, or to be read from the socket of the connection.
  int Descriptor() const { return descriptor_; }

  /// The socket of a new connection; that of the one before is closed.
  void Watch(int socket);

  void Add(Notice notice);
  void AddMissed();  ///< Some were missed.

  struct Content {
    std::vector<Notice> Notices;
    bool WereMissed = false;
  };
  Content Take();

 private:
  void Wake();

  int wake_;
  int descriptor_;
  Content content_;
};

}  // namespace veyra::postgres
