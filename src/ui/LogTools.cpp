#include "LogTools.h"

#include "FormParts.h"
#include "StringTable.h"
#include <QHBoxLayout>
#include <QSignalBlocker>

namespace {

struct KindButton {
    LogKind kind;
    const char* name;
    Text caption;
};
constexpr KindButton kindButtons[] = {{LogKind::Copied, "cmdCopied", Text::LinesCopied},
                                      {LogKind::Moved, "cmdMoved", Text::LinesMoved},
                                      {LogKind::Deleted, "cmdDeleted", Text::LinesDeleted},
                                      {LogKind::Failed, "cmdFailed", Text::LinesFailed}};

QToolButton* addToggle(QLayout& row, const char* name, const QString& caption) {
    auto* button = new QToolButton;
    FormParts::Name(*button, name, caption);
    button->setText(caption);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    row.addWidget(button);
    return button;
}

} // namespace

LogTools::LogTools(const StringTable& texts) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->addWidget(FormParts::PlainText("lblShowOnly", texts[Text::ShowOnly]));
    for (const KindButton& one : kindButtons) {
        QToolButton* button = addToggle(*row, one.name, texts[one.caption]);
        button->setAccessibleDescription(texts[Text::ShowOnly]);
        connect(button, &QToolButton::toggled, this, [this] { Q_EMIT KindsChosen(chosen()); });
        m_kinds.emplace_back(one.kind, button);
    }
    row->addStretch();
    m_follow = addToggle(*row, "cmdFollow", texts[Text::FollowEnd]);
    connect(m_follow, &QToolButton::toggled, this, &LogTools::FollowChosen);
}

LogKindSet LogTools::chosen() const {
    LogKindSet kinds;
    for (const auto& [kind, button] : m_kinds)
        kinds.setFlag(kind, button->isChecked());
    return kinds;
}

void LogTools::ShowAll() {
    for (const auto& [kind, button] : m_kinds) {
        const QSignalBlocker quiet(button);
        button->setChecked(false);
    }
    Q_EMIT KindsChosen({});
}

void LogTools::SetFollows(bool follows) {
    m_follow->setChecked(follows);
}
