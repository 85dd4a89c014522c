#include "data/access/file_lock.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include "data/access/problem.h"

namespace veyra::mdb {

namespace {

constexpr off_t kLockedByte = 0x1'0000'0000;
constexpr std::chrono::milliseconds kPause{5};

int SetLock(int descriptor, short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockedByte;
  lock.l_len = 1;
  return fcntl(descriptor, F_OFD_SETLK, &lock) == 0 ? 0 : errno;
}

bool IsHeldByAnother(int error) {
  return error == EAGAIN || error == EACCES;
}

}  // namespace

FileLock::FileLock(int descriptor, Kind kind, std::chrono::milliseconds timeout)
    : descriptor_(descriptor) {
  const auto give_up = std::chrono::steady_clock::now() + timeout;
  const short type = kind == Kind::Reading ? F_RDLCK : F_WRLCK;
  while (IsHeldByAnother(SetLock(descriptor_, type))) {
    if (std::chrono::steady_clock::now() >= give_up) {
      throw FileBusy("Another program is writing to the database and does not finish.",
                     "Try again in a moment, or close the other program.");
    }
    std::this_thread::sleep_for(kPause);
  }
}

FileLock::~FileLock() {
  SetLock(descriptor_, F_UNLCK);
}

}  // namespace veyra::mdb
