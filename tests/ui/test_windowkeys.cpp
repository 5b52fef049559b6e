// The abort key as the program's own windows see it.
#include "DesktopKeyState.h"
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QtTest>

class TestWindowKeys : public QObject {
    Q_OBJECT

    static void send(QWidget& window, QEvent::Type type, Qt::Key key, bool repeat = false) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
        QCoreApplication::sendEvent(&window, &event);
    }

  private Q_SLOTS:
    void followsTheKey() {
        const auto keys = MakeDesktopKeyState(*qApp);
        QWidget window;
        send(window, QEvent::KeyPress, Qt::Key_F7);
        QVERIFY(!keys->IsF8Down());
        send(window, QEvent::KeyPress, Qt::Key_F8);
        send(window, QEvent::KeyRelease, Qt::Key_F8, true); // auto-repeat of a key that is still held
        QVERIFY(keys->IsF8Down());
        send(window, QEvent::KeyRelease, Qt::Key_F8);
        QVERIFY(!keys->IsF8Down());
        send(window, QEvent::KeyPress, Qt::Key_F8);
        QEvent change(QEvent::ApplicationStateChange); // the focus goes elsewhere
        QCoreApplication::sendEvent(qApp, &change);
        QVERIFY(!keys->IsF8Down());
    }
};

QTEST_MAIN(TestWindowKeys)
#include "test_windowkeys.moc"
