// A file system that refuses: on this thread alone, some calls of the system's fail from now on.
#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

#include <cstdint>
#include <thread>
#include <utility>
#include <vector>

namespace vellix {

// Does the work on a thread on which those calls fail with that error. False when they cannot be
// made to.
template <class Work>
bool withoutCalls(const std::vector<long>& calls, int error, Work work) {
  bool refused = false;
  std::thread([&] {
    std::vector<sock_filter> program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, 0)};
    for (const long call : calls) {
      program.push_back(
          BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 1));
      program.push_back(
          BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(error)));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    refused = ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
              ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
    if (refused) work();
  }).join();
  return refused;
}

}  // namespace vellix
