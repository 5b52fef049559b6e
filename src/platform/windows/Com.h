// Keeps the component object model up on this thread as long as it lives. Where somebody has brought it up in another
// way it is used as it is.
#pragma once

#include <objbase.h>

class Com final {
  public:
    Com() : m_isOurs(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
    ~Com() {
        if (m_isOurs)
            CoUninitialize();
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

  private:
    bool m_isOurs;
};
