#include "LogPane.h"

#include "FormParts.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QVBoxLayout>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds lookInterval{500};

} // namespace

LogPane::LogPane(const StringTable& texts, std::shared_ptr<const LogKinds> kinds)
    : m_texts(texts), m_kinds(std::move(kinds)), m_box(FormParts::TextBox("rtfText", texts[Text::LogFile])),
      m_text(*m_box, m_kinds != nullptr) {
    m_box->setFrameShape(QFrame::NoFrame);
    setFocusProxy(m_box);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_box);
    m_box->installEventFilter(this);
    QScrollBar* bar = m_box->verticalScrollBar();
    // Not in the middle of the box's own scrolling.
    connect(bar, &QScrollBar::valueChanged, this, &LogPane::loadNeighbour, Qt::QueuedConnection);
    connect(bar, &QScrollBar::valueChanged, this, &LogPane::scrolled);
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar] {
        if (m_follows)
            bar->setValue(bar->maximum());
    });
    if (m_kinds == nullptr)
        return;
    m_box->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_box, &QWidget::customContextMenuRequested, this, &LogPane::showMenu);
    m_look.setInterval(lookInterval);
    connect(&m_look, &QTimer::timeout, this, &LogPane::look);
    m_look.start();
}

void LogPane::Open(const std::filesystem::path& log) {
    m_log = log;
    ShowEnd();
}

void LogPane::ask(const Read& read, const Then& then) {
    if (m_kinds && m_box->placeholderText().isEmpty()) // the first time
        m_box->setPlaceholderText(m_texts[Text::ReadingLog]);
    m_parts.Run([reader = reader(), read, then](const std::atomic_bool&) -> BackgroundRead::Then {
        const auto part = std::make_shared<const LogPart>(read(reader));
        return [part, then] { then(*part); };
    });
}

QString LogPane::reason(std::error_code error) const {
    return m_texts[Text::LogUnreadable] + u'\n' + modForeignText::OfError(error);
}

void LogPane::show(const LogPart& part) {
    {
        const QScopedValueRollback changing(m_isChanging, true);
        m_text.Show(part);
    }
    m_size = part.size;
    m_head = part.head;
    m_error = part.error;
    showPlaceholder();
    Q_EMIT Noticed(QString());
}

void LogPane::showPlaceholder() {
    const bool isAll = m_text.Begin() == 0 && isAtEnd();
    QString text;
    if (m_error)
        text = reason(m_error);
    else if (m_kinds)
        text = m_texts[!isAll ? Text::ReadingLog : m_size == 0 ? Text::LogIsEmpty : Text::NoSuchLines];
    m_box->setPlaceholderText(text);
}

void LogPane::goToEnd() {
    const QScopedValueRollback changing(m_isChanging, true);
    if (!m_box->textCursor().hasSelection())
        m_box->moveCursor(QTextCursor::End);
    m_box->verticalScrollBar()->setValue(m_box->verticalScrollBar()->maximum());
}

void LogPane::ShowEnd() {
    ask([](const LogReader& reader) { return reader.Last(); },
        [this](const LogPart& part) {
            show(part);
            goToEnd();
            loadNeighbour();
        });
}

void LogPane::ShowStart() {
    Follow(false);
    Q_EMIT FollowEnded();
    ask([](const LogReader& reader) { return reader.From(0); },
        [this](const LogPart& part) {
            show(part);
            m_box->moveCursor(QTextCursor::Start);
            loadNeighbour();
        });
}

void LogPane::ShowAt(qint64 position) {
    ask([position](const LogReader& reader) { return reader.Around(position); },
        [this, position](const LogPart& part) {
            show(part);
            const QScopedValueRollback changing(m_isChanging, true);
            if (position >= part.size || !m_text.Mark(std::max<qint64>(position, 0)))
                return ShowEnd();
            loadNeighbour();
        });
}

void LogPane::Refresh() {
    if (m_follows)
        return ShowEnd();
    ask([top = m_text.Now().top](const LogReader& reader) { return reader.Around(top); },
        [this](const LogPart& part) {
            const LogText::View view = m_text.Now();
            const bool isSameLog = part.head.startsWith(m_head);
            show(part);
            const QScopedValueRollback changing(m_isChanging, true);
            if (isSameLog)
                m_text.Restore(view);
            loadNeighbour();
        });
}

void LogPane::ShowOnly(LogKindSet kinds) {
    if (m_wanted == kinds)
        return;
    m_wanted = kinds;
    m_search.Cancel();
    Q_EMIT SearchEnded(QString());
    Refresh();
}

void LogPane::Follow(bool follow) {
    if (m_follows == follow)
        return;
    m_follows = follow;
    if (follow)
        ShowEnd();
}

/// The end is followed until the user scrolls away from it.
void LogPane::scrolled() {
    const QScrollBar& bar = *m_box->verticalScrollBar();
    if (!m_follows || m_isChanging || bar.value() >= bar.maximum())
        return;
    m_follows = false;
    Q_EMIT FollowEnded();
}

bool LogPane::isSame(const LogPart& part) {
    if (part.head.startsWith(m_head) && part.size >= m_text.End()) {
        m_head = part.head;
        m_size = part.size;
        return true;
    }
    ShowEnd();
    return false;
}

/// At the upper edge the part before, at the lower edge the one behind. What was at the edge stays in view.
void LogPane::loadNeighbour() {
    const QScrollBar& bar = *m_box->verticalScrollBar();
    const bool isSelecting = QGuiApplication::mouseButtons() != Qt::NoButton && !bar.isSliderDown();
    if (isSelecting || m_parts.IsBusy() || m_error)
        return;
    const bool isAbove = bar.value() == bar.minimum() && m_text.Begin() > 0;
    if (!isAbove && (bar.value() < bar.maximum() || isAtEnd()))
        return;
    const auto read = [isAbove, at = isAbove ? m_text.Begin() : m_text.Next()](const LogReader& reader) {
        return isAbove ? reader.Before(at) : reader.From(at);
    };
    ask(read, [this, isAbove](const LogPart& part) {
        if (part.error)
            return Q_EMIT Noticed(reason(part.error));
        if (!isSame(part))
            return;
        const QScopedValueRollback changing(m_isChanging, true);
        const qint64 edge = isAbove ? m_text.Begin() : m_text.End();
        isAbove ? m_text.Prepend(part) : m_text.Append(part);
        showPlaceholder();
        if (edge != (isAbove ? m_text.Begin() : m_text.End()))
            loadNeighbour(); // the view may not be full yet
    });
}

/// A look reads no more than what is new. The size and the first bytes tell whether the log is still the same.
void LogPane::look() {
    if (!isVisible())
        return;
    if (m_parts.IsBusy())
        return Q_EMIT Noticed(m_text.IsEmpty() ? QString() : m_texts[Text::ReadingLog]); // the empty box says it too
    const bool wantsNew = isAtEnd() && (m_follows || m_text.HasRoom());
    const auto read = [wantsNew, size = m_size, next = m_text.Next()](const LogReader& reader) {
        LogPart part = reader.Look();
        return wantsNew && !part.error && part.size > size ? reader.From(next) : part;
    };
    ask(read, [this](const LogPart& part) { looked(part); });
}

void LogPane::looked(const LogPart& part) {
    showPlaceholder();
    if (part.error)
        return Q_EMIT Noticed(m_text.IsEmpty() && m_error == part.error ? QString() : reason(part.error));
    Q_EMIT Noticed(QString());
    if (m_error)
        return ShowEnd();
    if (!isSame(part))
        return;
    const QScopedValueRollback changing(m_isChanging, true);
    if (part.begin < part.end) {
        m_text.Append(part);
        showPlaceholder();
    }
    if (m_follows && !isAtEnd())
        return ShowEnd();
    if (m_follows && part.begin < part.end && QGuiApplication::mouseButtons() == Qt::NoButton)
        goToEnd();
    loadNeighbour(); // the view may stand where the log went on
}

void LogPane::Search(const QString& text, Qt::CaseSensitivity matchCase, bool isBackwards) {
    const QTextCursor cursor = m_box->textCursor();
    const LogPlace start = m_text.PlaceOf(cursor, isBackwards ? cursor.selectionStart() : cursor.selectionEnd());
    const LogSearch search{text, matchCase, isBackwards, start};
    m_search.Run([this, search, reader = reader()](const std::atomic_bool& cancelled) -> BackgroundRead::Then {
        const auto hit = search.Find(reader, cancelled);
        return [this, hit, search] {
            if (hit)
                reveal(*hit, search.text.size());
            const Text wrapped = search.isBackwards ? Text::WrappedToEnd : Text::WrappedToStart;
            Q_EMIT SearchEnded(!hit ? m_texts[Text::SearchNotFound] : hit->isWrapped ? m_texts[wrapped] : QString());
        };
    });
}

QString LogPane::SelectedText() const {
    const QString text = m_box->textCursor().selectedText();
    return text.contains(QChar::ParagraphSeparator) ? QString() : text;
}

QString LogPane::KeptFolder() const {
    static const QRegularExpression folder(QStringLiteral("'([^']*[/\\\\]\\.kalvenor-trash[/\\\\][^'/\\\\]+)'"));
    const auto in = [](const QTextBlock& line) { return folder.match(line.text()).captured(1); };
    const QTextBlock here = m_box->textCursor().block();
    for (QTextBlock line = here; line.isValid(); line = line.next())
        if (QString found = in(line); !found.isEmpty())
            return found;
    for (QTextBlock line = here.previous(); line.isValid(); line = line.previous())
        if (QString found = in(line); !found.isEmpty())
            return found;
    return {};
}

void LogPane::reveal(const LogSearch::Hit& hit, qsizetype length) {
    Follow(false);
    Q_EMIT FollowEnded();
    if (m_text.Select(hit.place, length))
        return;
    ask([line = hit.place.line](const LogReader& reader) { return reader.Around(line); },
        [this, hit, length](const LogPart& part) {
            show(part);
            // An overlong line may be cut elsewhere this time.
            if (!m_text.Select(hit.place, length))
                m_text.Mark(hit.place.line);
            loadNeighbour();
        });
}

void LogPane::copyLines() {
    QTextCursor cursor = m_box->textCursor();
    const int end = cursor.selectionEnd();
    cursor.setPosition(cursor.selectionStart());
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    // A selection that ends before a line's first character holds nothing of that line.
    if (!cursor.hasSelection() || !cursor.atBlockStart())
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    QGuiApplication::clipboard()->setText(cursor.selection().toPlainText());
}

void LogPane::showMenu(const QPoint& at) {
    if (!m_box->textCursor().hasSelection()) // the line under the pointer is meant
        m_box->setTextCursor(m_box->cursorForPosition(at));
    QMenu* menu = m_box->createStandardContextMenu(at);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copy = menu->addAction(m_texts[Text::CopyLines], this, &LogPane::copyLines);
    copy->setObjectName(QStringLiteral("mnuCopyLines"));
    menu->popup(m_box->viewport()->mapToGlobal(at));
}

bool LogPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_box && event->type() == QEvent::PaletteChange)
        m_text.Recolour();
    if (watched != m_box || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.matches(QKeySequence::MoveToStartOfDocument))
        ShowStart();
    else if (key.matches(QKeySequence::MoveToEndOfDocument))
        ShowEnd();
    else if (m_kinds && key.matches(QKeySequence::Copy) && !m_box->textCursor().hasSelection())
        copyLines();
    else
        return QWidget::eventFilter(watched, event);
    return true;
}

void LogPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The text may have been loaded before the box had a size.
    layout()->activate();
    m_box->ensureCursorVisible();
}
