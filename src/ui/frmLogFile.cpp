#include "frmLogFile.h"

#include "StringTable.h"
#include "modForeignText.h"
#include "modLogTail.h"
#include "modNativePath.h"
#include "modTextBox.h"
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <chrono>

namespace {
constexpr std::chrono::seconds RefreshInterval{10};
constexpr qint64 BytesPerMebibyte = 1 << 20;
} // namespace

frmLogFile::frmLogFile(const StringTable& texts, QWidget* parent)
    : QDialog(parent), m_texts(texts), m_text(modTextBox::Make(QStringLiteral("rtfText"), texts[Text::LogFile])),
      m_refresh(new QTimer(this)) {
    setObjectName(QStringLiteral("frmLogFile"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_text->setFrameShape(QFrame::NoFrame);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_text);
    resize(760, 460);

    m_refresh->setObjectName(QStringLiteral("tmrRefresh"));
    m_refresh->setInterval(RefreshInterval);
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
    const modLogTail::Tail tail = modLogTail::Read(modNativePath::FromText(m_path), MostMebibytes * BytesPerMebibyte);
    // The note stands where the missing lines would.
    const QString note =
        tail.isShortened ? QString(u'[' + m_texts[Text::LogCutOff].arg(MostMebibytes) + u"]\n\n") : QString();
    m_text->setPlaceholderText(tail.error ? m_texts[Text::LogUnreadable] + u'\n' + modForeignText::OfError(tail.error)
                                          : QString());
    m_text->setPlainText(note + tail.text);
    m_text->moveCursor(QTextCursor::End);
}

void frmLogFile::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // The text was loaded into a box that had no size yet.
    layout()->activate();
    m_text->ensureCursorVisible();
}

void frmLogFile::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F5)
        load();
    else
        QDialog::keyPressEvent(event);
}
