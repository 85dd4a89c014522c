#include <fcntl.h>
#include <sys/resource.h>

#include <cstdio>
#include <string>

#include "help/archive_stream.h"
#include "help/chm_objects.h"
#include "help/confinement.h"
#include "help/sanitized.h"

namespace {

constexpr rlim_t kMostSeconds = 5;
constexpr rlim_t kMostMemory = 512U << 20U;

void Limit(auto resource, rlim_t most) {
  const rlimit limit{most, most};
  setrlimit(resource, &limit);
}

void LimitThisProcess() {
  Limit(RLIMIT_CORE, 0);
  Limit(RLIMIT_CPU, kMostSeconds);
  if (!veyra::kIsSanitized) {
    Limit(RLIMIT_AS, kMostMemory);
    veyra::ConfineThisProcess();
  }
}

void Write(const std::string& bytes) {
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

}  // namespace

/// Writes the objects of the help archive named by the one argument to standard output, as
/// archive_stream.h describes. Ends with 0 when all of them were read. Before the first byte of it
/// is looked at, this process can do little else than that.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: veyra-help-reader FILE.chm > objects\n", stderr);
    return 2;
  }
  const int archive = openat(AT_FDCWD, argv[1], O_RDONLY | O_CLOEXEC);
  if (archive < 0) {
    return 1;
  }
  LimitThisProcess();
  const bool whole = veyra::ForEachObject(
      archive, [](const veyra::HelpObject& object) { Write(veyra::StreamedObject(object)); });
  if (!whole) {
    return 1;
  }
  Write(veyra::StreamEnd());
  return std::fflush(stdout) == 0 ? 0 : 1;
}
