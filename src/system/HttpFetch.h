// Fetches a small file over HTTP, uncached and without cookies, without blocking the event loop. Owns the connection of
// one fetch at a time. Follows redirects within a scheme and from http to https, never from https to http.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class HttpFetch final : public QObject {
    Q_OBJECT
  public:
    static constexpr qint64 MaxBytes = 64 << 10;

    /// The body of an answer with status 200; nullopt for every failure, including a body above MaxBytes and a timeout.
    using Outcome = std::function<void(const std::optional<QByteArray>& body)>;

    /// `timeout` covers a whole fetch.
    explicit HttpFetch(std::chrono::milliseconds timeout = std::chrono::seconds(15));
    ~HttpFetch() override;

    /// Drops a pending fetch without an outcome. Never calls `outcome` itself.
    void Begin(const QUrl& address, const QString& agent, Outcome outcome);

  private:
    void read();
    void onFinished();
    void drop();
    void finish(const std::optional<QByteArray>& body);

    QNetworkAccessManager m_network;
    QTimer m_timeout;
    QNetworkReply* m_reply = nullptr; ///< deleted later by drop()
    QByteArray m_body;
    Outcome m_outcome;
};
