// Looks up the addresses of a host. Never blocks: neither the event loop nor the end of the program waits for a silent
// name server. One look-up at a time; a failure is an empty list.
#pragma once

#include <QObject>
#include <QStringList>
#include <memory>

class HostAddresses final : public QObject {
    Q_OBJECT
  public:
    HostAddresses();
    ~HostAddresses() override;

    /// Emits Found later, from the event loop. Cancels a pending look-up.
    void Begin(const QByteArray& host);
    void Cancel();

  Q_SIGNALS:
    /// Numeric addresses in the order in which to try them.
    void Found(const QStringList& addresses);

  private:
    struct LookUp;
    std::shared_ptr<LookUp> m_present;
};
