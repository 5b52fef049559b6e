#include "LocalTime.h"
#include "Session.h"

#include <QtGlobal>
#include <iostream>

DisplayFacts ReadDisplayFacts() {
    return {qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY"),
            qEnvironmentVariable("QT_QPA_PLATFORM")};
}

bool EndsSessionWithCommit() {
    return false;
}

void WriteSystemLog(int priority, const QString& line) {
    if (qEnvironmentVariableIsSet("JOURNAL_STREAM"))
        std::cerr << '<' << priority << '>';
    std::cerr << line.toStdString() << '\n' << std::flush;
}

void UseUtf8Console() {}

QStringList CommandLineWords(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    return words;
}

void LocalTime::ReadZone() {
    ::tzset();
}

std::tm LocalTime::Parts(std::time_t seconds) {
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    return parts;
}
