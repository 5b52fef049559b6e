#include "modDialogParent.h"

#include <QApplication>
#include <QWidget>

QWidget* modDialogParent::Choose(QWidget* window) {
    if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr)
        return modal;
    return window != nullptr && window->isVisible() && !window->isMinimized() ? window : nullptr;
}
