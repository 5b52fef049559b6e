#include "ActivityMail.h"
#include "ActivityLogs.h"
#include "DesktopMailClient.h"
#include "RunState.h"
#include "StringTable.h"

#include <QTimer>
#include <algorithm>

namespace {
constexpr std::ptrdiff_t mostSessions = 2;  // to one server
constexpr std::ptrdiff_t mostWaiting = 100; // of one activity

/// One spelling per server.
QString serverOf(const QString& host) {
    QString name = host.toLower();
    if (name.startsWith(u'[') && name.endsWith(u']'))
        name = name.mid(1, name.size() - 2);
    return name.endsWith(u'.') ? name.chopped(1) : name;
}

QString placeOf(const MailOrder& order) {
    if (!order.smtpHost.isEmpty())
        return serverOf(order.smtpHost);
    const QString first = order.recipient.section(u';', 0, 0, QString::SectionSkipEmpty);
    return u'@' + serverOf(first.section(u'@', 1).trimmed());
}
} // namespace

ActivityMail::ActivityMail(const Parts& parts) : m_parts(parts) {}

ActivityMail::~ActivityMail() = default;

int ActivityMail::SendActivityMail(const QString& name, const QString& firstPath, const QString& secondPath,
                                   const QHash<QString, QString>& variables) {
    MailOrder order = MailOrder::Read(m_parts.file, m_parts.texts, name, firstPath, secondPath, variables);
    if (order.useDesktopClient) {
        sendByDesktop(order);
        return 1;
    }
    m_parts.runState.MailBegan();
    if (m_givenUp) {
        drop(order, m_parts.texts[Text::MailNotSentClosing]);
        return 1;
    }
    makeRoomFor(name);
    m_waiting.push_back(std::move(order));
    startWaiting();
    return 1;
}

void ActivityMail::sendByDesktop(const MailOrder& order) {
    DesktopMail mail{.to = order.recipient,
                     .from = order.sender,
                     .cc = order.copies,
                     .subject = order.subject,
                     .body = order.detailsWanted ? order.longText : order.text,
                     .attachments = {}};
    if (order.attachLogFile)
        mail.attachments.append(order.logFile);
    if (order.attachLastFile)
        mail.attachments.append(order.lastFile);
    m_parts.desktop.Send(mail);
}

/// A server that is down for days must not fill the memory. The oldest mails go first: the newest tell more.
void ActivityMail::makeRoomFor(const QString& name) {
    const auto isOfIt = [&name](const MailOrder& order) { return order.name == name; };
    if (std::count_if(m_waiting.begin(), m_waiting.end(), isOfIt) < mostWaiting)
        return;
    const auto oldest = std::find_if(m_waiting.begin(), m_waiting.end(), isOfIt);
    drop(*oldest, m_parts.texts[Text::MailDropped].arg(mostWaiting));
    m_waiting.erase(oldest);
}

void ActivityMail::startWaiting() {
    for (Session& session : m_sessions)
        if (session.isHeld && isFree(session.server)) {
            session.isHeld = false;
            session.dispatch->Resume();
        }
    for (std::size_t i = 0; i < m_waiting.size();) {
        const QString place = placeOf(m_waiting[i]);
        if (!isFree(place)) {
            ++i;
            continue;
        }
        MailOrder order = std::move(m_waiting[i]);
        m_waiting.erase(m_waiting.begin() + static_cast<std::ptrdiff_t>(i));
        begin(std::move(order), place);
    }
}

bool ActivityMail::isFree(const QString& placeOrServer) const {
    return std::count_if(m_sessions.begin(), m_sessions.end(), [&placeOrServer](const Session& session) {
               return session.place == placeOrServer || (!session.isHeld && session.server == placeOrServer);
           }) < mostSessions;
}

void ActivityMail::begin(MailOrder order, const QString& place) {
    Session& session = m_sessions.emplace_back();
    session.place = place;
    session.dispatch = std::make_unique<MailDispatch>(std::move(order), m_parts.mail);
    MailDispatch* const dispatch = session.dispatch.get();
    connect(dispatch, &MailDispatch::NotAttached, this, [this, dispatch](const QString& path, const QString& reason) {
        writeLine(dispatch->Order(), m_parts.texts[Text::MailNotAttached].arg(path, reason));
    });
    connect(dispatch, &MailDispatch::Ended, this,
            [this, dispatch](const QString& failure) { ended(dispatch, failure); });
    dispatch->Begin([this, dispatch](const QString& host) { return mayOpen(dispatch, host); });
}

/// Several domains may have the same server, which only the lookup tells.
bool ActivityMail::mayOpen(const MailDispatch* dispatch, const QString& host) {
    const auto session = std::find_if(m_sessions.begin(), m_sessions.end(),
                                      [dispatch](const Session& one) { return one.dispatch.get() == dispatch; });
    const QString server = serverOf(host);
    if (session->place == server || session->server == server)
        return true; // already counted
    session->isHeld = !isFree(server);
    session->server = server;
    return !session->isHeld;
}

void ActivityMail::ended(const MailDispatch* dispatch, const QString& failure) {
    const auto session = std::find_if(m_sessions.begin(), m_sessions.end(),
                                      [dispatch](const Session& one) { return one.dispatch.get() == dispatch; });
    if (!failure.isEmpty())
        writeLine(dispatch->Order(), failure);
    session->dispatch.release()->deleteLater(); // its signal is still on the stack
    m_sessions.erase(session);
    m_parts.runState.MailEnded();
    startWaiting();
}

/// Another record may have the activity's name by now, so the order's log is used, not the record's.
void ActivityMail::writeLine(const MailOrder& order, const QString& text) {
    m_parts.logs.WriteActionLineTo(order.logFile, order.name,
                                   m_parts.texts[Text::MailSendTo] + order.recipient + u"' - " + text);
}

void ActivityMail::drop(const MailOrder& order, const QString& reason) {
    writeLine(order, reason);
    m_parts.runState.MailEnded();
}

void ActivityMail::GiveUpAfter(std::chrono::milliseconds grace) {
    QTimer::singleShot(grace, this, &ActivityMail::giveUp);
}

void ActivityMail::giveUp() {
    m_givenUp = true;
    for (const MailOrder& order : std::exchange(m_waiting, {}))
        drop(order, m_parts.texts[Text::MailNotSentClosing]);
    for (const Session& session : m_sessions)
        session.dispatch->Shutdown();
}
