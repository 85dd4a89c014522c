#include "data/postgres/notice_queue.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <utility>

#include "data/errors.h"
#include "data/posix_file.h"

namespace veyra::postgres {

namespace {

int AddTo(int descriptor, int watched) {
  epoll_event event{.events = EPOLLIN, .data = {.fd = watched}};
  return ::epoll_ctl(descriptor, EPOLL_CTL_ADD, watched, &event);
}

void Close(int descriptor) {
  if (descriptor >= 0) {
    ::close(descriptor);
  }
}

}  // namespace

NoticeQueue::NoticeQueue(const std::string& file)
    : wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), descriptor_(::epoll_create1(EPOLL_CLOEXEC)) {
  if (wake_ < 0 || descriptor_ < 0 || AddTo(descriptor_, wake_) != 0) {
    const int why = errno;
    Close(wake_);
    Close(descriptor_);
    throw DatabaseError(
        {file,
         Phrase::Tr("What other desks change cannot be waited for: %1.", SystemErrorText(why)),
         Phrase::Tr("Close some programs, and start again.")});
  }
}

NoticeQueue::~NoticeQueue() {
  Close(descriptor_);
  Close(wake_);
}

/// A socket that is closed leaves the set by itself. One that cannot be added is still read with
/// every call to the store.
void NoticeQueue::Watch(int socket) {
  AddTo(descriptor_, socket);
}

void NoticeQueue::Add(Notice notice) {
  if (content_.Notices.size() >= kMost) {
    content_.Notices.clear();
    content_.WereMissed = true;
  }
  content_.Notices.push_back(std::move(notice));
  Wake();
}

void NoticeQueue::AddMissed() {
  content_.WereMissed = true;
  Wake();
}

NoticeQueue::Content NoticeQueue::Take() {
  std::uint64_t count = 0;
  // It fails when nothing was told, which is as well.
  [[maybe_unused]] const auto was_read = ::read(wake_, &count, sizeof(count));
  return std::exchange(content_, {});
}

void NoticeQueue::Wake() {
  constexpr std::uint64_t kOne = 1;
  // It fails when so many have been told that it can be read anyway.
  [[maybe_unused]] const auto was_written = ::write(wake_, &kOne, sizeof(kOne));
}

}  // namespace veyra::postgres
