#include "EmptyListHint.h"

#include "FormParts.h"
#include "Icons.h"
#include "StringTable.h"
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int textCharacters = 50; // the sentence's lines, in average characters

} // namespace

EmptyListHint::EmptyListHint(const StringTable& texts) {
    setObjectName(QStringLiteral("emptyListHint"));
    QLabel* sentence = FormParts::PlainText("lblEmptyList", texts[Text::ListIsEmpty]);
    sentence->setWordWrap(true);
    sentence->setAlignment(Qt::AlignCenter);
    sentence->setFixedWidth(textCharacters * fontMetrics().averageCharWidth());
    auto* add = new QPushButton(Icons::Icon(Icons::Picture::Add), texts[Text::AddActivity]);
    FormParts::Name(*add, "cmdAddFirst", texts[Text::AddActivity]);
    add->setAccessibleDescription(texts[Text::ListIsEmpty]);
    QLabel* drop = FormParts::PlainText("lblDropFolder", texts[Text::OrDropFolder]);

    auto* all = new QVBoxLayout(this);
    all->setSpacing(12);
    all->addWidget(sentence);
    all->addWidget(add, 0, Qt::AlignCenter);
    all->addWidget(drop, 0, Qt::AlignCenter);
    connect(add, &QPushButton::clicked, this, &EmptyListHint::AddWanted);
}
