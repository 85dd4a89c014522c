#include "data/access/pages/file_lock.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "data/access/format/problem.h"

namespace veyra::access {

namespace {

constexpr off_t kChangeByte = 0x1'0000'0000;
constexpr off_t kUseByte = kChangeByte + 1;

using Kind = FileLock::Kind;

off_t ByteOf(Kind kind) {
  return kind == Kind::Reading || kind == Kind::Writing ? kChangeByte : kUseByte;
}

short TypeOf(Kind kind) {
  return kind == Kind::Writing || kind == Kind::Exclusive ? F_WRLCK : F_RDLCK;
}

FileBusy BusyReport(Kind kind, bool is_cancelled) {
  if (is_cancelled) {
    return {Phrase::Tr("Another program is using the file."),
            Phrase::Tr("You did not want to wait. Try again when it has finished."), true};
  }
  if (kind == Kind::Exclusive) {
    return {Phrase::Tr("Another program has the database open."),
            Phrase::Tr("Close it there and try again.")};
  }
  if (kind == Kind::Open) {
    return {Phrase::Tr("Another program has taken the database for itself, perhaps to convert it."),
            Phrase::Tr("Wait until it has finished and try again.")};
  }
  return {Phrase::Tr("Another program is writing to the database and does not finish."),
          Phrase::Tr("Try again in a moment, or close the other program.")};
}

int SetLock(int descriptor, short type, off_t byte) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = byte;
  lock.l_len = 1;
  return fcntl(descriptor, F_OFD_SETLK, &lock) == 0 ? 0 : errno;
}

bool IsHeldByAnother(int error) {
  return error == EAGAIN || error == EACCES;
}

}  // namespace

FileLock::FileLock(int descriptor, Kind kind, const WaitPolicy& policy)
    : descriptor_(descriptor), kind_(kind) {
  Wait wait(policy);
  while (IsHeldByAnother(SetLock(descriptor_, TypeOf(kind), ByteOf(kind)))) {
    if (!wait.GoOn()) {
      throw BusyReport(kind, wait.WasCancelled());
    }
  }
}

FileLock::~FileLock() {
  SetLock(descriptor_, F_UNLCK, ByteOf(kind_));
}

}  // namespace veyra::access
