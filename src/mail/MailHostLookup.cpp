#include "MailHostLookup.h"
#include "NameService.h"
#include "modMXQuery.h"

#include <QNetworkDatagram>

namespace {

constexpr qsizetype shortestDomain = 5;

QString noServer() {
    return QStringLiteral("No DNS entries found, MX Query cannot contine.");
}
QString noDomain() {
    return QStringLiteral("No Valid Domain Specified");
}
QString notSent() {
    return QStringLiteral("Problem sending MX query");
}
QString notReceived() {
    return QStringLiteral("Problem receiving MX query");
}

} // namespace

MailHostLookup::MailHostLookup(const NameService& names, std::chrono::milliseconds timeout) : m_names(names) {
    m_timeout.setSingleShot(true);
    m_timeout.setInterval(timeout);
    connect(&m_timeout, &QTimer::timeout, this, [this] { finish(&MailHostLookup::Failed, notReceived()); });
    connect(&m_socket, &QUdpSocket::readyRead, this, &MailHostLookup::onReadyRead);
}

void MailHostLookup::Begin(const QString& domain) {
    Cancel();
    const NameServers known = m_names.Discover();
    if (known.servers.empty()) {
        finish(&MailHostLookup::Failed, noServer());
        return;
    }
    m_server = QHostAddress(known.servers.front().address);
    m_port = known.servers.front().port;
    m_localDomain = known.localDomain;
    m_domain = domain.isEmpty() ? m_localDomain : domain;
    ask();
}

void MailHostLookup::Cancel() {
    ++m_lookup;
    m_timeout.stop();
    m_socket.close();
}

void MailHostLookup::ask() {
    const auto query = m_domain.size() < shortestDomain ? std::nullopt : modMXQuery::BuildQuery(m_domain);
    if (!query) {
        finish(&MailHostLookup::Failed, noDomain());
        return;
    }
    m_query = *query;
    // The system picks the port: whoever forges a reply must have seen the query, or be lucky.
    const auto family =
        m_server.protocol() == QAbstractSocket::IPv6Protocol ? QHostAddress::AnyIPv6 : QHostAddress::AnyIPv4;
    const bool bound = m_socket.state() == QAbstractSocket::BoundState || m_socket.bind(family);
    if (!bound || m_server.isNull() || m_socket.writeDatagram(m_query, m_server, m_port) != m_query.size()) {
        finish(&MailHostLookup::Failed, notSent());
        return;
    }
    m_timeout.start();
}

void MailHostLookup::onReadyRead() {
    try {
        readReplies();
    } catch (const std::exception&) { // out of memory; no exception may pass through the event loop
        finish(&MailHostLookup::Failed, notReceived());
    }
}

void MailHostLookup::readReplies() {
    // Bounded, so that a flood of packets cannot starve the timer; the rest raises the next signal.
    constexpr int packetsInOneGo = 64;
    for (int packets = 0; packets < packetsInOneGo && m_timeout.isActive() && m_socket.hasPendingDatagrams();
         ++packets) {
        const QNetworkDatagram datagram = m_socket.receiveDatagram(modMXQuery::MaximumReply);
        const bool fromServer = datagram.senderPort() == m_port &&
                                datagram.senderAddress().isEqual(m_server, QHostAddress::ConvertV4MappedToIPv4);
        if (fromServer)
            takeReply(datagram.data());
    }
}

void MailHostLookup::takeReply(const QByteArray& packet) {
    const auto reply = modMXQuery::ParseReply(packet, m_query);
    if (!reply)
        return; // forged or late: the right one may still arrive
    if (reply->answers == 0 && shortenDomain())
        ask();
    else
        finish(&MailHostLookup::Found, reply->hosts.empty() ? QString() : reply->hosts.front().host);
}

// A machine of the local domain rarely accepts mail itself; its domain may.
bool MailHostLookup::shortenDomain() {
    const qsizetype dot = m_domain.indexOf(u'.');
    const bool insideLocalDomain =
        !m_localDomain.isEmpty() && m_domain.indexOf(m_localDomain, 1, Qt::CaseInsensitive) > 0;
    if (!insideLocalDomain || dot < 0 || m_domain.size() - (dot + 1) < shortestDomain)
        return false;
    m_domain.remove(0, dot + 1);
    return true;
}

// Queued, so that no signal is emitted during Begin(), and that a slot may start the next lookup or delete this object.
void MailHostLookup::finish(void (MailHostLookup::*outcome)(const QString&), const QString& text) {
    Cancel();
    const auto tell = [this, outcome, text, lookup = m_lookup] {
        if (lookup == m_lookup)
            Q_EMIT(this->*outcome)(text);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}
