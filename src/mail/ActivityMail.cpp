#include "ActivityMail.h"
#include "ActivityLogs.h"
#include "DesktopMailClient.h"
#include "RunState.h"
#include "StringTable.h"

#include <QTimer>

ActivityMail::ActivityMail(const Parts& parts) : m_parts(parts) {}

ActivityMail::~ActivityMail() = default;

int ActivityMail::SendActivityMail(const QString& name, const QString& firstPath, const QString& secondPath) {
    MailOrder order = MailOrder::Read(m_parts.file, m_parts.texts, name, firstPath, secondPath);
    if (order.useDesktopClient) {
        sendByDesktop(order);
        return 1;
    }
    Lane& lane = m_lanes[name];
    if (lane.present)
        lane.waiting = std::move(order); // the newest tells more than those it replaces
    else
        begin(lane, std::move(order));
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

void ActivityMail::begin(Lane& lane, MailOrder order) {
    m_parts.runState.MailBegan();
    lane.present = std::make_unique<MailDispatch>(std::move(order), m_parts.settings, m_parts.names, m_parts.clock);
    connect(lane.present.get(), &MailDispatch::Ended, this,
            [this, name = lane.present->Order().name](const QString& failure) { ended(name, failure); });
    lane.present->Begin();
}

void ActivityMail::ended(const QString& name, const QString& failure) {
    Lane& lane = m_lanes[name];
    if (!failure.isEmpty())
        m_parts.logs.WriteActionLine(name,
                                     m_parts.texts.Text(241) + lane.present->Order().recipient + u"' - " + failure);
    lane.present.release()->deleteLater(); // its signal is still on the stack
    m_parts.runState.MailEnded();
    if (std::optional<MailOrder> next = std::exchange(lane.waiting, std::nullopt))
        begin(lane, *std::move(next));
    else
        m_lanes.erase(name);
}

void ActivityMail::GiveUpAfter(std::chrono::milliseconds grace) {
    QTimer::singleShot(grace, this, &ActivityMail::giveUp);
}

void ActivityMail::giveUp() {
    for (auto& [name, lane] : m_lanes) {
        lane.waiting.reset();
        lane.present->Shutdown();
    }
}
