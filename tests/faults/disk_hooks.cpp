#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "tests/faults/disk_calls.h"
#include "tests/faults/file_facts.h"

// Stands before the C library's calls on files, in a program that is linked with this library or
// started with it in LD_PRELOAD.

namespace {

using veyra::faults::Absolute;
using veyra::faults::Call;
using veyra::faults::Change;
using veyra::faults::Disk;
using veyra::faults::Entry;
using veyra::faults::EntryOf;
using veyra::faults::FileOf;
using veyra::faults::PlaceOf;

/// The call of that name that comes after ours.
template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <typename Work>
auto Failing(int error, const Work& real) -> decltype(real()) {
  if (error == Disk::kNoFailure) {
    return real();
  }
  errno = error != 0 ? error : EIO;
  return -1;
}

/// `real(count)` writes the first so many of the bytes.
template <typename Real>
ssize_t Writing(int descriptor, const char* bytes, std::size_t count, std::uint64_t offset,
                const std::string& name, const Real& real) {
  Disk& disk = Disk::The();
  const int error = disk.Fails(Call::Write);
  if (error > 0) {
    errno = error;
    return -1;
  }
  std::size_t wanted = error == 0 ? std::max<std::size_t>(count / 2, 1) : count;
  wanted = disk.Fitting(descriptor, offset, wanted);
  if (wanted == 0 && count > 0) {
    errno = ENOSPC;
    return -1;
  }
  if (disk.IsKilledNext()) {
    real(wanted / 2);
    raise(SIGKILL);
  }
  const ssize_t written = real(wanted);
  if (written > 0) {
    disk.Record({.What = Change::Kind::Write,
                 .File = FileOf(descriptor),
                 .Name = name,
                 .Offset = offset,
                 .Bytes = std::string(bytes, static_cast<std::size_t>(written))});
  }
  disk.Step();
  return written;
}

/// What an opening for writing, or one that may create or empty a file, changes.
struct Intent {
  bool Writes = true;
  bool Creates = false;
  bool Empties = false;
};

template <typename Open>
auto Opening(const char* path, const Intent& intent, const Open& open) -> decltype(open()) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto name = disk.IsWatching() ? disk.NameOf(Absolute(path)) : std::nullopt;
  if (!name || name->empty()) {
    return open();
  }
  const bool creates = intent.Creates;
  const bool empties = intent.Empties;
  if (intent.Writes) {
    disk.NoteOpeningForWriting(*name);
  }
  if (!creates && !empties) {
    return open();
  }
  const Entry before = EntryOf(path);
  if (!before.IsThere && creates) {
    if (const int error = disk.Fails(Call::Create); error != Disk::kNoFailure) {
      errno = error != 0 ? error : EIO;
      return decltype(open())(-1);
    }
  }
  const auto opened = open();
  if (opened == decltype(open())(-1)) {
    return opened;
  }
  if (!before.IsThere) {
    const std::string made = disk.NameOf(Absolute(path)).value_or(*name);  // mkstemp fills it in.
    disk.Record({.What = Change::Kind::Create, .File = EntryOf(path).File, .Name = made});
    disk.Step();
  } else if (empties) {
    disk.GiveBack(before.Freed);
    disk.Record({.What = Change::Kind::Truncate, .File = before.File, .Name = *name});
    disk.Step();
  }
  return opened;
}

int Open(const char* path, int flags, mode_t mode, const char* real_name) {
  const Intent intent{.Writes = (flags & O_ACCMODE) != O_RDONLY,
                      .Creates = (flags & O_CREAT) != 0,
                      .Empties = (flags & O_TRUNC) != 0};
  return Opening(path, intent,
                 [&] { return Next<int(const char*, int, ...)>(real_name)(path, flags, mode); });
}

mode_t ModeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

FILE* OpenStream(const char* path, const char* mode, const char* real_name) {
  const bool empties = mode[0] == 'w';
  const bool creates = empties || mode[0] == 'a';
  const bool writes = creates || std::strchr(mode, '+') != nullptr;
  FILE* stream = nullptr;
  const int status = Opening(path, {writes, creates, empties}, [&] {
    stream = Next<FILE*(const char*, const char*)>(real_name)(path, mode);
    return stream != nullptr ? 0 : -1;
  });
  return status == 0 ? stream : nullptr;
}

ssize_t Read(int descriptor, const auto& real) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto name = disk.NameOf(descriptor);
  return name && !name->empty() ? Failing(disk.Fails(Call::Read), real) : real();
}

ssize_t WriteAt(int descriptor, const void* bytes, std::size_t count, off64_t offset,
                const char* real_name) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto real = [&](std::size_t part) {
    return Next<ssize_t(int, const void*, std::size_t, off64_t)>(real_name)(descriptor, bytes, part,
                                                                            offset);
  };
  const auto name = disk.NameOf(descriptor);
  return name ? Writing(descriptor, static_cast<const char*>(bytes), count,
                        static_cast<std::uint64_t>(offset), *name, real)
              : real(count);
}

int Truncate(int descriptor, off64_t size, const char* real_name) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto real = [&] { return Next<int(int, off64_t)>(real_name)(descriptor, size); };
  const auto name = disk.NameOf(descriptor);
  if (!name) {
    return real();
  }
  struct stat before {};
  fstat(descriptor, &before);
  const int status = Failing(disk.Fails(Call::Truncate), real);
  if (status == 0) {
    disk.GiveBack(static_cast<std::uint64_t>(std::max<off64_t>(before.st_size - size, 0)));
    disk.Record({.What = Change::Kind::Truncate,
                 .File = FileOf(descriptor),
                 .Name = *name,
                 .Offset = static_cast<std::uint64_t>(size)});
    disk.Step();
  }
  return status;
}

int Sync(int descriptor, const char* real_name) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto real = [&] { return Next<int(int)>(real_name)(descriptor); };
  const auto name = disk.NameOf(descriptor);
  if (!name) {
    return real();
  }
  const int status = Failing(disk.Fails(Call::Sync), real);
  if (status == 0) {
    disk.Record({.What = name->empty() ? Change::Kind::SyncFolder : Change::Kind::Sync,
                 .File = FileOf(descriptor),
                 .Name = *name});
    disk.Step();
  }
  return status;
}

int Remove(const char* path, const auto& real) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto name = disk.IsWatching() ? disk.NameOf(Absolute(path)) : std::nullopt;
  if (!name) {
    return real();
  }
  const Entry before = EntryOf(path);
  const int status = Failing(before.IsThere ? disk.Fails(Call::Unlink) : Disk::kNoFailure, real);
  if (status == 0) {
    disk.GiveBack(before.Freed);
    disk.Record({.What = Change::Kind::Unlink, .File = before.File, .Name = *name});
    disk.Step();
  }
  return status;
}

/// A new name for a file; `what` is Rename or Link.
int Naming(Change::Kind what, const char* from, const char* to, const auto& real) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto name = disk.IsWatching() ? disk.NameOf(Absolute(from)) : std::nullopt;
  const auto new_name = disk.IsWatching() ? disk.NameOf(Absolute(to)) : std::nullopt;
  if (!name || !new_name) {
    return real();
  }
  const Entry moved = EntryOf(from);
  const Entry replaced = EntryOf(to);
  const int status = Failing(disk.Fails(Call::Rename), real);
  if (status == 0) {
    disk.GiveBack(replaced.Freed);
    disk.Record({.What = what, .File = moved.File, .Name = *name, .NewName = *new_name});
    disk.Step();
  }
  return status;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Open(path, flags, mode, "open");
}

int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Open(path, flags, mode, "open64");
}

FILE* fopen(const char* path, const char* mode) {
  return OpenStream(path, mode, "fopen");
}

FILE* fopen64(const char* path, const char* mode) {
  return OpenStream(path, mode, "fopen64");
}

int mkstemp(char* pattern) {
  return Opening(pattern, {.Creates = true}, [&] { return Next<int(char*)>("mkstemp")(pattern); });
}

int mkostemp(char* pattern, int flags) {
  return Opening(pattern, {.Creates = true},
                 [&] { return Next<int(char*, int)>("mkostemp")(pattern, flags); });
}

ssize_t read(int descriptor, void* bytes, size_t count) {
  return Read(descriptor,
              [&] { return Next<ssize_t(int, void*, size_t)>("read")(descriptor, bytes, count); });
}

ssize_t pread(int descriptor, void* bytes, size_t count, off_t offset) {
  return Read(descriptor, [&] {
    return Next<ssize_t(int, void*, size_t, off_t)>("pread")(descriptor, bytes, count, offset);
  });
}

ssize_t pread64(int descriptor, void* bytes, size_t count, off64_t offset) {
  return Read(descriptor, [&] {
    return Next<ssize_t(int, void*, size_t, off64_t)>("pread64")(descriptor, bytes, count, offset);
  });
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
  Disk& disk = Disk::The();
  const std::lock_guard lock(disk.Mutex);
  const auto real = [&](size_t part) {
    return Next<ssize_t(int, const void*, size_t)>("write")(descriptor, bytes, part);
  };
  const auto name = disk.NameOf(descriptor);
  return name ? Writing(descriptor, static_cast<const char*>(bytes), count, PlaceOf(descriptor),
                        *name, real)
              : real(count);
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
  {
    Disk& disk = Disk::The();
    const std::lock_guard lock(disk.Mutex);
    if (!disk.NameOf(descriptor)) {
      return Next<ssize_t(int, const iovec*, int)>("writev")(descriptor, parts, count);
    }
  }
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    bytes.append(static_cast<const char*>(parts[i].iov_base), parts[i].iov_len);
  }
  return write(descriptor, bytes.data(), bytes.size());
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t offset) {
  return WriteAt(descriptor, bytes, count, offset, "pwrite");
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t offset) {
  return WriteAt(descriptor, bytes, count, offset, "pwrite64");
}

int ftruncate(int descriptor, off_t size) noexcept {
  return Truncate(descriptor, size, "ftruncate");
}

int ftruncate64(int descriptor, off64_t size) noexcept {
  return Truncate(descriptor, size, "ftruncate64");
}

int fsync(int descriptor) {
  return Sync(descriptor, "fsync");
}

int fdatasync(int descriptor) {
  return Sync(descriptor, "fdatasync");
}

int unlink(const char* path) noexcept {
  return Remove(path, [&] { return Next<int(const char*)>("unlink")(path); });
}

int remove(const char* path) noexcept {
  return Remove(path, [&] { return Next<int(const char*)>("remove")(path); });
}

int rename(const char* from, const char* to) noexcept {
  return Naming(Change::Kind::Rename, from, to,
                [&] { return Next<int(const char*, const char*)>("rename")(from, to); });
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to,
              unsigned flags) noexcept {
  return Naming(Change::Kind::Rename, from, to, [&] {
    return Next<int(int, const char*, int, const char*, unsigned)>("renameat2")(
        from_folder, from, to_folder, to, flags);
  });
}

int link(const char* from, const char* to) noexcept {
  return Naming(Change::Kind::Link, from, to,
                [&] { return Next<int(const char*, const char*)>("link")(from, to); });
}

}  // extern "C"
