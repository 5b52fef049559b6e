// Copies the bytes of one file through descriptors, by the fastest way the two file systems offer, and keeps holes.
// Failures are error codes; the half copy is the caller's to discard.
#pragma once

#include "FileTransfer.h"

#include <map>
#include <vector>

class ByteCopier final {
  public:
    explicit ByteCopier(TransferObserver& observer) : m_observer(observer) {}

    struct Job {
        int source = -1;
        int destination = -1;
        std::uint64_t size = 0;
        bool mayHaveHoles = false;
        bool checkEnd = false; ///< ask whether the source ends where its size says
        std::uint64_t sourceDevice = 0;
        std::uint64_t destinationDevice = 0;
    };

    /// std::errc::operation_canceled when the observer gives up, io_error when the source ends before its size (or goes
    /// on behind it).
    [[nodiscard]] std::error_code Copy(const Job& job);

  private:
    struct Methods {
        bool clone = true;
        bool copyRange = true;
    };

    [[nodiscard]] std::error_code copyRange(const Job& job, Methods& methods, std::uint64_t begin, std::uint64_t end);
    [[nodiscard]] std::error_code copyByRanges(const Job& job, Methods& methods, std::uint64_t& at, std::uint64_t end);
    [[nodiscard]] std::error_code copyByReading(const Job& job, std::uint64_t& at, std::uint64_t end);
    [[nodiscard]] std::error_code copySegments(const Job& job, Methods& methods);
    [[nodiscard]] std::error_code copied(const Job& job, std::uint64_t at, std::uint64_t count);

    TransferObserver& m_observer;
    std::map<std::pair<std::uint64_t, std::uint64_t>, Methods> m_methods; ///< by the two devices
    std::vector<char> m_buffer;
};
