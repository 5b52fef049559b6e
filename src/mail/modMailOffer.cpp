#include "modMailOffer.h"

std::optional<QByteArrayList> modMailOffer::WordsOf(const QByteArray& reply, const QByteArray& keyword) {
    constexpr qsizetype codeLength = 4;
    QByteArrayList lines = reply.toUpper().split('\n');
    lines.removeFirst(); // the server's name
    for (const QByteArray& line : lines) {
        QByteArrayList words = line.mid(codeLength).replace('=', ' ').simplified().split(' ');
        if (words.takeFirst() == keyword)
            return words;
    }
    return std::nullopt;
}
