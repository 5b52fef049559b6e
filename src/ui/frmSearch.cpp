#include "frmSearch.h"

#include "FormParts.h"
#include "StringTable.h"
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmSearch::frmSearch(const StringTable& texts, const QString& text, bool matchCase, QWidget* parent)
    : QDialog(parent), m_text(new QLineEdit(text)), m_matchCase(new QCheckBox(texts[Text::MatchCase])) {
    setObjectName(QStringLiteral("frmSearch"));
    setWindowTitle(texts[Text::Search]);

    auto* label = new QLabel(texts[Text::SearchText]);
    label->setBuddy(m_text);
    m_text->setObjectName(QStringLiteral("txtSearchText"));
    m_text->setAccessibleName(texts[Text::SearchText]);
    m_text->setMinimumWidth(m_text->fontMetrics().averageCharWidth() * 45);
    m_text->selectAll();
    m_matchCase->setObjectName(QStringLiteral("chkMatchCase"));
    m_matchCase->setChecked(matchCase);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdOK", texts[Text::Ok]);
    FormParts::AddButton(*buttons, QDialogButtonBox::Cancel, "cmdCancel", texts[Text::CancelButton]);
    ok->setEnabled(!text.isEmpty());
    connect(m_text, &QLineEdit::textChanged, ok, [ok](const QString& now) { ok->setEnabled(!now.isEmpty()); });
    ok->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* all = new QVBoxLayout(this);
    all->addWidget(label);
    all->addWidget(m_text);
    all->addWidget(m_matchCase);
    all->addSpacing(8);
    all->addStretch();
    all->addWidget(buttons);
    m_text->setFocus();
}

QString frmSearch::SearchText() const {
    return m_text->text();
}

bool frmSearch::MatchCase() const {
    return m_matchCase->isChecked();
}
