// The last paths chosen for one purpose, kept in the user's settings. A choice that cannot be stored is forgotten
// without a message: it is a convenience.
#pragma once

#include <QString>
#include <QStringList>

class SettingsStore;

class RecentPaths final {
  public:
    /// `key` names the list: "SourceDirs", "TargetDirs" or "ActivityFiles".
    RecentPaths(SettingsStore& settings, QString key);

    /// At most ten, the latest first.
    [[nodiscard]] QStringList Paths() const;

    void Remember(const QString& path);
    void Forget();

  private:
    SettingsStore& m_settings;
    QString m_key;
};
