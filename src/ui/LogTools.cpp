#include "LogTools.h"

#include "FormParts.h"
#include "StringTable.h"
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

struct KindBox {
    const char* name;
    Text caption;
    LogKind kind;
};
constexpr KindBox kindBoxes[] = {{"chkCopied", Text::LinesCopied, LogKind::Copied},
                                 {"chkMoved", Text::LinesMoved, LogKind::Moved},
                                 {"chkDeleted", Text::LinesDeleted, LogKind::Deleted},
                                 {"chkFailed", Text::LinesFailed, LogKind::Failed}};

} // namespace

LogTools::LogTools(const StringTable& texts) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->setSpacing(12);
    row->addWidget(FormParts::PlainText("lblShowOnly", texts[Text::ShowOnly]));
    for (const KindBox& one : kindBoxes) {
        QCheckBox* box = FormParts::CheckBox(one.name, texts[one.caption]);
        box->setAccessibleDescription(FormParts::Spoken(texts[Text::ShowOnly]));
        connect(box, &QCheckBox::toggled, this, [this] { Q_EMIT KindsChosen(chosen()); });
        row->addWidget(box);
        m_kinds.emplace_back(one.kind, box);
    }
    row->addStretch();
    auto* undo = new QPushButton(texts[Text::UndoThisRun]);
    undo->setObjectName(QStringLiteral("cmdUndoRun"));
    undo->setAutoDefault(false);
    undo->setToolTip(texts[Text::UndoThisRunTip]);
    connect(undo, &QPushButton::clicked, this, &LogTools::UndoWanted);
    row->addWidget(undo);
    m_follow = FormParts::CheckBox("chkFollow", texts[Text::FollowEnd]);
    row->addWidget(m_follow);
    connect(m_follow, &QCheckBox::toggled, this, &LogTools::FollowChosen);
}

LogKindSet LogTools::chosen() const {
    LogKindSet kinds;
    for (const auto& [kind, box] : m_kinds)
        kinds.setFlag(kind, box->isChecked());
    return kinds;
}

void LogTools::ShowAll() {
    for (const auto& [kind, box] : m_kinds) {
        const QSignalBlocker quiet(box);
        box->setChecked(false);
    }
    Q_EMIT KindsChosen({});
}

void LogTools::SetFollows(bool follows) {
    m_follow->setChecked(follows);
}
