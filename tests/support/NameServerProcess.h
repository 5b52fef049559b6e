// dnsmasq on this machine, with a few mail domains of its own and nobody to ask about others.
#pragma once

#include "HostProcess.h"

#include <QTest>
#include <QUdpSocket>

class NameServerProcess final {
  public:
    /// False when it does not start; the log says why.
    [[nodiscard]] bool Start() {
        for (int attempt = 0; attempt < 5; ++attempt) { // another program may take the port before dnsmasq does
            QUdpSocket probe;
            if (!probe.bind(QHostAddress::LocalHost))
                continue;
            port = probe.localPort();
            probe.close();
            const QString arguments =
                u"--no-daemon --conf-file=/dev/null --port=%1 --listen-address=127.0.0.1 --bind-interfaces --no-resolv "
                "--no-hosts --local=/test/ --host-record=www.example.test,127.0.0.1 "
                "--mx-host=example.test,backup.example.test,20 --mx-host=example.test,mail.example.test,10 "
                "--mx-host=inner.test,mail.inner.test,5 --mx-host=dort.de,localhost,10 --mx-host=fern.de,LocalHost,10"_qs
                    .arg(port);
            m_process.Start(QStringList(u"/usr/sbin/dnsmasq"_qs) + arguments.split(u' '));
            QByteArray output;
            for (QByteArray line = m_process.Line(); !line.isEmpty(); line = m_process.Line()) {
                if (line.contains("started, version"))
                    return true;
                output += line;
            }
            qWarning() << output;
        }
        return false;
    }
    quint16 port = 0;

  private:
    HostProcess m_process;
};
