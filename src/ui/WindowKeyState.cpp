#include "WindowKeyState.h"

#include <QCoreApplication>
#include <QKeyEvent>

WindowKeyState::WindowKeyState(QCoreApplication& application) {
    application.installEventFilter(this);
}

bool WindowKeyState::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationStateChange) {
        m_down = false; // the release goes to whoever has the focus now
    } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        if (key->key() == Qt::Key_F8 && !key->isAutoRepeat())
            m_down = event->type() == QEvent::KeyPress;
    }
    return QObject::eventFilter(watched, event);
}
