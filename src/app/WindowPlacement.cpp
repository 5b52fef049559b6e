#include "WindowPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

WindowPlacement::WindowPlacement(QWidget& window, SettingsStore& settings) : m_window(window), m_settings(settings) {
    window.installEventFilter(this);
}

void WindowPlacement::Restore() {
    m_position.Load(m_settings);
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    const QRect rectangle = WindowPosition::Reachable(m_position.Rectangle(), screens);
    m_window.resize(rectangle.size());
    m_window.move(rectangle.topLeft());
    m_last = QRect(m_window.pos(), m_window.size());
    m_position.SetRestored(m_last);
    switch (m_position.WindowState()) {
    case WindowPosition::State::Normal:
        return m_window.show();
    case WindowPosition::State::Minimised:
        return m_window.showMinimized();
    case WindowPosition::State::Maximised:
        return m_window.showMaximized();
    }
}

void WindowPlacement::note() {
    if (m_window.isVisible() && !m_window.isMinimized())
        m_last = QRect(m_window.pos(), m_window.size());
}

bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        note();
    return QObject::eventFilter(watched, event);
}

std::error_code WindowPlacement::Save() const {
    auto state = WindowPosition::State::Normal;
    if (m_window.isMinimized())
        state = WindowPosition::State::Minimised;
    else if (m_window.isMaximized())
        state = WindowPosition::State::Maximised;
    return m_position.Save(m_settings, m_last, state);
}
