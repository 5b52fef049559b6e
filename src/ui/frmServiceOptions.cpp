#include "frmServiceOptions.h"

#include "FormParts.h"
#include "StringTable.h"
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <array>

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

constexpr int kNoteWidth = 380; // pixels

} // namespace

frmServiceOptions::frmServiceOptions(const StringTable& texts, QWidget* parent) : QDialog(parent) {
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
    }
    auto* note = new QLabel(texts[Text::ServiceNote], this);
    note->setObjectName(QStringLiteral("lblNote"));
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setMinimumWidth(kNoteWidth);
    layout->addWidget(note, 2, 0, 1, 2);
    auto* buttons = new QDialogButtonBox(this);
    FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdOK", texts[Text::Ok]);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons, 3, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
