// Fetches a small file over HTTP, fresh and without cookies, without holding up the event loop. Owns the connection of
// one fetch at a time. A redirection is followed to the same scheme or from http to https, never back.
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
    static constexpr qint64 MostBytes = 64 << 10;

    /// The body of an answer with status 200; nullopt for everything else: no such answer, one larger than MostBytes,
    /// or none within the time.
    using Outcome = std::function<void(const std::optional<QByteArray>& body)>;

    /// `timeout` is for one fetch as a whole.
    explicit HttpFetch(std::chrono::milliseconds timeout = std::chrono::seconds(15));
    ~HttpFetch() override;

    /// One under way is dropped and stays silent. The outcome never comes from inside of this call.
    void Begin(const QUrl& address, const QString& agent, Outcome outcome);

  private:
    void read();
    void onFinished();
    void drop();
    void finish(const std::optional<QByteArray>& body);

    QNetworkAccessManager m_network;
    QTimer m_timeout;
    QNetworkReply* m_reply = nullptr; ///< deletes itself when it is let go
    QByteArray m_body;
    Outcome m_outcome;
};
