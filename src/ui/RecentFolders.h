// The last folders that were chosen for one purpose, kept in the user's settings. Owns nothing. A choice that cannot be
// kept is forgotten in silence: it is a convenience.
#pragma once

#include <QString>
#include <QStringList>

class SettingsStore;

class RecentFolders final {
  public:
    /// `key` names the list: "SourceDirs" or "TargetDirs".
    RecentFolders(SettingsStore& settings, QString key);

    /// At most ten, the latest first.
    [[nodiscard]] QStringList Folders() const;

    void Remember(const QString& folder);

  private:
    SettingsStore& m_settings;
    QString m_key;
};
