#include "HelpCommands.h"

#include "CommandGuard.h"
#include "DialogHost.h"
#include "FormParts.h"
#include "frmAbout.h"
#include "modNativePath.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

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

/// The report that users send along with a question: program, machine and places, one "Label:   value" a line.
QString systemReport(const SystemFacts& facts, Program& program, const QStringList& displays) {
    const ProgramPlaces& places = program.Services().places;
    std::vector<std::pair<Text, QString>> rows{
        {Text::ReportProgram, QStringLiteral("Kalvenor Pro " KALVENOR_VERSION)},
        {Text::ReportQt, QLatin1String(qVersion())},
        {Text::ReportSystem, facts.system},
        {Text::ReportKernel, facts.kernel},
        {Text::ReportArchitecture, facts.architecture},
        {Text::ReportProcessors, QString::number(facts.processors)},
        {Text::ReportMemory, QLocale::system().formattedDataSize(facts.memory)},
    };
    for (const QString& display : displays)
        rows.emplace_back(Text::ReportDisplay, display);
    rows.emplace_back(Text::ReportProgramFolder, modNativePath::ToText(places.programFolder));
    rows.emplace_back(Text::ReportDataFolder, modNativePath::ToText(places.userDataFolder));
    rows.emplace_back(Text::ReportActivityFile, program.File().CurrentPath());
    rows.emplace_back(Text::ReportLogFile, program.Options().LoggingPath);

    const StringTable& texts = program.Texts();
    qsizetype width = 0;
    for (const auto& [label, value] : rows)
        width = std::max(width, texts[label].size());
    QString report;
    for (const auto& [label, value] : rows) {
        const QString begin = texts[label] + u':';
        report += begin.leftJustified(width + 3) + (value.isEmpty() ? QStringLiteral("-") : value) + u'\n';
    }
    return report;
}

/// The report, to read and to copy.
class frmText final : public QDialog {
  public:
    frmText(const StringTable& texts, const QString& title, const QString& text, QWidget* parent);
};

frmText::frmText(const StringTable& texts, const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmText"));
    setWindowTitle(title);

    QPlainTextEdit* box = FormParts::TextBox("txtText", title);
    box->setPlainText(text);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* copy = buttons->addButton(texts[Text::CopyToClipboard], QDialogButtonBox::ActionRole);
    QPushButton* close = FormParts::AddButton(*buttons, QDialogButtonBox::Close, "cmdClose", texts[Text::Close]);
    copy->setObjectName(QStringLiteral("cmdCopy"));
    copy->setAutoDefault(false);
    close->setDefault(true);
    connect(copy, &QPushButton::clicked, this, [text] { QGuiApplication::clipboard()->setText(text); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* all = new QVBoxLayout(this);
    all->addWidget(box, 1);
    all->addWidget(buttons);
    resize(640, 360);
    close->setFocus();
}

} // namespace

void HelpCommands::OpenManual() {
    showFirst({m_program.Texts()[Text::ManualPage], QStringLiteral("Kalvenor Pro Anleitung.mht")});
}

void HelpCommands::showFirst(QStringList names) {
    const PlatformServices& services = m_program.Services();
    while (!names.isEmpty()) {
        const auto manual = services.places.dataFolder / modNativePath::FromText(names.takeFirst());
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
    frmText form(texts, title, systemReport(*facts, m_program, displays()), m_dialogs.Parent());
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
    const StringTable& texts = m_program.Texts();
    const QString homePage = QStringLiteral(KALVENOR_HOME_PAGE);
    if (homePage.isEmpty())
        m_program.Prompts().Ask(
            {texts[Text::NoHomePage], texts[Text::AboutTitle], MessageIcon::Information, MessageButtons::Ok});
    else if (!m_program.Services().process->OpenWebPage(homePage))
        TellError(m_program, texts[Text::WebPageNotOpened].arg(homePage));
}
