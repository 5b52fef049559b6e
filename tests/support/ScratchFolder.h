// A folder of the test's own, gone with its end, and short ways to put files there and to look at them.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <filesystem>

class ScratchFolder {
  public:
    /// An absolute name stays as it is.
    [[nodiscard]] QString Path(const QString& name = {}) const {
        return QDir::toNativeSeparators(QDir(folder.path()).filePath(name));
    }
    [[nodiscard]] QString Path(const char* name) const { return Path(QString::fromLatin1(name)); }
    [[nodiscard]] std::filesystem::path Native(const QString& name = {}) const { return Path(name).toStdU16String(); }

    /// Makes the folders above it as well.
    bool Write(const QString& name, const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(Path(name)).path());
        QFile file(Path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }
    [[nodiscard]] QByteArray Read(const QString& name) const {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }
    [[nodiscard]] bool Exists(const QString& name) const { return QFile::exists(Path(name)); }
    /// Hidden ones too.
    [[nodiscard]] QStringList Entries(const QString& name = {}) const {
        return QDir(Path(name)).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
};
