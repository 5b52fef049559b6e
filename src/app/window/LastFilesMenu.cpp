#include "LastFilesMenu.h"

#include "ActivityFile.h"
#include "PathLook.h"
#include "RecentPaths.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <QMenu>
#include <chrono>
#include <utility>
#include <vector>

namespace {

constexpr std::chrono::milliseconds longestLook{300}; // for all files together

} // namespace

LastFilesMenu::LastFilesMenu(QMenu& menu, RecentPaths& last, const ActivityFile& file, const StringTable& texts,
                             std::function<void(const QString&)> open)
    : m_menu(menu), m_last(last), m_file(file), m_texts(texts), m_open(std::move(open)) {
    connect(&menu, &QMenu::aboutToShow, this, &LastFilesMenu::fill);
}

QStringList LastFilesMenu::present() const {
    QStringList paths = m_last.Paths();
    paths.removeAll(m_file.CurrentPath());
    std::vector<std::future<bool>> answers;
    for (const QString& path : paths)
        answers.push_back(PathLook::IsFile(modNativePath::FromText(path)));
    const auto end = std::chrono::steady_clock::now() + longestLook;
    QStringList result;
    for (std::size_t i = 0; i < answers.size(); ++i)
        if (answers[i].wait_until(end) == std::future_status::ready && answers[i].get())
            result.append(paths[static_cast<qsizetype>(i)]);
    return result;
}

void LastFilesMenu::fill() {
    m_menu.clear();
    for (const QString& path : present()) {
        QString caption = modForeignText::OneLine(path);
        connect(m_menu.addAction(caption.replace(u'&', QLatin1String("&&"))), &QAction::triggered, this,
                [this, path] { m_open(path); });
    }
    m_menu.addSeparator();
    QAction* clear = m_menu.addAction(m_texts[Text::ClearLastFiles]);
    clear->setObjectName(QStringLiteral("mnuClearLastFiles"));
    clear->setEnabled(!m_last.Paths().isEmpty());
    connect(clear, &QAction::triggered, this, [this] { m_last.Forget(); });
}
