// Whether this computer is connected through a dial-up line. Owns nothing; what cannot be found out counts as no.
#pragma once

class DialUp {
  public:
    virtual ~DialUp() = default;

    /// True when exactly one dial-up connection is up; false for none and for several.
    [[nodiscard]] virtual bool IsActive() const = 0;
};
