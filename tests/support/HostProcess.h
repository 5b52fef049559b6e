// A program of the machine that the tests run on, for tests under an emulator too; what it writes can be read here. It
// is host.py that starts it, and ends it with this object. Without host.py the test ends.
#pragma once

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpSocket>

class HostProcess final : public QTcpSocket {
  public:
    void Start(const QStringList& words) {
        abort();
        connectToHost(QHostAddress(QHostAddress::LocalHost), qEnvironmentVariable("KALVENOR_HOST").toUShort());
        if (!waitForConnected())
            qFatal("start this test with ctest, or by: tests/support/host.py NAME");
        write(QJsonDocument(QJsonArray::fromStringList(words)).toJson(QJsonDocument::Compact) + '\n');
        flush();
    }
    /// The next line; empty when there is none.
    QByteArray Line() {
        while (!canReadLine() && waitForReadyRead()) {
        }
        return readLine();
    }
    /// Everything, up to its end.
    QByteArray All() {
        while (waitForReadyRead()) {
        }
        return readAll();
    }
};
