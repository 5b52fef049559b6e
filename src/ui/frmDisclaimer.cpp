#include "frmDisclaimer.h"

#include "FormParts.h"
#include "StringTable.h"
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

frmDisclaimer::frmDisclaimer(const StringTable& texts, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmDisclaimer"));
    setWindowTitle(QStringLiteral("Kalvenor Pro"));

    auto* sign = new QLabel;
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(48, 48));
    sign->setAlignment(Qt::AlignTop);

    QLabel* heading = FormParts::PlainText("lblHeading", texts[Text::Attention]);
    QFont large = heading->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.3);
    heading->setFont(large);

    QLabel* notice = FormParts::PlainText("lblNotice", texts[Text::LegalNotice]);
    notice->setWordWrap(true);
    notice->setMinimumWidth(notice->fontMetrics().averageCharWidth() * 70);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* accept = FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdAccept", texts[Text::Accept]);
    QPushButton* decline = FormParts::AddButton(*buttons, QDialogButtonBox::Cancel, "cmdDecline", texts[Text::Decline]);
    // Enter must not accept a notice that was not read.
    accept->setAutoDefault(false);
    decline->setDefault(true);
    decline->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* words = new QVBoxLayout;
    words->setSpacing(8);
    words->addWidget(heading);
    words->addWidget(notice, 1);
    FormParts::LayOut(*this, *sign, *words, *buttons);
}
