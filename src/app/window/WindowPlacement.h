// Restores the main window's position and size from the settings and stores them again. Owns the last rectangle the
// window had while it was neither minimised nor hidden. Broken values take their defaults.
#pragma once

#include <QObject>
#include <QRect>
#include <QString>
#include <array>
#include <system_error>

class QWidget;
class SettingsStore;

/// The stored values: Top, Left, Width and Height in units of 1/15 pixel and WindowState. Keeps the texts as they were
/// loaded, so that a window the user has not moved is stored without drift.
class WindowPosition final {
  public:
    enum class State { Normal = 0, Minimised = 1, Maximised = 2 };
    static constexpr int UnitsPerPixel = 15;

    /// The defaults: Top 200, Left 200, Width 9375, Height 6960, normal.
    WindowPosition();

    void Load(const SettingsStore& settings);

    /// In pixels; width and height are at least 1.
    [[nodiscard]] QRect Rectangle() const;
    [[nodiscard]] State WindowState() const { return m_state; }

    /// The pixels the window really got after the restore: a minimum size or another screen can change them.
    void SetRestored(const QRect& rectangle) { m_restored = rectangle; }

    /// Stores a rectangle in pixels. A value that has not changed since the restore keeps its text.
    std::error_code Save(SettingsStore& settings, const QRect& rectangle, State state) const;

    /// The rectangle itself when its title bar can be reached on one of the screens; else moved onto the first one.
    [[nodiscard]] static QRect Reachable(const QRect& rectangle, const QList<QRect>& screens);

  private:
    std::array<QString, 4> m_texts; ///< Top, Left, Width, Height
    State m_state = State::Normal;
    QRect m_restored;
};
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
