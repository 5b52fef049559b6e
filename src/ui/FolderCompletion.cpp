#include "FolderCompletion.h"

#include "PathLook.h"
#include "modNativePath.h"
#include <QCompleter>
#include <QDir>
#include <QLineEdit>
#include <QListView>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds answerInterval{30};

/// The folder that is being typed in; "" where nobody could say which.
QString folderOf(const QString& typed) {
    const QString path = QDir::fromNativeSeparators(typed); // of the same length
    return QDir::isAbsolutePath(path) ? typed.left(path.lastIndexOf(u'/') + 1) : QString();
}

} // namespace

FolderCompletion::FolderCompletion(QLineEdit& line)
    : QObject(&line), m_line(line), m_completer(new QCompleter(&m_folders, this)) {
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setModelSorting(QCompleter::CaseInsensitivelySortedModel);
    // Or every row would be measured for each key.
    if (auto* list = qobject_cast<QListView*>(m_completer->popup()))
        list->setUniformItemSizes(true);
    line.setCompleter(m_completer);
    m_waiting.setInterval(answerInterval);
    connect(&m_waiting, &QTimer::timeout, this, &FolderCompletion::take);
    connect(&line, &QLineEdit::textEdited, this, &FolderCompletion::follow);
}

void FolderCompletion::follow(const QString& typed) {
    m_typed = typed;
    m_wanted = folderOf(typed);
    if (m_wanted != m_asked)
        look();
}

void FolderCompletion::look() {
    // While a drive does not answer, no second look joins the first.
    if (m_answer.valid())
        return;
    m_folders.setStringList({});
    m_asked = m_wanted;
    if (m_asked.isEmpty())
        return;
    m_answer = PathLook::FoldersIn(modNativePath::FromText(m_asked));
    m_waiting.start();
}

void FolderCompletion::take() {
    if (m_answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    m_waiting.stop();
    QStringList names = m_answer.get();
    if (m_wanted != m_asked)
        return look();
    for (QString& name : names)
        name.prepend(m_asked);
    m_folders.setStringList(names);
    offer();
}

/// The keys that follow do this by themselves.
void FolderCompletion::offer() {
    if (!m_line.hasFocus() || m_line.text() != m_typed || m_line.cursorPosition() != m_typed.size())
        return;
    m_completer->setCompletionPrefix(m_typed);
    m_completer->complete();
}
