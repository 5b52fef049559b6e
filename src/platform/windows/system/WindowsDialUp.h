// The dial-up line among the connections of the remote access service. Owns nothing.
#pragma once

#include "DialUp.h"

class WindowsDialUp final : public DialUp {
  public:
    [[nodiscard]] bool IsActive() const override;
};
