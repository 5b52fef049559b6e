// An activity file in a folder of its own, with everything that works on it. Real files, a prompter that answers.
#pragma once

#include "ActivityFile.h"
#include "Fakes.h"
#include "LinuxOwnFiles.h"
#include "ProgramPlaces.h"
#include "StringTable.h"
#include "clsXML.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

struct ScratchStore {
    ScratchStore() {
        QDir().mkpath(folder.filePath(QStringLiteral("program")));
        QDir().mkpath(folder.filePath(QStringLiteral("cwd")));
        places.programFolder = Path("program").toStdString();
        places.userDataFolder = Path("data").toStdString();
    }
    [[nodiscard]] QString Path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    static QByteArray Bytes(const QString& file) {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("<unreadable>");
    }
    static bool Put(const QString& file, const QByteArray& bytes) {
        QFile opened(file);
        return opened.open(QIODevice::WriteOnly) && opened.write(bytes) == bytes.size();
    }

    QTemporaryDir folder;
    LinuxOwnFiles files;
    clsXML document{files};
    FakePrompter prompter;
    StringTable texts{Language::English};
    ProgramPlaces places;
};
