#include <dlfcn.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

// To be loaded before a program (LD_PRELOAD): a flush waits as long as a disk that turns would let
// it wait, VEYRA_FLUSH_MS milliseconds, and so does a read of a calendar (*.mdb), VEYRA_READ_MS.
// With VEYRA_COUNT the numbers of both are told in the end.

namespace {

void Wait(const char* variable) {
  const char* const milliseconds = getenv(variable);
  const double count = milliseconds == nullptr ? 0 : strtod(milliseconds, nullptr);
  if (count > 0) {
    const auto seconds = static_cast<time_t>(count / 1000);
    const timespec time{seconds,
                        static_cast<long>((count - static_cast<double>(seconds) * 1000) * 1e6)};
    nanosleep(&time, nullptr);
  }
}

template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

struct Counts {
  long Flushes = 0;
  long Reads = 0;

  ~Counts() {
    if (getenv("VEYRA_COUNT") != nullptr) {
      fprintf(stderr, "%ld flushes, %ld reads\n", Flushes, Reads);
    }
  }
};

Counts counts;

bool IsOfCalendar(int descriptor) {
  char link[64];
  char path[4096];
  snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
  const ssize_t length = readlink(link, path, sizeof path);
  return length > 0 && std::string_view(path, static_cast<std::size_t>(length)).ends_with(".mdb");
}

ssize_t Read(const char* name, int descriptor, void* bytes, size_t count, off_t offset) {
  using Call = ssize_t(int, void*, size_t, off_t);
  if (IsOfCalendar(descriptor)) {
    ++counts.Reads;
    Wait("VEYRA_READ_MS");
  }
  return Next<Call>(name)(descriptor, bytes, count, offset);
}

int Flush(const char* name, int descriptor) {
  ++counts.Flushes;
  Wait("VEYRA_FLUSH_MS");
  return Next<int(int)>(name)(descriptor);
}

}  // namespace

extern "C" {

int fsync(int descriptor) {
  return Flush("fsync", descriptor);
}

int fdatasync(int descriptor) {
  return Flush("fdatasync", descriptor);
}

ssize_t pread(int descriptor, void* bytes, size_t count, off_t offset) {
  return Read("pread", descriptor, bytes, count, offset);
}

ssize_t pread64(int descriptor, void* bytes, size_t count, off_t offset) {
  return Read("pread64", descriptor, bytes, count, offset);
}
}
