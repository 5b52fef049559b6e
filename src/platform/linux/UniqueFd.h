// Owns one file descriptor and closes it with its end. Nothing here fails.
#pragma once

#include <unistd.h>
#include <utility>

class UniqueFd final {
  public:
    UniqueFd() = default;
    explicit UniqueFd(int descriptor) : m_descriptor(descriptor) {}
    UniqueFd(UniqueFd&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept {
        if (this != &other) {
            Reset();
            m_descriptor = std::exchange(other.m_descriptor, -1);
        }
        return *this;
    }
    UniqueFd(const UniqueFd&) = delete;
    UniqueFd& operator=(const UniqueFd&) = delete;
    ~UniqueFd() { Reset(); }

    [[nodiscard]] bool IsOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int Get() const { return m_descriptor; }
    void Reset() {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
        m_descriptor = -1;
    }

  private:
    int m_descriptor = -1;
};
