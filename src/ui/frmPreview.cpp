#include "frmPreview.h"

#include "FilePicker.h"
#include "FormParts.h"
#include "OwnFiles.h"
#include "PlanModel.h"
#include "PlanOrder.h"
#include "PlanReport.h"
#include "Prompter.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr std::array<int, PlanModel::ColumnCount> columnCharacters{12, 44, 44, 13, 40};

QLabel* makeLabel(const char* name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

frmPreview::frmPreview(const RunPlan& plan, const Services& services, QWidget* parent)
    : QDialog(parent), m_plan(plan), m_services(services), m_model(new PlanModel(plan, services.texts)),
      m_order(new PlanOrder(*m_model)) {
    m_model->setParent(this);
    m_order->setParent(this);
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(services.texts[Text::PreviewTitle].arg(plan.run.name));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* all = new QVBoxLayout(this);
    if (!plan.IsComplete())
        all->addWidget(makeLabel(
            "lblIncomplete", services.texts[Text::PlanIncomplete].arg(modForeignText::OneLine(plan.outcome.reason))));
    all->addWidget(makeFilter());
    QWidget* table = makeTable();
    all->addWidget(table, 1);
    all->addWidget(makeLabel("lblTotals", PlanReport::Summary(plan, services.texts)));
    all->addWidget(makeButtons());
    table->setFocus();
    resize(900, 520);
}

QWidget* frmPreview::makeFilter() {
    auto* filter = new QWidget;
    auto* line = new QHBoxLayout(filter);
    line->setContentsMargins(0, 0, 0, 0);
    const PlanReport::Totals totals = PlanReport::TotalsOf(m_plan);
    for (std::size_t deed = 0; deed < DeedCount; ++deed) {
        if (totals[deed].files == 0)
            continue;
        const auto each = static_cast<Deed>(deed);
        auto* box = new QCheckBox(PlanReport::Word(each, m_services.texts));
        box->setObjectName(QStringLiteral("chkDeed%1").arg(deed));
        connect(box, &QCheckBox::toggled, m_order, [this, each](bool shown) { m_order->Show(each, shown); });
        box->setChecked(each != Deed::LeaveAlone); // mostly many, and nothing happens to them
        line->addWidget(box);
    }
    auto* text = new QLineEdit;
    text->setObjectName(QStringLiteral("txtFilter"));
    text->setPlaceholderText(m_services.texts[Text::PlanFilter]);
    text->setAccessibleName(m_services.texts[Text::PlanFilter]);
    text->setClearButtonEnabled(true);
    connect(text, &QLineEdit::textChanged, m_order, &PlanOrder::SetText);
    line->addWidget(text, 1);
    return filter;
}

QWidget* frmPreview::makeTable() {
    auto* table = new QTreeView;
    table->setObjectName(QStringLiteral("lvwPlan"));
    table->setAccessibleName(windowTitle());
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setAlternatingRowColors(true);
    table->setAllColumnsShowFocus(true);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setModel(m_order);
    table->header()->setSortIndicatorClearable(true); // back to the order of the run
    table->header()->setSortIndicator(-1, Qt::AscendingOrder);
    table->setSortingEnabled(true);
    for (int column = 0; column < PlanModel::ColumnCount; ++column)
        table->setColumnWidth(column, columnCharacters[static_cast<std::size_t>(column)] *
                                          table->fontMetrics().averageCharWidth());
    return table;
}

QWidget* frmPreview::makeButtons() {
    auto* buttons = new QDialogButtonBox;
    const StringTable& texts = m_services.texts;
    QPushButton* run = buttons->addButton(texts[Text::RunAsShown], QDialogButtonBox::AcceptRole);
    run->setObjectName(QStringLiteral("cmdRun"));
    run->setAutoDefault(false);
    run->setEnabled(m_plan.IsComplete() && m_plan.HasDeeds());
    QPushButton* saving = buttons->addButton(texts[Text::PlanExport], QDialogButtonBox::ActionRole);
    saving->setObjectName(QStringLiteral("cmdSave"));
    saving->setAutoDefault(false);
    saving->setEnabled(!m_plan.acts.empty());
    QPushButton* cancel =
        FormParts::AddButton(*buttons, QDialogButtonBox::Cancel, "cmdCancel", texts[Text::CancelButton]);
    cancel->setDefault(true); // Enter does nothing that cannot be undone
    connect(saving, &QPushButton::clicked, this, &frmPreview::save);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

/// What is shown, in the order in which it is shown.
void frmPreview::save() {
    const StringTable& texts = m_services.texts;
    const std::optional<QString> path = m_services.picker.SaveFile({.title = texts[Text::PlanExport],
                                                                    .filters = {texts[Text::CsvFiles]},
                                                                    .folder = {},
                                                                    .file = m_plan.run.name + QStringLiteral(".csv"),
                                                                    .suffix = QStringLiteral("csv")},
                                                                   true);
    if (!path)
        return;
    const QByteArray csv = PlanReport::Csv(m_order->Shown(), texts);
    if (const auto error = m_services.files.ReplaceAll(modNativePath::FromText(*path), csv))
        m_services.prompter.Ask({texts[Text::PlanNotSaved] + u'\n' + modForeignText::OfError(error), windowTitle(),
                                 MessageIcon::Exclamation, MessageButtons::Ok});
}
