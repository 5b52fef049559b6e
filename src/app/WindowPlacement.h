// Brings a window back to where it stood and remembers where it stands. Owns the last rectangle the window had while it
// was neither minimised nor hidden.
#pragma once

#include "WindowPosition.h"
#include <QObject>

class QWidget;
class SettingsStore;

class WindowPlacement final : public QObject {
    Q_OBJECT
  public:
    WindowPlacement(QWidget& window, SettingsStore& settings);

    /// Moves the window, sizes it and shows it in its stored state.
    void Restore();
    std::error_code Save() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void note();

    QWidget& m_window;
    SettingsStore& m_settings;
    WindowPosition m_position;
    QRect m_last;
};
