// The one exception of this floor, with the error number callers know: 380 invalid value, 6 overflow, 13 not a number.
#pragma once

#include <stdexcept>

class EngineError final : public std::runtime_error {
  public:
    EngineError(int number, const char* what) : std::runtime_error(what), m_number(number) {}
    [[nodiscard]] int Number() const { return m_number; }

  private:
    int m_number;
};
