#include "modLogTail.h"

#include "modRegularFile.h"
#include <QFile>
#include <algorithm>

namespace {

QString withBrokenLines(const QString& text) {
    QString broken;
    broken.reserve(text.size());
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype end = text.indexOf(u'\n', begin);
        const qsizetype length = (end < 0 ? text.size() : end + 1) - begin;
        const qsizetype taken = std::min(length, modLogTail::LongestLine);
        broken += QStringView(text).mid(begin, taken);
        if (taken < length)
            broken += u'\n';
        begin += taken;
    }
    return broken;
}

} // namespace

modLogTail::Tail modLogTail::Read(const std::filesystem::path& file, qint64 limit) {
    Tail tail;
    QFile opened;
    tail.error = modRegularFile::Open(file, opened);
    if (tail.error)
        return tail;
    const qint64 skipped = std::max<qint64>(opened.size() - limit, 0);
    const bool isThere = opened.seek(skipped);
    QByteArray bytes = opened.read(limit);
    if (!isThere || opened.error() != QFileDevice::NoError) {
        tail.error = std::make_error_code(std::errc::io_error);
        return tail;
    }
    tail.isShortened = skipped > 0;
    if (tail.isShortened)
        bytes.remove(0, bytes.indexOf('\n') + 1);
    tail.text = withBrokenLines(QString::fromUtf8(bytes));
    return tail;
}
