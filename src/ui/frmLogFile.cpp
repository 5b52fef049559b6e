#include "frmLogFile.h"

#include "FormParts.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include "modRegularFile.h"
#include <QFile>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <filesystem>

namespace {

constexpr std::chrono::seconds refreshInterval{10};
constexpr qint64 bytesPerMebibyte = 1 << 20;
constexpr qsizetype longestLine = 10'000; // the box would take minutes to show one of millions

/// The end of a log.
struct Tail {
    QString text;             ///< as UTF-8, invalid bytes shown as U+FFFD; empty on an error
    bool isShortened = false; ///< the log is longer: the text begins with the first whole line of its end
    std::error_code error;
};

/// No log has lines that long, but some other file may.
QString withBrokenLines(const QString& text) {
    QString broken;
    broken.reserve(text.size());
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype end = text.indexOf(u'\n', begin);
        const qsizetype length = (end < 0 ? text.size() : end + 1) - begin;
        const qsizetype taken = std::min(length, longestLine);
        broken += QStringView(text).mid(begin, taken);
        if (taken < length)
            broken += u'\n';
        begin += taken;
    }
    return broken;
}

/// The last `limit` bytes. Whatever the path names, it neither waits nor reads without a bound.
Tail readTail(const std::filesystem::path& file, qint64 limit) {
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

} // namespace

frmLogFile::frmLogFile(const StringTable& texts, QWidget* parent)
    : QDialog(parent), m_texts(texts), m_text(FormParts::TextBox("rtfText", texts[Text::LogFile])),
      m_refresh(new QTimer(this)) {
    setObjectName(QStringLiteral("frmLogFile"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_text->setFrameShape(QFrame::NoFrame);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_text);
    resize(760, 460);

    m_refresh->setObjectName(QStringLiteral("tmrRefresh"));
    m_refresh->setInterval(refreshInterval);
    connect(m_refresh, &QTimer::timeout, this, &frmLogFile::load);
}

void frmLogFile::SetFileName(const QString& path) {
    m_path = path;
    setWindowTitle(u"Kalvenor Log   [" + path + u']');
    load();
}

void frmLogFile::StartTimer() {
    m_refresh->start();
}

void frmLogFile::load() {
    const Tail tail = readTail(modNativePath::FromText(m_path), MostMebibytes * bytesPerMebibyte);
    // The note takes the place of the missing lines.
    const QString note =
        tail.isShortened ? QString(u'[' + m_texts[Text::LogCutOff].arg(MostMebibytes) + u"]\n\n") : QString();
    m_text->setPlaceholderText(tail.error ? m_texts[Text::LogUnreadable] + u'\n' + modForeignText::OfError(tail.error)
                                          : QString());
    m_text->setPlainText(note + tail.text);
    m_text->moveCursor(QTextCursor::End);
}

void frmLogFile::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // The text was loaded before the box had a size.
    layout()->activate();
    m_text->ensureCursorVisible();
}

void frmLogFile::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F5)
        load();
    else
        QDialog::keyPressEvent(event);
}
