#include "DesktopKeyState.h"

#include "KeyState.h"
#include <QGuiApplication>
#include <QKeyEvent>

namespace {

/// For display systems that do not let a program ask for the keyboard.
class WindowKeyState final : public QObject, public KeyState {
  public:
    explicit WindowKeyState(QCoreApplication& application) { application.installEventFilter(this); }

    [[nodiscard]] bool IsF8Down() const override { return m_down; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ApplicationStateChange) {
            m_down = false; // the release goes to the window that has the focus now
        } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
            const auto* key = static_cast<const QKeyEvent*>(event);
            if (key->key() == Qt::Key_F8 && !key->isAutoRepeat())
                m_down = event->type() == QEvent::KeyPress;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    bool m_down = false;
};

} // namespace

std::unique_ptr<KeyState> MakeDesktopKeyState(QGuiApplication& application) {
    if (auto native = MakeNativeKeyState(QGuiApplication::platformName()))
        return native;
    return std::make_unique<WindowKeyState>(application);
}
