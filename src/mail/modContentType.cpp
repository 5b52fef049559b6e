#include "modContentType.h"

#include <QMimeDatabase>

QByteArray modContentType::GetContentType(const QString& fileName) {
    QByteArray unknown = QByteArrayLiteral("application/octet-stream");
    const qsizetype name = fileName.lastIndexOf(u'/') + 1;
    const qsizetype dot = fileName.lastIndexOf(u'.');
    if (dot < name || dot + 1 == fileName.size())
        return unknown;
    // The extension alone: the database also has patterns for whole names.
    const QList<QMimeType> types = QMimeDatabase().mimeTypesForFileName(u"file" + fileName.mid(dot));
    return types.isEmpty() ? unknown : types.first().name().toLatin1();
}
