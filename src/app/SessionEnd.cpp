#include "SessionEnd.h"

#include <QCoreApplication>
#include <QEvent>

SessionEnd::SessionEnd(QCoreApplication& application) {
    application.installEventFilter(this);
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Quit || watched != QCoreApplication::instance())
        return QObject::eventFilter(watched, event);
    event->accept();
    Q_EMIT Requested();
    return true;
}
