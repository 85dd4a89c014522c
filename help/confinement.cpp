#include "help/confinement.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace veyra {
namespace {

#if defined(__x86_64__)
constexpr std::uint32_t kProcessor = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kProcessor = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t kProcessor = 0;
#endif

/// Reading and writing what is open, memory, and coming to an end, also by a crash.
constexpr std::uint32_t kAllowed[] = {
    __NR_read,         __NR_readv,          __NR_pread64,      __NR_write,
    __NR_writev,       __NR_lseek,          __NR_close,        __NR_brk,
    __NR_mmap,         __NR_munmap,         __NR_mremap,       __NR_mprotect,
    __NR_madvise,      __NR_futex,          __NR_getrandom,    __NR_clock_gettime,
    __NR_rt_sigaction, __NR_rt_sigprocmask, __NR_rt_sigreturn, __NR_restart_syscall,
    __NR_getpid,       __NR_gettid,         __NR_exit,         __NR_exit_group,
};

sock_filter Load(std::size_t place) {
  return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(place));
}

sock_filter Answer(std::uint32_t answer) {
  return BPF_STMT(BPF_RET | BPF_K, answer);
}

/// Goes on with the next rule when the number is that one, else leaves the next out.
sock_filter OnlyIf(std::uint32_t number) {
  return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1);
}

/// The calls of another processor, which have other numbers, end the process.
std::vector<sock_filter> Rules() {
  std::vector<sock_filter> rules{Load(offsetof(seccomp_data, arch)),
                                 BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kProcessor, 1, 0),
                                 Answer(SECCOMP_RET_KILL), Load(offsetof(seccomp_data, nr))};
  for (const std::uint32_t call : kAllowed) {
    rules.push_back(OnlyIf(call));
    rules.push_back(Answer(SECCOMP_RET_ALLOW));
  }
  rules.push_back(Answer(SECCOMP_RET_ERRNO | EPERM));
  return rules;
}

}  // namespace

bool ConfineThisProcess() {
  if (kProcessor == 0) {
    return false;
  }
  std::vector<sock_filter> rules = Rules();
  const sock_fprog program{static_cast<unsigned short>(rules.size()), rules.data()};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

}  // namespace veyra
