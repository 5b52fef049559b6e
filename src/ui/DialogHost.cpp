#include "DialogHost.h"

#include <QApplication>
#include <QDialog>
#include <algorithm>

QWidget* DialogHost::ParentFor(QWidget* window) {
    if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr)
        return modal;
    return window != nullptr && window->isVisible() && !window->isMinimized() ? window : nullptr;
}

QWidget* DialogHost::Parent() const {
    return ParentFor(m_window);
}

bool DialogHost::RaiseOpen() const {
    if (m_open.empty())
        return false;
    m_open.back().dialog->raise();
    m_open.back().dialog->activateWindow();
    return true;
}

int DialogHost::Run(QDialog& dialog, const MayEnd& mayEnd) {
    if (!m_waiting)
        return QDialog::Rejected;
    m_open.push_back({&dialog, mayEnd});
    const int result = dialog.exec();
    std::erase_if(m_open, [&](const Open& open) { return open.dialog == &dialog; });
    return result;
}

bool DialogHost::MayAllEnd() const {
    const std::vector<Open> all(m_open.rbegin(), m_open.rend());
    return std::all_of(all.begin(), all.end(), [](const Open& open) { return !open.mayEnd || open.mayEnd(); });
}

void DialogHost::StopWaiting() {
    m_waiting = false;
    const std::vector<Open> all(m_open.rbegin(), m_open.rend());
    for (const Open& open : all)
        open.dialog->done(QDialog::Rejected);
}
