// Makes chosen system calls of this process fail, from now on and for good: for use in a forked child only. What cannot
// be arranged on a machine, a file system without some call or a disk that breaks, is arranged at the kernel's door.
#pragma once

#include <cstddef>
#include <cstdint>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <vector>

struct SystemCallFault {
    long call = 0;
    int error = 0; ///< 0: the call does nothing and gives 0
    unsigned argument = 0;
    std::uint32_t bits = 0; ///< only calls with all these bits set in the argument

    /// False when the kernel offers no filter.
    [[nodiscard]] static bool Install(const std::vector<SystemCallFault>& faults) {
        std::vector<struct sock_filter> program;
        for (const SystemCallFault& fault : faults) {
            const auto argumentAt =
                static_cast<std::uint32_t>(offsetof(struct seccomp_data, args) + 8 * std::size_t{fault.argument});
            const std::uint32_t result = SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(fault.error);
            program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(struct seccomp_data, nr)));
            program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(fault.call), 0, 4));
            program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, argumentAt));
            program.push_back(BPF_STMT(BPF_ALU | BPF_AND | BPF_K, fault.bits));
            program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, fault.bits, 0, 1));
            program.push_back(BPF_STMT(BPF_RET | BPF_K, result));
        }
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
        const struct sock_fprog filter { static_cast<unsigned short>(program.size()), program.data() };
        return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
               ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
    }
};
