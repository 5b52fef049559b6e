#include "TrayIcon.h"

#include "Icons.h"
#include "StringTable.h"

TrayIcon::TrayIcon(const StringTable& texts, const QString& toolTip)
    : m_texts(texts), m_idle(Icons::Icon(Icons::Picture::Idle)), m_monitoring(Icons::Icon(Icons::Picture::Monitoring)) {
    m_menu.setObjectName(QStringLiteral("mnuPopUpTray"));
    QAction* resize = m_menu.addAction(QStringLiteral("Kalvenor"));
    resize->setObjectName(QStringLiteral("mnuResizeTray"));
    m_menu.setDefaultAction(resize);
    m_menu.addSeparator();
    m_start = m_menu.addAction(QString());
    m_start->setObjectName(QStringLiteral("mnuStartTray"));
    m_start->setCheckable(true);
    m_menu.addSeparator();
    QAction* exit = m_menu.addAction(Icons::Icon(Icons::Picture::Exit), texts.Text(148));
    exit->setObjectName(QStringLiteral("mnuExitTray"));

    m_icon.setToolTip(toolTip);
    m_icon.setContextMenu(&m_menu);
    ShowMonitoring(false);

    connect(resize, &QAction::triggered, this, &TrayIcon::RestoreWanted);
    connect(m_start, &QAction::triggered, this, &TrayIcon::StartStopWanted);
    connect(exit, &QAction::triggered, this, &TrayIcon::ExitWanted);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::DoubleClick)
            Q_EMIT RestoreWanted();
    });
}

bool TrayIcon::IsAvailable() {
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void TrayIcon::ShowMonitoring(bool on) {
    m_icon.setIcon(on ? m_monitoring : m_idle);
    m_start->setChecked(on);
    m_start->setText(m_texts.Text(on ? 219 : 142));
}
