// The icon in the notification area and its menu mnuPopUpTray. Owns both. Where the desktop has no such area it stays
// unseen and IsAvailable says so.
#pragma once

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

class StringTable;

class TrayIcon final : public QObject {
    Q_OBJECT
  public:
    explicit TrayIcon(const StringTable& texts, const QString& toolTip);

    [[nodiscard]] static bool IsAvailable();
    void Show() { m_icon.show(); }
    void Hide() { m_icon.hide(); }

    /// The image and the start command follow the monitoring.
    void ShowMonitoring(bool on);

  Q_SIGNALS:
    void RestoreWanted();
    void StartStopWanted();
    void ExitWanted();

  private:
    const StringTable& m_texts;
    QIcon m_idle;
    QIcon m_monitoring;
    QMenu m_menu;
    QAction* m_start = nullptr;
    QSystemTrayIcon m_icon;
};
