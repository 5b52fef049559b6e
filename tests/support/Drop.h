// Drops something that was dragged in from elsewhere onto a widget.
#pragma once

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

/// False when the widget refuses what is dragged over it.
inline bool Drop(QWidget& onto, const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&onto, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&onto, &drop);
    QCoreApplication::processEvents();
    return true;
}
