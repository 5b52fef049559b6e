#include "HttpFetch.h"

#include <utility>

namespace {

constexpr int maxRedirects = 5;

QNetworkRequest requestFor(const QUrl& address, const QString& agent) {
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::UserAgentHeader, agent);
    request.setRawHeader("Accept-Encoding", "identity"); // the limit applies to the bytes received
    request.setRawHeader("Cache-Control", "no-cache");
    request.setRawHeader("Pragma", "no-cache");
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(maxRedirects);
    return request;
}

bool isWeb(const QUrl& address) {
    return address.isValid() &&
           (address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https"));
}

} // namespace

HttpFetch::HttpFetch(std::chrono::milliseconds timeout) {
    m_timeout.setSingleShot(true);
    m_timeout.setInterval(timeout);
    connect(&m_timeout, &QTimer::timeout, this, [this] { finish(std::nullopt); });
}

HttpFetch::~HttpFetch() {
    drop();
}

void HttpFetch::Begin(const QUrl& address, const QString& agent, Outcome outcome) {
    drop();
    m_outcome = std::move(outcome);
    m_timeout.start();
    // Other schemes (file:, data:) would be answered from this computer.
    m_reply = m_network.get(requestFor(isWeb(address) ? address : QUrl(), agent));
    m_reply->setReadBufferSize(MaxBytes + 1);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpFetch::read);
    connect(m_reply, &QNetworkReply::finished, this, &HttpFetch::onFinished, Qt::QueuedConnection);
}

void HttpFetch::read() {
    m_body += m_reply->read(MaxBytes + 1);
    if (m_body.size() > MaxBytes)
        finish(std::nullopt);
}

void HttpFetch::onFinished() {
    if (m_reply == nullptr || sender() != m_reply)
        return;
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    constexpr int statusFine = 200;
    if (m_reply->error() != QNetworkReply::NoError || status != statusFine) {
        finish(std::nullopt);
        return;
    }
    read();
    if (m_reply != nullptr)
        finish(QByteArray(m_body));
}

void HttpFetch::drop() {
    m_timeout.stop();
    m_body.clear();
    if (m_reply == nullptr)
        return;
    QNetworkReply* const reply = std::exchange(m_reply, nullptr);
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
}

void HttpFetch::finish(const std::optional<QByteArray>& body) {
    drop();
    if (const Outcome outcome = std::exchange(m_outcome, nullptr))
        outcome(body);
}
