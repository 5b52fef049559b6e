// Asks the first name server for the preferred mail host of a domain, without blocking the event loop. Owns the socket
// and the timer of one lookup at a time; every failure arrives as Failed().
#pragma once

#include <QHostAddress>
#include <QObject>
#include <QTimer>
#include <QUdpSocket>
#include <chrono>

class NameService;

class MailHostLookup final : public QObject {
    Q_OBJECT
  public:
    /// `timeout` counts from each query sent; `names` must outlive the lookup.
    explicit MailHostLookup(const NameService& names, std::chrono::milliseconds timeout = std::chrono::seconds(5));

    /// Starts a lookup; an empty domain means the local one. One of the signals follows, never during this call. A
    /// lookup still under way is dropped without a signal.
    void Begin(const QString& domain);

    /// Drops the lookup, if any, without a signal.
    void Cancel();

  Q_SIGNALS:
    /// The host with the lowest preference; empty when the domain has none.
    void Found(const QString& host);
    void Failed(const QString& text);

  private:
    void ask();
    void onReadyRead();
    void readReplies();
    void takeReply(const QByteArray& packet);
    [[nodiscard]] bool shortenDomain();
    void finish(void (MailHostLookup::*outcome)(const QString&), const QString& text);

    const NameService& m_names;
    QUdpSocket m_socket;
    QTimer m_timeout;
    QHostAddress m_server;
    quint16 m_port = 0;
    QString m_localDomain;
    QString m_domain;
    QByteArray m_query;
    quint64 m_lookup = 0; ///< counts the lookups, to recognise an outcome queued for an earlier one
};
