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

void FolderEdit::offerFolders(const QString& typed) {
    if (m_folders == nullptr) {
        m_folders = new QFileSystemModel(this);
        m_folders->setOptions(QFileSystemModel::DontUseCustomDirectoryIcons | QFileSystemModel::DontWatchForChanges);
        m_folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
        setCompleter(new QCompleter(m_folders, this));
    }
    // Left to itself the model reads folder by folder from the root, one with each key that is typed.
    const QFileInfo path(typed);
    if (path.isAbsolute())
        m_folders->setRootPath(path.path());
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
