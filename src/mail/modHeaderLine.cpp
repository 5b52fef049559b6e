#include "modHeaderLine.h"

#include <QStringBuilder>

QByteArray modHeaderLine::Write(const QByteArray& name, const QByteArray& value) {
    constexpr qsizetype longestLine = 990;
    QByteArray line;
    qsizetype column = 0;
    for (const char letter : QByteArray(name + ": " + value)) {
        if (letter == '\r' || letter == '\n') {
            column = 0;
        } else if (++column > longestLine) {
            line.append("\r\n\t");
            column = 2;
        }
        line.append(letter);
    }
    return line.append("\r\n");
}
