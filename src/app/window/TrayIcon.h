// The icon in the notification area and its menu mnuPopUpTray. Where the desktop has no such area the icon stays
// invisible and IsAvailable is false.
#pragma once

#include "MenuEntry.h"
#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <functional>

class StringTable;

class TrayIcon final : public QObject {
    Q_OBJECT
  public:
    /// Every entry passes its command to `run`; a double click is Restore, and so is a plain activation where
    /// the desktop sends nothing else.
    TrayIcon(const StringTable& texts, const QString& title, const std::function<void(Command)>& run);

    [[nodiscard]] static bool IsAvailable();
    void Show() { m_icon.show(); }
    void Hide() { m_icon.hide(); }

    /// The start command follows the monitoring.
    void ShowMonitoring(bool on);

    /// Sets the picture, and the tooltip that explains it. `failed`: activities with a failure to look at.
    void ShowState(bool isMonitoring, qsizetype failed);

  private:
    const StringTable& m_texts;
    QString m_title;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
};
