// What a Time Protocol server (RFC 868) has sent so far. Owns the bytes, at most one more than MaxBytes.
#pragma once

#include <QByteArray>
#include <chrono>
#include <optional>

class TimeAnswer final {
  public:
    static constexpr qsizetype MaxBytes = 64; ///< a server that sends more is no time server

    void Add(const QByteArray& bytes) { m_bytes += bytes.left(MaxBytes + 1 - m_bytes.size()); }
    [[nodiscard]] bool IsTooLong() const { return m_bytes.size() > MaxBytes; }

    /// The time (UTC) in the first four bytes plus half of the round trip, rounded to seconds. nullopt for fewer bytes
    /// and for times before 1921-12-13 20:45:52, which do not fit a signed 32-bit count from 1990.
    [[nodiscard]] std::optional<std::chrono::sys_seconds> Time(std::chrono::steady_clock::duration roundTrip) const;

  private:
    QByteArray m_bytes;
};
