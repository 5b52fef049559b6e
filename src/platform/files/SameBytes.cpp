#include "SameBytes.h"

bool HaveSameBytes(const ReadBytes& first, const ReadBytes& second, TransferObserver& observer) {
    constexpr std::size_t part = std::size_t{256} * 1024;
    std::vector<char> one;
    std::vector<char> other;
    for (std::uint64_t at = 0;; at += one.size()) {
        one.resize(part);
        other.resize(part);
        if (!first(at, one) || !second(at, other) || one != other)
            return false;
        if (one.empty())
            return true;
        observer.Progress(0);
        if (observer.MustGiveUp())
            return false;
    }
}
