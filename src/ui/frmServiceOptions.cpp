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
    int textId;
    const char* word;
};

constexpr std::array choices{Choice{"cmdInstallSvc", 423, "install"}, Choice{"cmdUninstallSvc", 424, "uninstall"},
                             Choice{"cmdStartSvc", 421, "startservice"}, Choice{"cmdStopSvc", 422, "stopservice"}};

constexpr int kNoteWidth = 380; // pixels

} // namespace

frmServiceOptions::frmServiceOptions(const StringTable& texts, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmServiceOptions"));
    setWindowTitle(texts.Text(417));
    auto* layout = new QGridLayout(this);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        auto* button = new QPushButton(texts.Text(choices[i].textId), this);
        button->setObjectName(QLatin1String(choices[i].name));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this,
                [this, word = QString::fromLatin1(choices[i].word)] { Q_EMIT Chosen(word); });
        layout->addWidget(button, static_cast<int>(i / 2), static_cast<int>(i % 2));
    }
    auto* note = new QLabel(texts.Text(427), this);
    note->setObjectName(QStringLiteral("lblNote"));
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setMinimumWidth(kNoteWidth);
    layout->addWidget(note, 2, 0, 1, 2);
    auto* buttons = new QDialogButtonBox(this);
    FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdOK", texts.Text(448));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons, 3, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
