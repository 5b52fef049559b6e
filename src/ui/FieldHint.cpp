#include "FieldHint.h"

#include "FormParts.h"
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

// Red enough on light and on dark grounds.
const QString redEdge =
    QStringLiteral("QLineEdit { border: 1px solid #d7263d; border-radius: 3px; padding: 3px 2px; }");

constexpr int mostCharacters = 36; // on the button, of average width: names can be long

} // namespace

FieldHint::FieldHint(QLineEdit& field)
    : m_field(field), m_text(FormParts::PlainText("", {})), m_button(new QPushButton) {
    setObjectName(field.objectName() + QStringLiteral("Hint"));
    m_text->setWordWrap(true);
    m_button->setObjectName(field.objectName() + QStringLiteral("Offer"));
    m_button->setAutoDefault(false);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_text, 1);
    line->addWidget(m_button);
    connect(m_button, &QPushButton::clicked, this, [this] {
        // Taking the offer changes the field, and with it the offer.
        if (const auto take = m_take)
            take();
    });
    hide();
}

void FieldHint::Object(const QString& text, const Offer& offer) {
    m_text->setText(text);
    m_take = offer.take;
    QString caption = offer.caption;
    caption = fontMetrics().elidedText(caption, Qt::ElideMiddle, mostCharacters * fontMetrics().averageCharWidth());
    m_button->setText(caption.replace(u'&', QLatin1String("&&")));
    m_button->setAccessibleName(offer.caption);
    m_button->setVisible(!offer.caption.isEmpty());
    m_field.setStyleSheet(redEdge);
    m_field.setAccessibleDescription(text);
    show();
}

void FieldHint::Clear() {
    if (isHidden())
        return;
    if (m_button->hasFocus())
        m_field.setFocus();
    hide();
    m_field.setStyleSheet({});
    m_field.setAccessibleDescription({});
}
