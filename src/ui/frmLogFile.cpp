#include "frmLogFile.h"

#include "FormParts.h"
#include "LogPart.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <chrono>

namespace {

constexpr std::chrono::seconds refreshInterval{10};
constexpr qint64 step = LogPart::MostBytes / 2;

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

    m_text->installEventFilter(this);
    // Not in the middle of the box's own scrolling.
    connect(m_text->verticalScrollBar(), &QScrollBar::valueChanged, this, &frmLogFile::loadNeighbour,
            Qt::QueuedConnection);
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
    fill(LogPart::Last(modNativePath::FromText(m_path)));
    m_text->moveCursor(QTextCursor::End);
}

void frmLogFile::loadStart() {
    fill(LogPart::From(modNativePath::FromText(m_path), 0, 0));
}

/// At the upper edge the part before, at the lower edge the one behind. What was at the edge stays in view.
void frmLogFile::loadNeighbour() {
    QScrollBar& bar = *m_text->verticalScrollBar();
    const bool isSelecting = QGuiApplication::mouseButtons() != Qt::NoButton && !bar.isSliderDown();
    if (isSelecting)
        return;
    const std::filesystem::path file = modNativePath::FromText(m_path);
    if (bar.value() == bar.minimum() && m_begin > 0) {
        const LogPart part = LogPart::From(file, m_begin - step, m_begin);
        fill(part);
        bar.setValue(part.linesAbove);
    } else if (bar.value() == bar.maximum() && m_end < m_size) {
        const LogPart part = LogPart::From(file, m_begin + step, m_end);
        fill(part);
        bar.setValue(part.linesAbove - bar.pageStep());
    }
}

void frmLogFile::fill(const LogPart& part) {
    m_begin = part.begin;
    m_end = part.end;
    m_size = part.size;
    m_text->setPlaceholderText(part.error ? m_texts[Text::LogUnreadable] + u'\n' + modForeignText::OfError(part.error)
                                          : QString());
    m_text->setPlainText(part.text);
}

bool frmLogFile::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_text || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.matches(QKeySequence::MoveToStartOfDocument))
        loadStart();
    else if (key.matches(QKeySequence::MoveToEndOfDocument))
        load();
    else
        return QDialog::eventFilter(watched, event);
    return true;
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
