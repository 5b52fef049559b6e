#include "LogSearchBar.h"

#include "FormParts.h"
#include "StringTable.h"
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

LogSearchBar::LogSearchBar(const StringTable& texts)
    : m_texts(texts), m_text(new QLineEdit), m_matchCase(FormParts::CheckBox("chkMatchCase", texts[Text::MatchCase])),
      m_notice(FormParts::PlainText("lblSearchNotice", {})) {
    const auto addSign = [this](const char* name, char16_t sign, Text caption) {
        return FormParts::SignButton(name, QString(QChar(sign)), m_texts[caption]);
    };
    m_text->setObjectName(QStringLiteral("txtSearchText"));
    m_text->setClearButtonEnabled(true);
    m_text->setMinimumWidth(m_text->fontMetrics().averageCharWidth() * 14);
    QLabel* label = FormParts::Label(texts[Text::SearchText], *m_text);
    QToolButton* previous = addSign("cmdPrevious", u'\u2191', Text::PreviousMatch);
    QToolButton* next = addSign("cmdNext", u'\u2193', Text::NextMatch);
    QToolButton* close = addSign("cmdCloseSearch", u'\u2715', Text::CloseSearch);
    close->setAutoRaise(true);

    auto* row = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{label, m_text, previous, next, m_matchCase, close})
        row->addWidget(widget, widget == m_text ? 1 : 0);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 4, 6, 4);
    all->addLayout(row);
    all->addWidget(m_notice);
    Say(QString());
    hide();
    connect(previous, &QToolButton::clicked, this, [this] { SearchOn(true); });
    connect(next, &QToolButton::clicked, this, [this] { SearchOn(false); });
    connect(close, &QToolButton::clicked, this, &LogSearchBar::closeBar);
}

void LogSearchBar::Open(const QString& text) {
    if (!text.isEmpty())
        m_text->setText(text);
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void LogSearchBar::SearchOn(bool isBackwards) {
    if (m_text->text().isEmpty())
        return Open({});
    show();
    Say(m_texts[Text::Searching]);
    Q_EMIT Wanted(m_text->text(), m_matchCase->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive, isBackwards);
}

void LogSearchBar::Say(const QString& notice) {
    m_notice->setText(notice);
    m_text->setAccessibleDescription(notice);
    m_notice->setVisible(!notice.isEmpty());
}

void LogSearchBar::closeBar() {
    hide();
    Say(QString());
    Q_EMIT Closed();
}

/// Enter and Escape belong to the bar as long as it has the focus, not to the window.
void LogSearchBar::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* button = qobject_cast<QToolButton*>(focusWidget()); isEnter && button != nullptr && button->hasFocus())
        button->click();
    else if (isEnter)
        SearchOn(event->modifiers().testFlag(Qt::ShiftModifier));
    else if (event->key() == Qt::Key_Escape)
        closeBar();
    else
        QWidget::keyPressEvent(event);
}
