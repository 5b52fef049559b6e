#include "RecentPaths.h"

#include "SettingsStore.h"
#include <tuple>
#include <utility>

namespace {

constexpr qsizetype mostRecent = 10;
constexpr QChar separator = u'|';

QString section() {
    return QStringLiteral("LastFile");
}

} // namespace

RecentPaths::RecentPaths(SettingsStore& settings, QString key) : m_settings(settings), m_key(std::move(key)) {}

QStringList RecentPaths::Paths() const {
    const QString joined = m_settings.Read(SettingsStore::OwnApplication, section(), m_key).value_or(QString());
    return joined.split(separator, Qt::SkipEmptyParts).mid(0, mostRecent);
}

void RecentPaths::Remember(const QString& path) {
    // A name may hold the separator on some systems; cut in two it would be other paths.
    if (path.trimmed().isEmpty() || path.contains(separator))
        return;
    QStringList paths = Paths();
    paths.removeAll(path);
    paths.prepend(path);
    std::ignore =
        m_settings.Write(SettingsStore::OwnApplication, section(), m_key, paths.mid(0, mostRecent).join(separator));
}

void RecentPaths::Forget() {
    std::ignore = m_settings.Write(SettingsStore::OwnApplication, section(), m_key, QString());
}
