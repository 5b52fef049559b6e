#include "FolderEdit.h"

#include <QCompleter>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QFileSystemModel>
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

/// Files, or more than one thing: taking their addresses as text would help nobody.
bool isUselessDrag(const QMimeData& data) {
    return data.hasUrls() && draggedFolder(data).isEmpty();
}

} // namespace

FolderEdit::FolderEdit(QWidget* parent) : QLineEdit(parent) {
    setAcceptDrops(true);
    // The model starts a thread: not before it is needed.
    connect(this, &QLineEdit::textEdited, this, &FolderEdit::offerFolders);
}

void FolderEdit::offerFolders() {
    if (m_offers)
        return;
    m_offers = true;
    auto* folders = new QFileSystemModel(this);
    folders->setOptions(QFileSystemModel::DontUseCustomDirectoryIcons | QFileSystemModel::DontWatchForChanges);
    folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    folders->setRootPath(QString());
    auto* offers = new QCompleter(folders, this);
    setCompleter(offers);
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
