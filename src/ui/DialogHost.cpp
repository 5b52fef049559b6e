#include "DialogHost.h"

#include "modDialogParent.h"
#include <QDialog>

QWidget* DialogHost::Parent() const {
    return modDialogParent::Choose(m_window);
}

bool DialogHost::RaiseOpen() const {
    if (m_open.empty())
        return false;
    m_open.back()->raise();
    m_open.back()->activateWindow();
    return true;
}

int DialogHost::Run(QDialog& dialog) {
    if (!m_waiting)
        return QDialog::Rejected;
    m_open.push_back(&dialog);
    const int result = dialog.exec();
    std::erase(m_open, &dialog);
    return result;
}

void DialogHost::StopWaiting() {
    m_waiting = false;
    const std::vector<QDialog*> open(m_open.rbegin(), m_open.rend());
    for (QDialog* dialog : open)
        dialog->reject();
}
