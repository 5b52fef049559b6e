#include "frmLogFile.h"

#include "FormParts.h"
#include "Icons.h"
#include "LogPane.h"
#include "LogSearchBar.h"
#include "LogTools.h"
#include "StringTable.h"
#include "modNativePath.h"
#include <QKeyEvent>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <chrono>

namespace {

constexpr std::chrono::seconds refreshInterval{10};

} // namespace

frmLogFile::frmLogFile(const StringTable& texts, QWidget* parent, std::shared_ptr<const LogKinds> kinds)
    : QDialog(parent), m_texts(texts), m_pane(new LogPane(texts, kinds)), m_refresh(new QTimer(this)) {
    setObjectName(QStringLiteral("frmLogFile"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(m_pane, 1);
    resize(760, 460);

    m_refresh->setObjectName(QStringLiteral("tmrRefresh"));
    m_refresh->setInterval(refreshInterval);
    connect(m_refresh, &QTimer::timeout, m_pane, &LogPane::ShowEnd);
    if (kinds)
        becomeWindow(*all);
    m_pane->setFocus();
}

void frmLogFile::becomeWindow(QBoxLayout& all) {
    setWindowFlags(Qt::Window);
    setWindowIcon(Icons::Icon(Icons::Picture::Log));
    m_tools = new LogTools(m_texts);
    m_search = new LogSearchBar(m_texts);
    QLabel* notice = FormParts::PlainText("lblLogNotice", {});
    notice->setWordWrap(true);
    notice->setMargin(6);
    notice->hide();
    all.insertWidget(0, m_tools);
    all.addWidget(notice);
    all.addWidget(m_search);

    connect(m_tools, &LogTools::KindsChosen, m_pane, &LogPane::ShowOnly);
    connect(m_tools, &LogTools::FollowChosen, m_pane, &LogPane::Follow);
    connect(m_tools, &LogTools::UndoWanted, this, [this] { Q_EMIT UndoWanted(m_pane->KeptFolder()); });
    connect(m_pane, &LogPane::FollowEnded, m_tools, [this] { m_tools->SetFollows(false); });
    connect(m_pane, &LogPane::SearchEnded, m_search, &LogSearchBar::Say);
    connect(m_pane, &LogPane::Noticed, notice, [notice](const QString& text) {
        notice->setText(text);
        notice->setVisible(!text.isEmpty());
    });
    connect(m_search, &LogSearchBar::Wanted, m_pane, &LogPane::Search);
    connect(m_search, &LogSearchBar::Closed, m_pane, [this] {
        m_pane->CancelSearch();
        m_pane->setFocus();
    });
    const auto onKey = [this](const QKeySequence& key, const auto& act) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, act);
    };
    onKey(QKeySequence::Find, [this] { m_search->Open(m_pane->SelectedText()); });
    onKey(Qt::Key_F3, [this] { m_search->SearchOn(false); });
    onKey(Qt::SHIFT | Qt::Key_F3, [this] { m_search->SearchOn(true); });
    onKey(QKeySequence::Close, [this] { close(); });
}

void frmLogFile::SetFileName(const QString& path) {
    SetFile(modNativePath::FromText(path));
}

void frmLogFile::SetFile(const std::filesystem::path& path) {
    setWindowTitle(u"Kalvenor Log   [" + modNativePath::ToText(path) + u']');
    m_pane->Open(path);
}

void frmLogFile::StartTimer() {
    m_refresh->start();
}

void frmLogFile::ShowAt(std::optional<qint64> position) {
    m_tools->SetFollows(!position);
    if (!position)
        return;
    m_tools->ShowAll();
    m_pane->ShowAt(*position);
}

void frmLogFile::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F5)
        m_search == nullptr ? m_pane->ShowEnd() : m_pane->Refresh();
    else
        QDialog::keyPressEvent(event);
}
