// Which files take part in an activity: a suffix test on the full path. A value.
#pragma once

#include <QString>
#include <QStringList>

class FileTypeFilter final {
  public:
    /// Every file passes.
    FileTypeFilter() = default;

    /// `extensions`: suffixes separated by ";", without dots. Empty: every file passes.
    explicit FileTypeFilter(const QString& extensions);

    [[nodiscard]] bool IsActive() const { return m_active; }
    [[nodiscard]] bool Passes(const QString& fullPath) const;

  private:
    struct Entry {
        qsizetype length; ///< characters of the path that are compared: those of the entry before trimming
        QString suffix;   ///< trimmed, upper case
    };
    QList<Entry> m_entries;
    bool m_active = false;
};
