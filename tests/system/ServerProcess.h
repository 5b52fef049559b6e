// A server of the test's own that runs as a process and prints its port. Ends with its object.
#pragma once

#include <QProcess>

class ServerProcess final {
  public:
    ~ServerProcess() {
        m_process.kill();
        m_process.waitForFinished();
    }
    [[nodiscard]] bool Start(const QString& script) {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(SYSTEM_PYTHON), {QStringLiteral(SERVERS "/") + script});
        while (!m_process.canReadLine() && m_process.waitForReadyRead(20000)) {
        }
        port = m_process.readLine().trimmed().toUShort();
        return port != 0;
    }
    quint16 port = 0;

  private:
    QProcess m_process;
};
