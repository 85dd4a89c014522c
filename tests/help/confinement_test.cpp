#include "help/confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>

#include "help/sanitized.h"
#include "tests/help/help_samples.h"

namespace veyra {
namespace {

constexpr int kCannotBeConfined = 77;

/// What a confined process gets for its try: the errno it failed with, 0 when it did not.
int TriedInConfinement(const std::function<long()>& attempt) {
  const pid_t child = fork();
  if (child == 0) {
    if (!ConfineThisProcess()) {
      _exit(kCannotBeConfined);
    }
    _exit(attempt() < 0 ? errno : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class ConfinementTest : public testing::Test {
 protected:
  void SetUp() override {
    if (kIsSanitized || TriedInConfinement([] { return 0; }) == kCannotBeConfined) {
      GTEST_SKIP() << "no filter for calls here";
    }
  }
};

TEST_F(ConfinementTest, OpensNoFile) {
  EXPECT_EQ(EPERM, TriedInConfinement([] { return open("/etc/passwd", O_RDONLY); }));
}

TEST_F(ConfinementTest, MakesNoFile) {
  EXPECT_EQ(EPERM, TriedInConfinement([] { return creat("made-in-confinement", 0600); }));
}

TEST_F(ConfinementTest, MakesNoSocket) {
  EXPECT_EQ(EPERM, TriedInConfinement([] { return socket(AF_INET, SOCK_STREAM, 0); }));
  EXPECT_EQ(EPERM, TriedInConfinement([] { return socket(AF_UNIX, SOCK_STREAM, 0); }));
}

TEST_F(ConfinementTest, StartsNoProgram) {
  EXPECT_EQ(EPERM, TriedInConfinement([] { return execl("/bin/true", "true", nullptr); }));
  EXPECT_EQ(EPERM, TriedInConfinement([] { return fork(); }));
}

TEST_F(ConfinementTest, ReachesNoOtherProcess) {
  EXPECT_EQ(EPERM, TriedInConfinement([] { return kill(getppid(), 0); }));
}

TEST_F(ConfinementTest, ReadsWhatIsOpenAndTakesMemory) {
  const int file = open("/etc/passwd", O_RDONLY);
  EXPECT_EQ(0, TriedInConfinement([file] {
              const std::string room(10'000'000, 'x');
              char byte = room.back();
              return read(file, &byte, 1);
            }));
  close(file);
}

/// The reader on the way: it has begun to write, and nobody reads on.
class ReaderAtWork {
 public:
  ReaderAtWork() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
      std::abort();
    }
    output_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string name = kReader.string();
    std::string archive = kHelpFileName.string();
    char* arguments[] = {name.data(), archive.data(), nullptr};
    posix_spawn(&id_, name.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    char byte = 0;
    EXPECT_EQ(1, read(output_, &byte, 1));
  }

  ~ReaderAtWork() {
    close(output_);
    waitpid(id_, nullptr, 0);
  }
  ReaderAtWork(const ReaderAtWork&) = delete;
  ReaderAtWork& operator=(const ReaderAtWork&) = delete;

  /// The words after "NAME:" in what the kernel tells of the process.
  std::string Status(const std::string& name) const {
    std::ifstream status("/proc/" + std::to_string(id_) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with(name + ":\t")) {
        return line.substr(name.size() + 2);
      }
    }
    return {};
  }

 private:
  pid_t id_ = -1;
  int output_ = -1;
};

TEST_F(ConfinementTest, IsWhereTheReaderOfHelpFilesWorks) {
  const ReaderAtWork reader;
  EXPECT_EQ("2", reader.Status("Seccomp"));
  EXPECT_EQ("1", reader.Status("NoNewPrivs"));
}

}  // namespace
}  // namespace veyra
