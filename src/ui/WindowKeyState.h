// The F8 key as the program's own windows see it, for display systems that do not let a program ask for the keyboard.
// Watches the application's key events; never fails.
#pragma once

#include "KeyState.h"
#include <QObject>

class QCoreApplication;

class WindowKeyState final : public QObject, public KeyState {
    Q_OBJECT
  public:
    explicit WindowKeyState(QCoreApplication& application);

    [[nodiscard]] bool IsF8Down() const override { return m_down; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool m_down = false;
};
