#include "MenuEntry.h"

#include "StringTable.h"
#include <QMenu>

void FillMenu(QMenu& menu, std::span<const MenuEntry> entries, const StringTable& texts,
              const std::function<void(Command)>& run) {
    for (const MenuEntry& entry : entries) {
        if (entry.name == nullptr) {
            menu.addSeparator();
            continue;
        }
        const QString caption = entry.text == Text::None ? QStringLiteral("Kalvenor") : texts[entry.text];
        QAction* action = menu.addAction(Icons::Icon(entry.picture), caption);
        action->setObjectName(QLatin1String(entry.name));
        action->setData(static_cast<int>(entry.command));
        action->setShortcut(QKeySequence(QLatin1String(entry.shortcut)));
        QObject::connect(action, &QAction::triggered, &menu, [run, command = entry.command] { run(command); });
    }
}
