#include "PathRow.h"

#include "FolderCompletion.h"
#include "FormParts.h"
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

namespace {

/// The one folder that is being dragged; "" for anything else.
QString draggedFolder(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return {};
    const QString path = urls.first().toLocalFile();
    return QFileInfo(path).isDir() ? QDir::toNativeSeparators(QDir::cleanPath(path)) : QString();
}

/// Files, or more than one thing: their addresses as text would be of no use.
bool isUselessDrag(const QMimeData& data) {
    return data.hasUrls() && draggedFolder(data).isEmpty();
}

/// Completes folders while one types. A path that leads nowhere is just a text.
class FolderEdit final : public QLineEdit {
  public:
    FolderEdit();

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

FolderEdit::FolderEdit() {
    setAcceptDrops(true);
    new FolderCompletion(*this);
}

void FolderEdit::dragEnterEvent(QDragEnterEvent* event) {
    if (!draggedFolder(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
    else if (!isUselessDrag(*event->mimeData()))
        QLineEdit::dragEnterEvent(event);
}

void FolderEdit::dragMoveEvent(QDragMoveEvent* event) {
    if (!draggedFolder(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
    else if (!isUselessDrag(*event->mimeData()))
        QLineEdit::dragMoveEvent(event);
}

void FolderEdit::dropEvent(QDropEvent* event) {
    const QString folder = draggedFolder(*event->mimeData());
    if (folder.isEmpty()) {
        QLineEdit::dropEvent(event);
        return;
    }
    setText(folder);
    event->acceptProposedAction();
}

} // namespace

QLineEdit* PathRow::FolderLine() {
    return new FolderEdit;
}

PathRow::PathRow(QLineEdit* line, const Button& picker, const Pick& pick)
    : m_line(line), m_layout(new QHBoxLayout(this)) {
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(4);
    m_layout->addWidget(line, 1);
    connect(addButton(picker, QStringLiteral("...")), &QToolButton::clicked, this, [this, pick] {
        if (const std::optional<QString> picked = pick(m_line->text()))
            m_line->setText(QDir::toNativeSeparators(*picked));
    });
    line->installEventFilter(this);
}

void PathRow::AddRecent(const Button& button, const RecentPaths& recent) {
    const QStringList folders = recent.Paths();
    if (folders.isEmpty())
        return;
    auto* menu = new QMenu(this);
    for (const QString& folder : folders) {
        QString plain = folder;
        connect(menu->addAction(plain.replace(u'&', QLatin1String("&&"))), &QAction::triggered, m_line,
                [this, folder] { m_line->setText(folder); });
    }
    QToolButton* opener = addButton(button, {});
    opener->setArrowType(Qt::DownArrow);
    opener->setMenu(menu);
    opener->setPopupMode(QToolButton::InstantPopup);
    opener->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
}

QToolButton* PathRow::addButton(const Button& button, const QString& sign) {
    QToolButton* added = FormParts::SignButton(button.objectName, sign, button.caption);
    m_layout->addWidget(added);
    return added;
}

bool PathRow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_line && event->type() == QEvent::EnabledChange)
        followLine();
    return QWidget::eventFilter(watched, event);
}

void PathRow::followLine() {
    // Follow the line's own state only; a disabled form disables the buttons anyway.
    for (QToolButton* button : findChildren<QToolButton*>())
        button->setEnabled(m_line->isEnabledTo(this));
}
