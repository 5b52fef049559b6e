#include "EditorActionTab.h"

#include "FilePicker.h"
#include "FormParts.h"
#include "FormServices.h"
#include "OwnFiles.h"
#include "PathRow.h"
#include "StringTable.h"
#include "modNativePath.h"
#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <tuple>

namespace {

enum Action { Copy, Move, None, Mirror };

struct ActionRow {
    Action code;
    const char* name;
    Text text;
};
constexpr std::array actionRows{
    ActionRow{Copy, "optCopy", Text::CopyFiles}, ActionRow{Move, "optMove", Text::MoveFiles},
    ActionRow{Mirror, "optMirror", Text::MirrorDirectory}, ActionRow{None, "optNoAction", Text::NoAction}};

constexpr std::array switchRows{SwitchRow{ActivityField::Overwrite, "chkOverwrite", Text::OverwriteUnasked},
                                SwitchRow{ActivityField::OnlyNew, "chkOnlyNew", Text::OnlyNewer},
                                SwitchRow{ActivityField::IncludeSubdirs, "chkIncludeSubdirs", Text::IncludeSubfolders}};

QString withPattern(const QString& description, const char* pattern) {
    return description + QStringLiteral(" (") + QLatin1String(pattern) + u')';
}

} // namespace

EditorActionTab::EditorActionTab(const EditorServices& services)
    : m_services(services), m_actions(new QButtonGroup(this)),
      optOnlyThis(FormParts::Option("optOnlyThis", services.texts[Text::OnlyThese])), txtExtensions(new QLineEdit),
      m_extensions(*txtExtensions) {
    auto* all = new QVBoxLayout(this);
    all->addWidget(buildAction());
    all->addWidget(buildFileTypes());
    all->addWidget(buildReactions());
    all->addStretch(1);
    connect(m_actions, &QButtonGroup::idToggled, this, &EditorActionTab::ActionChosen);
    connect(optOnlyThis, &QRadioButton::toggled, this, [this](bool on) { m_extensions.SetWanted(on); });
    m_extensions.SetWanted(false);
}

QGroupBox* EditorActionTab::buildAction() {
    QGroupBox* group = FormParts::Group(m_services.texts[Text::ActionColumn]);
    auto* options = new QVBoxLayout;
    for (const ActionRow& row : actionRows) {
        QRadioButton* option = FormParts::Option(row.name, m_services.texts[row.text]);
        m_actions->addButton(option, row.code);
        options->addWidget(option);
    }
    auto* switches = new QVBoxLayout;
    for (const SwitchRow& row : switchRows) {
        switches->addWidget(m_bindings.NewSwitch(row, m_services.texts));
    }
    switches->addStretch(1);
    FormParts::EnterAtChosen(*m_actions);
    m_bindings.Choice(*m_actions, ActivityField::Action);
    auto* halves = new QHBoxLayout;
    halves->addLayout(options, 1);
    halves->addLayout(switches, 1);
    auto* all = new QVBoxLayout(group);
    all->addLayout(halves);
    all->addLayout(warningOfMirror());
    return group;
}

QLayout* EditorActionTab::warningOfMirror() {
    const QString warning = m_services.texts[Text::MirrorDeletes];
    QLabel* label = FormParts::PlainText("lblMirrorDeletes", warning);
    label->setWordWrap(true);
    // Without its mnemonic, which may be a tab's.
    auto* preview = new QPushButton(FormParts::Spoken(m_services.texts[Text::Preview]));
    FormParts::Name(*preview, "cmdPreview", m_services.texts[Text::Preview]);
    connect(preview, &QPushButton::clicked, this, &EditorActionTab::PreviewWanted);
    QAbstractButton* mirror = m_actions->button(Mirror);
    mirror->setAccessibleDescription(warning);
    auto* line = new QHBoxLayout;
    for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(preview)}) {
        // The form keeps its size when another action is chosen.
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
        widget->hide();
        connect(mirror, &QAbstractButton::toggled, widget, &QWidget::setVisible);
        line->addWidget(widget, widget == label ? 1 : 0);
    }
    return line;
}

QGroupBox* EditorActionTab::buildFileTypes() {
    const StringTable& texts = m_services.texts;
    QGroupBox* group = FormParts::Group(FormParts::Spoken(texts[Text::ObservedTypes]));
    QRadioButton* optAll = FormParts::Option("optAll", texts[Text::AllTypes]);
    auto* types = new QButtonGroup(group);
    types->addButton(optAll);
    types->addButton(optOnlyThis);
    FormParts::EnterAtChosen(*types);
    FormParts::Name(*txtExtensions, "txtExtensions", texts[Text::FileExtensions]);
    txtExtensions->setPlaceholderText(texts[Text::ExtensionsExample]);
    auto* line = new QHBoxLayout(group);
    line->setSpacing(12);
    line->addWidget(optAll);
    line->addSpacing(12);
    line->addWidget(optOnlyThis);
    line->addWidget(txtExtensions, 1);
    m_bindings.Text(*txtExtensions, ActivityField::Extensions);
    m_bindings.Switch(*optAll, *optOnlyThis, ActivityField::AllFiles);
    return group;
}

QGroupBox* EditorActionTab::buildReactions() {
    const StringTable& texts = m_services.texts;
    QGroupBox* group = FormParts::Group(texts[Text::Reactions]);
    QCheckBox* chkAlert = FormParts::CheckBox("chkAlert", texts[Text::AlertOnChange]);
    PathRow* program = programRow();
    PathRow* logFile = logFileRow();
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(12);
    grid->addWidget(chkAlert, 0, 0, 1, 2);
    grid->addWidget(FormParts::Label(texts[Text::ExecuteOnChange], program->Line()), 1, 0);
    grid->addWidget(program, 1, 1);
    grid->addWidget(FormParts::Label(texts[Text::LogOfActivity], logFile->Line()), 2, 0);
    grid->addWidget(logFile, 2, 1);
    m_bindings.Switch(*chkAlert, ActivityField::Alert);
    m_bindings.Text(program->Line(), ActivityField::Executable);
    m_bindings.Text(logFile->Line(), ActivityField::LogFile);
    return group;
}

PathRow* EditorActionTab::programRow() {
    auto* line = new QLineEdit;
    line->setObjectName(QStringLiteral("txtExecutable"));
    const StringTable& texts = m_services.texts;
    const QStringList filters{withPattern(texts[Text::AllFiles], "*"),
                              withPattern(texts[Text::ExecutableFiles], "*.exe *.com *.bat *.cmd *.sh *.py *.pl")};
    return new PathRow(line, {"cmdExecutable", texts[Text::SelectProgram]}, [this, filters](const QString& present) {
        return m_services.picker.OpenFile({m_services.texts[Text::SelectProgram], filters, {}, present});
    });
}

PathRow* EditorActionTab::logFileRow() {
    auto* line = new QLineEdit;
    line->setObjectName(QStringLiteral("txtLogFile"));
    const StringTable& texts = m_services.texts;
    const QStringList filters{withPattern(texts[Text::LogFile], "*.log"), withPattern(texts[Text::AllFiles], "*")};
    return new PathRow(line, {"cmdLogFile", texts[Text::SelectActivityLog]}, [this, filters](const QString& present) {
        const FileRequest request{m_services.texts[Text::SelectActivityLog], filters, {}, present};
        std::optional<QString> picked = m_services.picker.SaveFile(request, false);
        // An existing log is left alone. A file that cannot be created is reported when the activity is saved.
        if (picked)
            std::ignore = m_services.files.CreateNew(modNativePath::Absolute(*picked), {});
        return picked;
    });
}

void EditorActionTab::Show(const ActivityRecord& record) {
    // Fill the field before switching it off, so that "Only this:" brings its text back.
    m_extensions.SetWanted(true);
    m_bindings.Show(record);
    m_extensions.SetWanted(optOnlyThis->isChecked());
}

bool EditorActionTab::IsDestinationWanted() const {
    return m_actions->checkedId() != None;
}
