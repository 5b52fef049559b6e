#include "RecentFolders.h"

#include "SettingsStore.h"
#include <utility>

namespace {
constexpr qsizetype most = 10;
constexpr QChar separator = u'|';

QString section() {
    return QStringLiteral("LastFile");
}
} // namespace

RecentFolders::RecentFolders(SettingsStore& settings, QString key) : m_settings(settings), m_key(std::move(key)) {}

QStringList RecentFolders::Folders() const {
    const QString joined = m_settings.Read(SettingsStore::OwnApplication, section(), m_key).value_or(QString());
    return joined.split(separator, Qt::SkipEmptyParts).mid(0, most);
}

void RecentFolders::Remember(const QString& folder) {
    // A folder's name may hold the separator on some systems; cut in two it would name other folders.
    if (folder.trimmed().isEmpty() || folder.contains(separator))
        return;
    QStringList folders = Folders();
    folders.removeAll(folder);
    folders.prepend(folder);
    static_cast<void>(
        m_settings.Write(SettingsStore::OwnApplication, section(), m_key, folders.mid(0, most).join(separator)));
}
