// File's menu of the activity files that were opened last, but for the one in use and those that are not there (any
// more). Filled when it opens; a drive that does not answer costs a moment, and its files are left out.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class ActivityFile;
class QMenu;
class RecentPaths;
class StringTable;

class LastFilesMenu final : public QObject {
    Q_OBJECT
  public:
    LastFilesMenu(QMenu& menu, RecentPaths& last, const ActivityFile& file, const StringTable& texts,
                  std::function<void(const QString& path)> open);

  private:
    void fill();
    [[nodiscard]] QStringList present() const;

    QMenu& m_menu;
    RecentPaths& m_last;
    const ActivityFile& m_file;
    const StringTable& m_texts;
    std::function<void(const QString&)> m_open;
};
