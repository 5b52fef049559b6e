#include "MailSessionRow.h"

#include <array>

const MailSession::Row& MailSession::rowOf(State state) {
    using S = State;
    using A = Awaited;
    using P = Patience;
    using M = MailSession;
    static constexpr std::array<Row, 21> rows{{
        /* Closed */ {"", "", nullptr, A::Nothing, P::None, "", S::Closed},
        /* PopConnecting */ {"", "", &M::openPop, A::Connection, P::Connect, "", S::PopGreeting},
        /* PopGreeting */ {"", "", nullptr, A::PopOk, P::Connect, "", S::PopUser},
        /* PopUser */ {"", "", &M::sendUser, A::PopOk, P::Connect, "", S::PopPassword},
        /* PopPassword */ {"", "", &M::sendPassword, A::PopOk, P::Connect, "", S::PopQuit},
        /* PopQuit */ {"", "QUIT", nullptr, A::PopOk, P::Connect, "POP3 Authentication Successful...", S::Connecting},
        /* Connecting */ {"", "", &M::openSmtp, A::Connection, P::Connect, "", S::Greeting},
        /* Greeting */ {"", "", nullptr, A::Greeting, P::Connect, "", S::Hello},
        /* Hello */
        {"Initializing Communications...", "", &M::sendHello, A::Accepted, P::Connect, "", S::LoginOffer},
        /* Offers */ {"", "", &M::lookAtOffers, A::Nothing, P::Connect, "", S::Ready},
        /* StartTls */
        {"Encrypting Communications...", "STARTTLS", nullptr, A::Greeting, P::Connect, "", S::Encrypting},
        /* Encrypting */ {"", "", &M::startEncryption, A::Encryption, P::Connect, "", S::Hello},
        /* LoginOffer */ {"", "", nullptr, A::LoginOffer, P::Login, "", S::Login},
        /* Login */
        {"Sending Login Authentication...", "AUTH Login", nullptr, A::LoggedIn, P::Login, "Host Login OK!", S::Ready},
        /* PlainLogin */
        {"Sending Login Authentication...", "", &M::sendPlainLogin, A::LoggedIn, P::Login, "Host Login OK!", S::Ready},
        /* Ready */ {"", "", nullptr, A::Nothing, P::None, "", S::Ready},
        /* Sender */
        {"Sending Sender Information...", "", &M::sendSender, A::Accepted, P::Message, "", S::Recipient},
        /* Recipient */
        {"Sending Recipient Information...", "", &M::sendRecipient, A::Accepted, P::Message, "", S::Data},
        /* Data */ {"Sending Message...", "DATA", nullptr, A::GoAhead, P::Message, "", S::Content},
        /* Content */ {"", "", &M::sendContent, A::Nothing, P::Message, "", S::Delivery},
        /* Delivery */ {"", "", nullptr, A::Accepted, P::Message, "Transmission Complete...", S::Ready},
    }};
    static_assert(rows.size() == static_cast<std::size_t>(State::Delivery) + 1);
    return rows.at(static_cast<std::size_t>(state));
}
