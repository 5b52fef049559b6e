// Names one process among all that can reach a shared folder: machine, boot, process number, start time. A plain value;
// what cannot be read stays 0, and then the process counts as living.
#pragma once

#include <cstdint>
#include <sys/types.h>

struct ProcessMark {
    std::uint32_t machine = 0; ///< of host and process name space
    std::uint32_t boot = 0;
    pid_t process = 0;
    std::uint64_t startTicks = 0; ///< clock ticks since boot

    [[nodiscard]] static ProcessMark OfThisProcess();

    bool operator==(const ProcessMark&) const = default;
};

enum class ProcessState { Alive, Gone, OnAnotherMachine };

/// What has become of the process `mark`, seen from the process `own`.
[[nodiscard]] ProcessState StateOf(const ProcessMark& mark, const ProcessMark& own);
