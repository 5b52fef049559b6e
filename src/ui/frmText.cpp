#include "frmText.h"

#include "FormParts.h"
#include "StringTable.h"
#include "modTextBox.h"
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmText::frmText(const StringTable& texts, const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmText"));
    setWindowTitle(title);

    QPlainTextEdit* box = modTextBox::Make(QStringLiteral("txtText"), title);
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
