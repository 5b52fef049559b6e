// How long a file must have been left untouched before a run takes it: one that changed a moment ago may still be
// being written. A value.
#pragma once

#include "FileFacts.h"
#include <QString>
#include <algorithm>
#include <chrono>

class SettleTime final {
  public:
    static constexpr std::chrono::seconds Longest{24 * 60 * 60};

    /// Takes every file.
    SettleTime() = default;

    /// `text`: whole seconds, of the record. What is no number above 0 takes every file.
    explicit SettleTime(const QString& text)
        : m_length(std::clamp<std::chrono::seconds>(std::chrono::seconds(text.toInt()), {}, Longest)) {}

    [[nodiscard]] bool IsOn() const { return m_length.count() > 0; }
    [[nodiscard]] std::chrono::seconds Length() const { return m_length; }

    /// A time that lies further ahead of `now` is another clock's: such a file would never settle.
    [[nodiscard]] bool HasSettled(const FileFacts& file, std::chrono::system_clock::time_point now) const {
        const auto isRecent = [&](std::int64_t nanoseconds) {
            const auto age = now.time_since_epoch() - std::chrono::nanoseconds(nanoseconds);
            return age < m_length && age > -m_length;
        };
        return !IsOn() || (!isRecent(file.modified.nanoseconds) && !isRecent(file.changed));
    }

  private:
    std::chrono::seconds m_length{0};
};
