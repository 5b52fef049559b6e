// Looks up the addresses of a host without holding anybody up: neither the event loop nor the end of the program waits
// for a name server that stays silent. One look-up at a time; a failure is an empty list.
#pragma once

#include <QObject>
#include <QStringList>
#include <memory>

class HostAddresses final : public QObject {
    Q_OBJECT
  public:
    HostAddresses();
    ~HostAddresses() override;

    /// Found follows, from the event loop. A look-up still under way is dropped and stays silent.
    void Begin(const QByteArray& host);
    void Cancel();

  Q_SIGNALS:
    /// In numbers, in the order in which they are to be tried.
    void Found(const QStringList& addresses);

  private:
    struct LookUp;
    std::shared_ptr<LookUp> m_present;
};
