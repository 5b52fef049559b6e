#include "PathRow.h"

#include "FormParts.h"
#include "RecentFolders.h"
#include <QDir>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>

PathRow::PathRow(QLineEdit* line, const Button& picker, const Pick& pick)
    : m_line(line), m_layout(new QHBoxLayout(this)) {
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(4);
    m_layout->addWidget(line, 1);
    connect(addButton(picker, QStringLiteral("...")), &QToolButton::clicked, this, [this, pick] {
        if (const std::optional<QString> picked = pick(m_line->text()))
            m_line->setText(QDir::toNativeSeparators(*picked));
    });
    line->installEventFilter(this);
}

void PathRow::AddRecent(const Button& button, const RecentFolders& recent) {
    const QStringList folders = recent.Folders();
    if (folders.isEmpty())
        return;
    auto* menu = new QMenu(this);
    for (const QString& folder : folders) {
        QString plain = folder;
        connect(menu->addAction(plain.replace(u'&', QLatin1String("&&"))), &QAction::triggered, m_line,
                [this, folder] { m_line->setText(folder); });
    }
    QToolButton* opener = addButton(button, {});
    opener->setArrowType(Qt::DownArrow);
    opener->setMenu(menu);
    opener->setPopupMode(QToolButton::InstantPopup);
    opener->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
}

QToolButton* PathRow::addButton(const Button& button, const QString& sign) {
    QToolButton* added = FormParts::SignButton(button.objectName, sign, button.caption);
    m_layout->addWidget(added);
    return added;
}

bool PathRow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_line && event->type() == QEvent::EnabledChange)
        followLine();
    return QWidget::eventFilter(watched, event);
}

void PathRow::followLine() {
    // Only what the line decides for itself; a disabled form disables the buttons anyway.
    for (QToolButton* button : findChildren<QToolButton*>())
        button->setEnabled(m_line->isEnabledTo(this));
}
