#include "NameHint.h"

#include "FieldHint.h"
#include "StringTable.h"
#include <QLineEdit>
#include <utility>

NameHint::NameHint(QLineEdit& line, const StringTable& texts, IsUsable isUsable, QStringList taken)
    : QObject(&line), m_line(line), m_texts(texts), m_isUsable(std::move(isUsable)), m_taken(std::move(taken)),
      m_hint(new FieldHint(line)) {
    connect(&line, &QLineEdit::textChanged, this, &NameHint::check);
}

void NameHint::check() {
    const QString name = m_line.text().trimmed();
    const bool beginsWithDigit = !name.isEmpty() && name.front().isDigit();
    const bool canBeStored = !beginsWithDigit && m_isUsable(name);
    if (name.isEmpty() || (canBeStored && !m_taken.contains(name)))
        return m_hint->Clear();
    FieldHint::Offer offer;
    if (const QString better = untaken(canBeStored ? name : usable(name)); !better.isEmpty())
        offer = {m_texts[Text::UseName].arg(better), [this, better] {
                     m_line.setText(better);
                     m_line.setFocus();
                 }};
    const Text unusable = beginsWithDigit ? Text::NameStartsWithNumber : Text::NameHasUnusable;
    m_hint->Object(m_texts[canBeStored ? Text::NameTakenHint : unusable], offer);
}

/// The name, with a number where it is taken; "" when that would not do.
QString NameHint::untaken(const QString& name) const {
    QString result = name;
    for (int number = 2; m_taken.contains(result); ++number)
        result = name + u'_' + QString::number(number);
    return result.isEmpty() || m_isUsable(result) ? result : QString();
}

/// The name with one "_" for whatever cannot stand in it; "" when even that would not do.
QString NameHint::usable(const QString& name) const {
    QString result;
    for (const char32_t character : name.toUcs4()) {
        const QString one = QString::fromUcs4(&character, 1);
        if (m_isUsable(u'a' + one))
            result += one;
        else if (!result.endsWith(u'_'))
            result += u'_';
    }
    if (result.front().isDigit() || !m_isUsable(result))
        result.prepend(u'_');
    return m_isUsable(result) ? result : QString();
}
