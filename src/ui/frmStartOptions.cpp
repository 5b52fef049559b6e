#include "frmStartOptions.h"

#include "DesktopEntries.h"
#include "FilePicker.h"
#include "FormParts.h"
#include "MailOptionsPage.h"
#include "OwnFiles.h"
#include "Prompter.h"
#include "SettingsStore.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFocusEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <array>
#include <tuple>
#include <utility>

namespace {

using Options = frmStartOptions::Options;

struct Switch {
    const char* control;
    Text caption;
    bool Options::*value;
};

constexpr std::array<Switch, 7> switches{{
    {"chkStartWithWindows", Text::StartWithSession, &Options::startWithWindows},
    {"chkMinToTray", Text::MinimizeToTray, &Options::minToTray},
    {"chkShutdown", Text::ShutdownWhenFinished, &Options::shutdown},
    {"chkStartUp", Text::MonitorAfterStart, &Options::startUp},
    {"chkLogfileRefresh", Text::RefreshLogView, &Options::logfileRefresh},
    {"chkExitAlert", Text::ActivateSafeExit, &Options::exitAlert},
    {"chkStopIfFolderNotExist", Text::StopWithoutDirectory, &Options::stopIfFolderNotExist},
}};
constexpr std::size_t startWithWindows = 0;

const QString autostartName = QStringLiteral("Kalvenor");
const QString lastFileSection = QStringLiteral("LastFile");
const QString lastLogKey = QStringLiteral("AppLogfilePath");

/// Selects all its text when it gets the focus, by a click too; not when it gets it back from a menu or another window.
class PathEdit final : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
            return;
        selectAll();
        if (event->reason() == Qt::MouseFocusReason) // the click has yet to set the caret
            QMetaObject::invokeMethod(this, &QLineEdit::selectAll, Qt::QueuedConnection);
    }
};

/// Expands "~" as a shell does, so that no log ends up in a folder of that name.
QString withHomeFolder(const QString& path) {
    return path == u"~" || path.startsWith(u"~/") ? QDir::homePath() + path.mid(1) : path;
}

/// Creates the log, empty, when no file has its name. A failure is silent: the usual one, a missing folder, is reported
/// by the check that follows.
void createMissing(OwnFiles& files, const std::filesystem::path& log) {
    if (files.FolderExists(log.parent_path()))
        std::ignore = files.CreateNew(log, {});
}

} // namespace

frmStartOptions::frmStartOptions(const FormServices& services, Autostart& autostart, std::filesystem::path program,
                                 PasswordStore& passwords, const Options& options, QWidget* parent)
    : QDialog(parent), m_services(services), m_autostart(autostart), m_program(std::move(program)),
      m_tabs(new QTabWidget), m_mail(new MailOptionsPage(services, passwords, options.mail)) {
    setObjectName(QStringLiteral("frmStartOptions"));
    setWindowTitle(services.texts[Text::GeneralOptions]);
    auto* general = new QWidget;
    auto* all = new QVBoxLayout(general);
    all->setSpacing(12);
    all->addWidget(buildSwitches(options));
    all->addWidget(buildLogFile(options));
    all->addWidget(buildSummary(options));
    all->addWidget(buildSchedule(options));
    all->addStretch();
    m_tabs->setObjectName(QStringLiteral("tabStartOptions"));
    addTab(general, "tabGeneralOptions", Text::GeneralTab);
    addTab(m_mail, "tabMailOptions", Text::MailOptionsTab);
    auto* form = new QVBoxLayout(this);
    form->addWidget(m_tabs, 1);
    form->addWidget(buildButtons());
    m_switches.front()->setFocus();
}

void frmStartOptions::addTab(QWidget* page, const char* name, Text caption) {
    FormParts::Name(*page, name, m_services.texts[caption]);
    m_tabs->addTab(page, m_services.texts[caption]);
}

QGroupBox* frmStartOptions::buildSwitches(const Options& options) {
    auto* frame = new QGroupBox(m_services.texts[Text::GeneralSettings]);
    auto* rows = new QVBoxLayout(frame);
    for (const Switch& row : switches) {
        auto* box = new QCheckBox(m_services.texts[row.caption]);
        box->setObjectName(QLatin1String(row.control));
        box->setChecked(options.*row.value);
        rows->addWidget(box);
        m_switches.push_back(box);
    }
    if (m_autostart.Exists(autostartName))
        m_switches[startWithWindows]->setChecked(true);
    return frame;
}

QGroupBox* frmStartOptions::buildLogFile(const Options& options) {
    auto* frame = new QGroupBox(m_services.texts[Text::ApplicationLog]);
    m_loggingPath = new PathEdit(options.loggingPath);
    m_loggingPath->setObjectName(QStringLiteral("txtLoggingPath"));
    m_loggingPath->setAccessibleName(m_services.texts[Text::ApplicationLog]);
    m_loggingPath->setMinimumWidth(m_loggingPath->fontMetrics().averageCharWidth() * 50);
    auto* select = new QPushButton(m_services.texts[Text::SelectFile]);
    select->setObjectName(QStringLiteral("cmdSelectFile"));
    select->setAutoDefault(false);
    connect(select, &QPushButton::clicked, this, &frmStartOptions::selectFile);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(m_loggingPath, 1);
    row->addWidget(select);
    return frame;
}

QGroupBox* frmStartOptions::buildSummary(const Options& options) {
    const StringTable& texts = m_services.texts;
    auto* frame = FormParts::Group(texts[Text::AfterARun]);
    auto* rows = new QVBoxLayout(frame);
    const auto addBox = [&](const char* name, Text caption, bool isOn) {
        QCheckBox* box = FormParts::CheckBox(name, texts[caption]);
        box->setChecked(isOn);
        rows->addWidget(box);
        return box;
    };
    m_summaryInLog = addBox("chkSummaryInLog", Text::SummaryInLog, options.summaryInLog);
    m_summaryInMail = addBox("chkSummaryInMail", Text::SummaryInMail, options.summaryInMail);
    m_notify = new QComboBox;
    m_notify->setObjectName(QStringLiteral("cboNotify"));
    for (const Text choice : {Text::NotifyNothing, Text::NotifyFailures, Text::NotifyAll})
        m_notify->addItem(texts[choice]);
    m_notify->setCurrentIndex(options.notify < m_notify->count() ? options.notify : 0);
    QLabel* label = FormParts::Label(texts[Text::NotifyOption], *m_notify);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_notify, 1);
    rows->addLayout(row);
    label->setHidden(!options.canNotify);
    m_notify->setHidden(!options.canNotify);
    return frame;
}

QGroupBox* frmStartOptions::buildSchedule(const Options& options) {
    const StringTable& texts = m_services.texts;
    auto* frame = FormParts::Group(texts[Text::Schedules]);
    auto* rows = new QVBoxLayout(frame);
    const auto addBox = [&](const char* name, Text caption, Text hint, bool isOn) {
        QCheckBox* box = FormParts::CheckBox(name, texts[caption]);
        box->setChecked(isOn);
        box->setToolTip(Qt::convertFromPlainText(texts[hint]));
        box->setAccessibleDescription(texts[hint]);
        rows->addWidget(box);
        return box;
    };
    m_countByTheClock =
        addBox("chkCountByTheClock", Text::CountByTheClock, Text::CountByTheClockHint, options.countByTheClock);
    m_runMissed = addBox("chkRunMissed", Text::RunMissedLate, Text::RunMissedHint, options.runMissed);
    return frame;
}

QDialogButtonBox* frmStartOptions::buildButtons() {
    auto* buttons = new QDialogButtonBox(this);
    const StringTable& texts = m_services.texts;
    FormParts::AddButton(*buttons, QDialogButtonBox::Save, "cmdSave", texts[Text::Save])->setDefault(true);
    FormParts::AddButton(*buttons, QDialogButtonBox::Cancel, "cmdCancel", texts[Text::CancelOptions]);
    FormParts::AddButton(*buttons, QDialogButtonBox::Help, "cmdHelp", texts[Text::Help]);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmStartOptions::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, &frmStartOptions::HelpWanted);
    return buttons;
}

Options frmStartOptions::Values() const {
    Options options;
    for (std::size_t row = 0; row < switches.size(); ++row)
        options.*switches[row].value = m_switches[row]->isChecked();
    options.loggingPath = m_loggingPath->text();
    options.summaryInLog = m_summaryInLog->isChecked();
    options.summaryInMail = m_summaryInMail->isChecked();
    options.notify = m_notify->currentIndex();
    options.countByTheClock = m_countByTheClock->isChecked();
    options.runMissed = m_runMissed->isChecked();
    options.mail = m_mail->Values();
    return options;
}

QString frmStartOptions::NewMailPassword() const {
    return m_mail->NewPassword();
}

bool frmStartOptions::acceptsLogPath() {
    const std::filesystem::path log = modNativePath::Absolute(withHomeFolder(m_loggingPath->text().trimmed()));
    m_loggingPath->setText(modNativePath::ToText(log));
    if (log.empty()) // blanks name no file
        return true;
    const StringTable& texts = m_services.texts;
    QString objection;
    if (m_services.files.FolderExists(log)) {
        objection = texts[Text::LogIsDirectory].arg(m_loggingPath->text());
    } else {
        createMissing(m_services.files, log);
        if (m_services.files.FolderExists(log.parent_path()))
            return true;
        objection = texts[Text::SelectedDirectory] + modNativePath::ToText(log.parent_path()) +
                    texts[Text::DoesNotExist] + QStringLiteral("\n\n") + texts[Text::SelectValidDirectory];
    }
    m_services.prompter.Ask(
        {objection, texts[Text::DirectoryNotFoundTitle], MessageIcon::Exclamation, MessageButtons::Ok});
    m_tabs->setCurrentIndex(0);
    m_loggingPath->setFocus();
    return false;
}

bool frmStartOptions::acceptsPassword() {
    if (m_mail->IsComplete())
        return true;
    m_tabs->setCurrentWidget(m_mail);
    m_services.prompter.Ask({m_services.texts[Text::MailPasswordNeedsHost], m_services.texts[Text::Error],
                             MessageIcon::Exclamation, MessageButtons::Ok});
    m_mail->LeadToMissing();
    return false;
}

void frmStartOptions::save() {
    if (!acceptsPassword() || !acceptsLogPath())
        return;
    CreateAutoStart();
    accept();
}

void frmStartOptions::CreateAutoStart() {
    const bool wanted = m_switches[startWithWindows]->isChecked();
    const std::error_code error =
        wanted ? m_autostart.Create(autostartName, m_program) : m_autostart.Remove(autostartName);
    if (error)
        m_services.prompter.Ask({m_services.texts[Text::AutostartNotChanged] + u'\n' + modForeignText::OfError(error),
                                 m_services.texts[Text::Error], MessageIcon::Exclamation, MessageButtons::Ok});
}

void frmStartOptions::selectFile() {
    const QString last =
        m_services.settings.Read(SettingsStore::OwnApplication, lastFileSection, lastLogKey).value_or(QString());
    FileRequest request;
    request.title = m_services.texts[Text::SelectLogFile];
    request.filters = {m_services.texts[Text::LogFile] + QStringLiteral(" (*.log)"),
                       m_services.texts[Text::AllFiles] + QStringLiteral(" (*.*)")};
    request.folder = last.isEmpty() ? QString() : QFileInfo(last).path();
    request.file = m_loggingPath->text();
    const std::optional<QString> chosen = m_services.picker.SaveFile(request, false);
    if (!chosen)
        return;
    m_loggingPath->setText(*chosen);
    createMissing(m_services.files, modNativePath::Absolute(*chosen));
    std::ignore = m_services.settings.Write(SettingsStore::OwnApplication, lastFileSection, lastLogKey, *chosen);
}
