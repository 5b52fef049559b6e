#include "frmAbout.h"

#include "FormParts.h"
#include "Icons.h"
#include "StringTable.h"
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* nameLabel() {
    QLabel* name = FormParts::PlainText("lblName", QStringLiteral("Kalvenor Pro"));
    QFont large = name->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.5);
    name->setFont(large);
    return name;
}

/// A link that the keyboard reaches too. The signal's receiver knows the address.
QLabel* linkLabel(const QString& caption) {
    auto* link = new QLabel(u"<a href=\"home\">" + caption.toHtmlEscaped() + u"</a>");
    link->setObjectName(QStringLiteral("lblLink"));
    link->setAccessibleName(caption);
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    return link;
}

} // namespace

frmAbout::frmAbout(const StringTable& texts, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(texts[Text::AboutTitle]);

    auto* picture = new QLabel;
    picture->setPixmap(Icons::Icon(Icons::Picture::Monitoring).pixmap(64, 64));
    picture->setAlignment(Qt::AlignTop);
    QLabel* version = FormParts::PlainText("lblVersion", texts[Text::Version].arg(QStringLiteral(KALVENOR_VERSION)));
    QLabel* notice = FormParts::PlainText("lblNotice", texts[Text::Warranty]);
    notice->setWordWrap(true);
    notice->setMinimumWidth(notice->fontMetrics().averageCharWidth() * 60);
    QLabel* link = linkLabel(texts[Text::VisitWebSite]);
    connect(link, &QLabel::linkActivated, this, &frmAbout::HomePageWanted);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* system = buttons->addButton(texts[Text::SystemInformation], QDialogButtonBox::ActionRole);
    QPushButton* ok = FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdOK", texts[Text::Ok]);
    system->setObjectName(QStringLiteral("cmdSysInfo"));
    system->setAutoDefault(false);
    ok->setDefault(true);
    connect(system, &QPushButton::clicked, this, &frmAbout::SystemInformationWanted);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* words = new QVBoxLayout;
    words->addWidget(nameLabel());
    words->addWidget(version);
    words->addSpacing(8);
    words->addWidget(notice, 1);
    words->addSpacing(8);
    words->addWidget(link);
    FormParts::LayOut(*this, *picture, *words, *buttons);
    ok->setFocus();
}
