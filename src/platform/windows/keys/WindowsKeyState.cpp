#include "KeyState.h"

#include <windows.h>

namespace {

class WindowsKeyState final : public KeyState {
  public:
    [[nodiscard]] bool IsF8Down() const override { return GetAsyncKeyState(VK_F8) < 0; } // the top bit
};

} // namespace

std::unique_ptr<KeyState> MakeNativeKeyState(const QString& plugin) {
    return plugin == u"windows" ? std::make_unique<WindowsKeyState>() : nullptr;
}
