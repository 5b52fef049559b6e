// One line of a menu as a table holds it, and the making of menus from such tables. A line without a name separates.
#pragma once

#include "Command.h"
#include "Icons.h"
#include "Text.h"
#include <QAction>
#include <functional>
#include <span>

class QMenu;
class StringTable;

struct MenuEntry {
    const char* name = nullptr;
    Text text = Text::None; ///< None: the caption is the product's name
    Command command = Command::Exit;
    Icons::Picture picture = Icons::Picture::None;
    const char* shortcut = "";
};

/// Adds the lines; each hands its command to `run`, within the life of `menu`, and holds its number as its data.
void FillMenu(QMenu& menu, std::span<const MenuEntry> entries, const StringTable& texts,
              const std::function<void(Command)>& run);
