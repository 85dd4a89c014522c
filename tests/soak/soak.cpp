#include <malloc.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "forms/widgets/qt_style.h"
#include "tests/soak/monkey.h"

namespace {

constexpr int kWarmUp = 2'000;           ///< Actions after which the memory must stay flat.
constexpr int kBetweenLooks = 1'000;     ///< Actions after which it is told.
constexpr long kMostGrowth = 8L << 20U;  ///< Bytes.

long MemoryInUse() {
  malloc_trim(0);
  long pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> pages;
  return pages * sysconf(_SC_PAGESIZE);
}

void TellMemory(long actions) {
  std::printf("after %ld actions: %ld KB\n", actions, MemoryInUse() / 1024);
  std::fflush(stdout);
}

void Quieten(QtMsgType, const QMessageLogContext&, const QString&) {}

int Soak(long seconds, long most_actions, unsigned seed) {
  std::printf("seed %u\n", seed);
  veyra::soak::Monkey monkey(seed);
  QElapsedTimer time;
  time.start();
  long actions = 0;
  long memory_then = 0;
  for (; time.elapsed() < seconds * 1000 && actions < most_actions; ++actions) {
    if (actions % kBetweenLooks == 0) {
      TellMemory(actions);
    }
    if (actions == kWarmUp) {
      memory_then = MemoryInUse();
    }
    const std::string fault = monkey.Act();
    if (!fault.empty()) {
      std::printf("%s\nAction %ld went wrong: %s\n", monkey.Story().c_str(), actions,
                  fault.c_str());
      return 1;
    }
  }
  std::printf(
      "%ld actions in %lld s, none went wrong; %d times bookings were made, changed or deleted\n",
      actions, static_cast<long long>(time.elapsed() / 1000), monkey.Reports());
  if (memory_then == 0) {
    return 0;
  }
  const long growth = MemoryInUse() - memory_then;
  std::printf("memory: %ld KB after %d actions, %+ld KB since\n", memory_then / 1024, kWarmUp,
              growth / 1024);
  return growth > kMostGrowth ? 1 : 0;
}

}  // namespace

/// soak SECONDS [SEED [ACTIONS]]: ends with 0 when nothing went wrong in so long, or so many.
int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: soak SECONDS [SEED [ACTIONS]]\n", stderr);
    return 2;
  }
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  qInstallMessageHandler(Quieten);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setStyle(new veyra::QtStyle);
  const unsigned seed = argc > 2 ? static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10)) : 1;
  const long actions = argc > 3 ? std::atol(argv[3]) : 1'000'000'000;
  return Soak(std::atol(argv[1]), actions, seed);
}
