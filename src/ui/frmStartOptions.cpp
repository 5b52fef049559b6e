#include "frmStartOptions.h"

#include "DesktopEntries.h"
#include "FilePicker.h"
#include "FormParts.h"
#include "OwnFiles.h"
#include "Prompter.h"
#include "SettingsStore.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFocusEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <tuple>

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

/// Selects its whole text when it gets the focus, by a click too. A menu or another window only borrows the focus.
class PathEdit final : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
            return;
        selectAll();
        if (event->reason() == Qt::MouseFocusReason) // the click itself is still to set the caret
            QMetaObject::invokeMethod(this, &QLineEdit::selectAll, Qt::QueuedConnection);
    }
};

/// "~" as a shell understands it; a log in a folder of that name would be looked for in vain.
QString withHomeFolder(const QString& path) {
    return path == u"~" || path.startsWith(u"~/") ? QDir::homePath() + path.mid(1) : path;
}

/// Creates the log, empty, when nothing has its name. A failure is silent: the test of its folder tells the usual one.
void createMissing(OwnFiles& files, const std::filesystem::path& log) {
    if (files.FolderExists(log.parent_path()))
        std::ignore = files.CreateNew(log, {});
}

} // namespace

frmStartOptions::frmStartOptions(const Parts& parts, const Options& options, QWidget* parent)
    : QDialog(parent), m_parts(parts) {
    setObjectName(QStringLiteral("frmStartOptions"));
    setWindowTitle(parts.texts[Text::GeneralOptions]);
    auto* all = new QVBoxLayout(this);
    all->setSpacing(12);
    all->addWidget(buildSwitches(options));
    all->addWidget(buildLogFile(options));
    all->addStretch();
    all->addWidget(buildButtons());
    m_switches.front()->setFocus();
}

QGroupBox* frmStartOptions::buildSwitches(const Options& options) {
    auto* frame = new QGroupBox(m_parts.texts[Text::GeneralSettings]);
    auto* rows = new QVBoxLayout(frame);
    for (const Switch& row : switches) {
        auto* box = new QCheckBox(m_parts.texts[row.caption]);
        box->setObjectName(QLatin1String(row.control));
        box->setChecked(options.*row.value);
        rows->addWidget(box);
        m_switches.push_back(box);
    }
    if (m_parts.autostart.Exists(autostartName))
        m_switches[startWithWindows]->setChecked(true);
    return frame;
}

QGroupBox* frmStartOptions::buildLogFile(const Options& options) {
    auto* frame = new QGroupBox(m_parts.texts[Text::ApplicationLog]);
    m_loggingPath = new PathEdit(options.loggingPath);
    m_loggingPath->setObjectName(QStringLiteral("txtLoggingPath"));
    m_loggingPath->setAccessibleName(m_parts.texts[Text::ApplicationLog]);
    m_loggingPath->setMinimumWidth(m_loggingPath->fontMetrics().averageCharWidth() * 50);
    auto* select = new QPushButton(m_parts.texts[Text::SelectFile]);
    select->setObjectName(QStringLiteral("cmdSelectFile"));
    select->setAutoDefault(false);
    connect(select, &QPushButton::clicked, this, &frmStartOptions::selectFile);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(m_loggingPath, 1);
    row->addWidget(select);
    return frame;
}

QDialogButtonBox* frmStartOptions::buildButtons() {
    auto* buttons = new QDialogButtonBox(this);
    const StringTable& texts = m_parts.texts;
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
    return options;
}

bool frmStartOptions::acceptsLogPath() {
    const std::filesystem::path log = modNativePath::Absolute(withHomeFolder(m_loggingPath->text().trimmed()));
    m_loggingPath->setText(modNativePath::ToText(log));
    if (log.empty()) // blanks name no file
        return true;
    const StringTable& texts = m_parts.texts;
    QString objection;
    if (m_parts.files.FolderExists(log)) {
        objection = texts[Text::LogIsDirectory].arg(m_loggingPath->text());
    } else {
        createMissing(m_parts.files, log);
        if (m_parts.files.FolderExists(log.parent_path()))
            return true;
        objection = texts[Text::SelectedDirectory] + modNativePath::ToText(log.parent_path()) +
                    texts[Text::DoesNotExist] + QStringLiteral("\n\n") + texts[Text::SelectValidDirectory];
    }
    m_parts.prompter.Ask(
        {objection, texts[Text::DirectoryNotFoundTitle], MessageIcon::Exclamation, MessageButtons::Ok});
    m_loggingPath->setFocus();
    return false;
}

void frmStartOptions::save() {
    if (!acceptsLogPath())
        return;
    CreateAutoStart();
    accept();
}

void frmStartOptions::CreateAutoStart() {
    const bool wanted = m_switches[startWithWindows]->isChecked();
    const std::error_code error =
        wanted ? m_parts.autostart.Create(autostartName, m_parts.program) : m_parts.autostart.Remove(autostartName);
    if (error)
        m_parts.prompter.Ask({m_parts.texts[Text::AutostartNotChanged] + u'\n' + modForeignText::OfError(error),
                              m_parts.texts[Text::Error], MessageIcon::Exclamation, MessageButtons::Ok});
}

void frmStartOptions::selectFile() {
    const QString last =
        m_parts.settings.Read(SettingsStore::OwnApplication, lastFileSection, lastLogKey).value_or(QString());
    FileRequest request;
    request.title = m_parts.texts[Text::SelectLogFile];
    request.filters = {m_parts.texts[Text::LogFile] + QStringLiteral(" (*.log)"),
                       m_parts.texts[Text::AllFiles] + QStringLiteral(" (*.*)")};
    request.folder = last.isEmpty() ? QString() : QFileInfo(last).path();
    request.file = m_loggingPath->text();
    const std::optional<QString> chosen = m_parts.picker.SaveFile(request, false);
    if (!chosen)
        return;
    m_loggingPath->setText(*chosen);
    createMissing(m_parts.files, modNativePath::Absolute(*chosen));
    std::ignore = m_parts.settings.Write(SettingsStore::OwnApplication, lastFileSection, lastLogKey, *chosen);
}
