#include "frmServiceOptions.h"

#include "FormParts.h"
#include "StringTable.h"
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <utility>

namespace {

struct Choice {
    const char* name;
    Text text;
    const char* word;
};

constexpr std::array choices{Choice{"cmdInstallSvc", Text::InstallService, "install"},
                             Choice{"cmdUninstallSvc", Text::UninstallService, "uninstall"},
                             Choice{"cmdStartSvc", Text::StartService, "startservice"},
                             Choice{"cmdStopSvc", Text::StopService, "stopservice"}};

QLabel* lines(const char* name, const QString& text) {
    constexpr int width = 380; // pixels
    QLabel* label = FormParts::PlainText(name, text);
    label->setWordWrap(true);
    label->setMinimumWidth(width);
    return label;
}

} // namespace

frmServiceOptions::frmServiceOptions(const StringTable& texts, QWidget* parent)
    : QDialog(parent), m_texts(texts), m_state(lines("lblState", texts[Text::ServiceManagerWorking])) {
    setObjectName(QStringLiteral("frmServiceOptions"));
    setWindowTitle(texts[Text::ServiceTitle]);
    auto* layout = new QGridLayout(this);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        auto* button = new QPushButton(texts[choices[i].text], this);
        button->setObjectName(QLatin1String(choices[i].name));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this,
                [this, word = QString::fromLatin1(choices[i].word)] { Q_EMIT Chosen(word); });
        layout->addWidget(button, static_cast<int>(i / 2), static_cast<int>(i % 2));
        m_buttons.append(button);
    }
    layout->addWidget(m_state, 2, 0, 1, 2);
    layout->addWidget(lines("lblNote", texts[Text::ServiceNote]), 3, 0, 1, 2);
    auto* buttons = new QDialogButtonBox(this);
    FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdOK", texts[Text::Ok]);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons, 4, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmServiceOptions::setButtonsEnabled(bool enabled) {
    for (QPushButton* button : std::as_const(m_buttons))
        button->setEnabled(enabled);
}

void frmServiceOptions::ShowWorking() {
    setButtonsEnabled(false);
    m_state->setText(m_texts[Text::ServiceManagerWorking]);
}

void frmServiceOptions::ShowState(const QString& text) {
    setButtonsEnabled(true);
    m_state->setText(text);
}
