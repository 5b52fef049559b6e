// Acts as the user in a modal dialog that the code under test is about to open.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

/// Does something to the form as soon as it is open, then cancels it unless it has ended.
template <typename Form, typename Act>
void WhenOpen(Act act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* form = qobject_cast<Form*>(QApplication::activeModalWidget());
        if (form == nullptr)
            qFatal("the form is not open");
        act(*form);
        if (form->isVisible())
            form->reject();
    });
}

/// The control of this name; the test ends when there is none.
template <typename Control>
Control& Find(const QWidget& form, const char* name) {
    auto* control = form.findChild<Control*>(QLatin1String(name));
    if (control == nullptr)
        qFatal("no control %s", name);
    return *control;
}
