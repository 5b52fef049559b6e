#include "frmOptions.h"

#include "EditorActionTab.h"
#include "EditorDrives.h"
#include "EditorGeneralTab.h"
#include "EditorMailTab.h"
#include "EditorSafetyTab.h"
#include "EditorScheduleTab.h"
#include "FormParts.h"
#include "StoreError.h"
#include "StringTable.h"
#include <QDialogButtonBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

namespace {

constexpr QSize windowFrame(16, 48); // room for what the desktop puts around a window

/// A page that asks for as much room as it needs and scrolls where the screen gives less.
class ScrollPage final : public QScrollArea {
  public:
    explicit ScrollPage(QWidget* page) {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidgetResizable(true);
        setWidget(page);
        // The tab's own background shows through.
        page->setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
        setAccessibleName(page->accessibleName());
    }

    QSize sizeHint() const override { return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()); }
};

QStringList otherNames(const frmOptions::Request& request) {
    QStringList names = request.known.names;
    names.removeAll(request.name);
    return names;
}

} // namespace

ActivityRecord frmOptions::NewActivity() {
    ActivityRecord record;
    record.SetNumber(ActivityField::Type, 1);
    record.SetNumber(ActivityField::Interval, 10);
    record.SetNumber(ActivityField::Action, 0);
    record.SetOn(ActivityField::Alert, false);
    record.SetOn(ActivityField::AllFiles, true);
    record.SetOn(ActivityField::Active, true);
    record.SetOn(ActivityField::UseSmtp, true);
    return record;
}

frmOptions::frmOptions(const EditorServices& services, Request request, QWidget* parent)
    : QDialog(parent), m_services(services), m_request(std::move(request)), m_tabs(new QTabWidget),
      m_general(new EditorGeneralTab(m_services, m_request.isUsableName, otherNames(m_request))),
      m_schedule(new EditorScheduleTab(m_services)), m_action(new EditorActionTab(m_services)),
      m_mail(new EditorMailTab(m_services, m_request.known)), m_safety(new EditorSafetyTab(m_services)) {
    const StringTable& texts = m_services.texts;
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(m_request.name.isEmpty() ? texts[Text::NewActivity] : texts[Text::PropertiesOf].arg(m_request.name));
    auto* all = new QVBoxLayout(this);
    all->addWidget(m_tabs, 1);
    buildTabs();
    buildButtons();

    connect(m_action, &EditorActionTab::ActionChosen, m_general,
            [this] { m_general->SetDestinationWanted(m_action->IsDestinationWanted()); });
    connect(m_action, &EditorActionTab::PreviewWanted, this, &frmOptions::preview);
    connect(m_tabs, &QTabWidget::currentChanged, m_safety, [this](int tab) {
        if (tab == static_cast<int>(EditorChecks::Tab::Safety))
            m_safety->LookAtDrives(Record());
    });
    m_general->Show(m_request.name, m_request.record);
    m_schedule->Show(m_request.record);
    m_action->Show(m_request.record);
    m_mail->Show(m_request.record);
    m_safety->Show(m_request.record);
    m_shownName = Name();
    m_shownRecord = Record();
    // Where the desktop puts Cancel first it would have the focus, and Enter would mean Cancel.
    lead(EditorChecks::Tab::Directories, "txtName");
    resize(sizeHint().boundedTo(screen()->availableSize() - windowFrame));
}

void frmOptions::buildTabs() {
    m_tabs->setObjectName(QStringLiteral("tabOptions"));
    const auto add = [this](EditorChecks::Tab tab, QWidget* page, const char* name, Text text) {
        const QString caption = m_services.texts[text];
        FormParts::Name(*page, name, caption);
        m_tabs->insertTab(static_cast<int>(tab), new ScrollPage(page), caption);
    };
    add(EditorChecks::Tab::Directories, m_general, "tabGeneral", Text::DirectoriesTab);
    add(EditorChecks::Tab::Schedule, m_schedule, "tabSchedule", Text::ScheduleTab);
    add(EditorChecks::Tab::Action, m_action, "tabAction", Text::ActionTab);
    add(EditorChecks::Tab::Mail, m_mail, "tabMail", Text::MailTab);
    add(EditorChecks::Tab::Safety, m_safety, "tabSafety", Text::SafetyTab);
}

void frmOptions::buildButtons() {
    const StringTable& texts = m_services.texts;
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdOK", texts[Text::Ok]);
    QPushButton* cancel = FormParts::AddButton(*buttons, QDialogButtonBox::Cancel, "cmdCancel", texts[Text::Cancel]);
    ok->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmOptions::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { done(Rejected); });
    // Enter in a field means OK.
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setAutoDefault(button == ok || button == cancel);
    layout()->addWidget(buttons);
}

QString frmOptions::Name() const {
    return m_general->Name();
}

ActivityRecord frmOptions::Record() const {
    ActivityRecord record = m_request.record;
    m_general->Store(record);
    m_schedule->Store(record);
    m_action->Store(record);
    m_mail->Store(record);
    m_safety->Store(record);
    return record;
}

void frmOptions::accept() {
    // Boxes let events run, and the program may have closed this form meanwhile.
    if (!passesChecks() || m_over)
        return;
    ActivityRecord record = Record();
    if (!EditorDrives::Take(record, m_request.record, m_services.prompter, m_services.texts))
        return lead(EditorChecks::Tab::Safety, "chkOnlyOnDrives");
    if (m_over || !write(record) || m_over)
        return;
    m_general->RememberFolders();
    QDialog::accept();
}

bool frmOptions::MayBeDropped() {
    if (m_over || !isChanged())
        return true;
    const Message question{m_services.texts[Text::DropChanges], windowTitle(), MessageIcon::Question,
                           MessageButtons::YesNo};
    return m_services.prompter.Ask(question) == MessageAnswer::Yes;
}

bool frmOptions::isChanged() const {
    return Name() != m_shownName || Record() != m_shownRecord;
}

void frmOptions::preview() {
    if (m_request.preview && !isChanged())
        return m_request.preview();
    const StringTable& texts = m_services.texts;
    m_services.prompter.Ask(
        {texts[Text::PreviewSaveFirst], windowTitle(), MessageIcon::Information, MessageButtons::Ok});
}

void frmOptions::reject() {
    if (MayBeDropped() && !m_over)
        done(Rejected);
}

void frmOptions::done(int result) {
    m_over = true;
    m_mail->GiveUpTest();
    QDialog::done(result);
}

bool frmOptions::passesChecks() {
    const EditorChecks::Input input{Name(), Record(), m_schedule->ShownDate(), m_schedule->ShownDateTime(),
                                    m_schedule->ShownTime()};
    const EditorChecks::Environment environment{m_services.files,   m_services.system, m_services.clock,
                                                m_services.locale,  m_services.texts,  m_request.isUsableName,
                                                m_request.isOwnFile};
    return EditorChecks::Pass(input, environment,
                              [this](const EditorChecks::Problem& problem) { return wavesThrough(problem); });
}

bool frmOptions::wavesThrough(const EditorChecks::Problem& problem) {
    lead(problem.tab, problem.control);
    const MessageAnswer answer = m_services.prompter.Ask(problem.message);
    return problem.message.buttons == MessageButtons::YesNo && answer == MessageAnswer::Yes;
}

bool frmOptions::write(const ActivityRecord& record) {
    // The writer can only ask about or refuse the name.
    if (Name() != m_request.name)
        lead(EditorChecks::Tab::Directories, "txtName");
    const auto tell = [this](const QString& text) {
        m_services.prompter.Ask({text, m_services.texts[Text::Error], MessageIcon::Exclamation, MessageButtons::Ok});
    };
    try {
        return m_request.write(Name(), record);
    } catch (const StoreError& error) {
        tell(error.Text());
    } catch (const std::exception& error) {
        tell(QString::fromLocal8Bit(error.what()));
    }
    return false;
}

void frmOptions::lead(EditorChecks::Tab tab, const char* control) {
    m_tabs->setCurrentIndex(static_cast<int>(tab));
    auto* page = qobject_cast<QScrollArea*>(m_tabs->currentWidget());
    auto* field = findChild<QWidget*>(QLatin1String(control));
    if (page == nullptr || field == nullptr)
        return;
    field->setFocus();
    page->ensureWidgetVisible(field);
}
