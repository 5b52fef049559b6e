#include "HelpCommands.h"

#include "CommandGuard.h"
#include "DialogHost.h"
#include "frmAbout.h"
#include "frmText.h"
#include "modNativePath.h"
#include "modSystemReport.h"
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

namespace {

/// "HDMI-1: 1920 x 1080, 96 dpi", in pixels of the device.
QStringList displays() {
    QStringList result;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QSize size = (QSizeF(screen->size()) * screen->devicePixelRatio()).toSize();
        result.append(QStringLiteral("%1: %2 x %3, %4 dpi")
                          .arg(screen->name(), QString::number(size.width()), QString::number(size.height()),
                               QString::number(qRound(screen->logicalDotsPerInch() * screen->devicePixelRatio()))));
    }
    return result;
}

} // namespace

void HelpCommands::OpenManual() {
    showFirst({m_program.Texts()[Text::ManualPage], QStringLiteral("Kalvenor Pro Anleitung.mht")});
}

void HelpCommands::showFirst(QStringList names) {
    const PlatformServices& services = m_program.Services();
    while (!names.isEmpty()) {
        const auto manual = services.places.programFolder / modNativePath::FromText(names.takeFirst());
        if (!services.ownFiles->Stamp(manual))
            continue;
        const auto tryNext = [self = QPointer(this), names] {
            if (self)
                self->showFirst(names);
        };
        return services.process->ShowDocument(modNativePath::ToText(manual), tryNext);
    }
    const StringTable& texts = m_program.Texts();
    m_program.Prompts().Ask({texts[Text::HelpNeedsBrowser] + u'\n' + texts[Text::HelpFromStartMenu],
                             texts[Text::HelpTitle], MessageIcon::Exclamation, MessageButtons::Ok});
}

void HelpCommands::ShowSystemInformation() {
    if (!m_dialogs.RaiseOpen())
        showReport();
}

void HelpCommands::showReport() {
    const QString title = QStringLiteral("Systeminfo");
    const StringTable& texts = m_program.Texts();
    const std::optional<SystemFacts> facts = ReadSystemFacts();
    if (!facts) {
        m_program.Prompts().Ask(
            {texts[Text::SystemInformationMissing], title, MessageIcon::Information, MessageButtons::Ok});
        return;
    }
    frmText form(texts, title, modSystemReport::Text(*facts, m_program, displays()), m_dialogs.Parent());
    m_dialogs.Run(form);
}

void HelpCommands::ShowAbout() {
    if (m_dialogs.RaiseOpen())
        return;
    frmAbout form(m_program.Texts(), m_dialogs.Parent());
    QObject::connect(&form, &frmAbout::HomePageWanted, &form, [this] { openHomePage(); });
    QObject::connect(&form, &frmAbout::SystemInformationWanted, &form, [this] { showReport(); });
    m_dialogs.Run(form);
}

void HelpCommands::openHomePage() {
    if (!m_program.Services().process->OpenWebPage(HomePage))
        TellError(m_program, m_program.Texts()[Text::WebPageNotOpened].arg(HomePage));
}
