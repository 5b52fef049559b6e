#include "TrayIcon.h"

#include "Icons.h"
#include "StringTable.h"
#include <array>

using Icons::Picture;

namespace {

constexpr MenuEntry separator{};

constexpr std::array entries{
    MenuEntry{"mnuResizeTray", Text::None, Command::Restore, Picture::Idle},
    separator,
    MenuEntry{"mnuPreferencesTray", Text::Settings, Command::Preferences, Picture::Settings},
    MenuEntry{"mnuSyncTray", Text::SynchronizeClock, Command::SynchroniseFromTray},
    separator,
    MenuEntry{"mnuStartTray", Text::StartMonitoring, Command::StartStop},
    separator,
    MenuEntry{"mnuViewLogfileTray", Text::ShowApplicationLog, Command::ShowAppLog, Picture::Log},
    MenuEntry{"mnuDeleteLogfileTray", Text::DeleteApplicationLog, Command::DeleteAppLog},
    separator,
    MenuEntry{"mnuExitTray", Text::Exit, Command::Exit, Picture::Exit},
    separator,
    MenuEntry{"mnuAboutTray", Text::About, Command::About, Picture::Help}};

} // namespace

TrayIcon::TrayIcon(const StringTable& texts, const QString& title, const std::function<void(Command)>& run)
    : m_texts(texts), m_title(title) {
    m_menu.setObjectName(QStringLiteral("mnuPopUpTray"));
    FillMenu(m_menu, entries, texts, run);
    m_menu.setDefaultAction(m_menu.findChild<QAction*>(QStringLiteral("mnuResizeTray")));
    m_menu.findChild<QAction*>(QStringLiteral("mnuStartTray"))->setCheckable(true);
    m_icon.setContextMenu(&m_menu);
    ShowMonitoring(false);
    ShowState(false, 0);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this, run](QSystemTrayIcon::ActivationReason reason) {
        // A status notifier reports activations only and no geometry. A double click may come as two events: the first
        // hides the icon, so the second does nothing.
        const bool onlyActivates = m_icon.geometry().isEmpty();
        const bool restores =
            reason == QSystemTrayIcon::DoubleClick || (reason == QSystemTrayIcon::Trigger && onlyActivates);
        if (restores && m_icon.isVisible())
            run(Command::Restore);
    });
}

bool TrayIcon::IsAvailable() {
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void TrayIcon::ShowMonitoring(bool on) {
    QAction* start = m_menu.findChild<QAction*>(QStringLiteral("mnuStartTray"));
    start->setChecked(on);
    start->setText(m_texts[on ? Text::StopMonitoring : Text::StartMonitoring]);
}

void TrayIcon::ShowState(bool isMonitoring, qsizetype failed) {
    m_icon.setIcon(Icons::Icon(failed > 0 ? Picture::Failed : isMonitoring ? Picture::Monitoring : Picture::Idle));
    QString text = m_title + u" - " + m_texts[isMonitoring ? Text::TrayMonitoring : Text::TrayIdle];
    if (failed > 0)
        text += u", " + m_texts[Text::TrayFailed].arg(failed);
    m_icon.setToolTip(text);
}
