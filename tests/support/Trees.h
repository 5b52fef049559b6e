// Whole folders as values, to compare what was with what is.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QString>

/// Relative path -> content ("<dir>" for folders, "-> target" for links).
inline QMap<QString, QByteArray> Tree(const QString& root) {
    QMap<QString, QByteArray> tree;
    QDirIterator walk(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QFileInfo entry(walk.next());
        const QString path = QDir(root).relativeFilePath(entry.filePath());
        QFile file(entry.filePath());
        if (entry.isSymLink())
            tree[path] = "-> " + QFile::encodeName(entry.symLinkTarget());
        else if (entry.isDir())
            tree[path] = "<dir>";
        else
            tree[path] = entry.isFile() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<special>");
    }
    return tree;
}
