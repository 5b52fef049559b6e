#include "modMXQuery.h"
#include "modMailEncoding.h"

#include <QByteArrayList>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <tuple>

namespace {

constexpr quint16 identifier = 4575;
constexpr quint16 recursionDesired = 0x0100;
constexpr quint16 responseBit = 0x8000;
constexpr quint16 typeMX = 15;
constexpr quint16 classInternet = 1;
constexpr qsizetype headerLength = 12;
constexpr qsizetype longestLabel = 63;
constexpr qsizetype longestName = 255; // with a length byte before each label and the zero at the end

void append16(QByteArray& packet, quint16 value) {
    packet.append(static_cast<char>(value >> 8U)).append(static_cast<char>(value & 0xFFU));
}

// No blank or control character, which would reach logs and commands, and no dot inside a label.
bool isHostCharacter(char character) {
    return character > ' ' && character <= '~' && character != '.';
}

struct Name {
    QByteArray text;
    bool isHost = true;
};

// Reads a packet from front to back. The first attempt to read beyond the end makes it fail for good.
class Reader final {
  public:
    Reader(QByteArrayView packet, qsizetype position) : m_packet(packet), m_position(position) {}

    [[nodiscard]] bool Failed() const { return m_failed; }
    [[nodiscard]] qsizetype Position() const { return m_position; }

    void Skip(qsizetype bytes) {
        if (m_failed || bytes > m_packet.size() - m_position)
            m_failed = true;
        else
            m_position += bytes;
    }
    [[nodiscard]] quint16 Read16() {
        const qsizetype at = m_position;
        Skip(2);
        return m_failed ? quint16{0} : qFromBigEndian<quint16>(m_packet.data() + at);
    }
    [[nodiscard]] Name ReadName();

  private:
    [[nodiscard]] quint8 read8() {
        const qsizetype at = m_position;
        Skip(1);
        return m_failed ? quint8{0} : static_cast<quint8>(m_packet[at]);
    }

    QByteArrayView m_packet;
    qsizetype m_position;
    bool m_failed = false;
};

// Each pointer must lead to before the piece it ends. So the pieces move towards the start, and there is no circle.
Name Reader::ReadName() {
    Name name;
    std::optional<qsizetype> end; // of the name in the record, if a pointer led away
    qsizetype pieceStart = m_position;
    while (true) {
        const quint8 length = read8();
        if (m_failed || length == 0)
            break;
        if (length > longestLabel) {
            const qsizetype target = (length & 0x3FU) << 8U | read8();
            end = end.value_or(m_position);
            m_failed = m_failed || (length & 0xC0U) != 0xC0U || target >= pieceStart || target < headerLength;
            if (m_failed)
                break;
            pieceStart = m_position = target;
            continue;
        }
        const qsizetype labelStart = m_position;
        Skip(length);
        m_failed = m_failed || name.text.size() + length + 2 > longestName;
        if (m_failed)
            break;
        const QByteArrayView label = m_packet.sliced(labelStart, length);
        name.isHost = name.isHost && std::all_of(label.begin(), label.end(), isHostCharacter);
        if (!name.text.isEmpty())
            name.text.append('.');
        name.text.append(label);
    }
    if (!m_failed)
        m_position = end.value_or(m_position);
    return name;
}

bool isReplyTo(QByteArrayView packet, QByteArrayView query, qsizetype& endOfQuestion) {
    Reader asked(query, headerLength);
    const Name askedName = asked.ReadName();
    Reader header(packet, 0);
    const bool answersIt = header.Read16() == identifier && (header.Read16() & responseBit) != 0;
    const bool oneQuestion = header.Read16() == 1;
    if (header.Failed() || !answersIt || !oneQuestion || packet.size() < headerLength)
        return false;
    Reader question(packet, headerLength);
    const Name name = question.ReadName();
    const bool same = name.text.compare(askedName.text, Qt::CaseInsensitive) == 0;
    const bool sameKind = question.Read16() == typeMX && question.Read16() == classInternet;
    endOfQuestion = question.Position();
    return !question.Failed() && same && sameKind;
}

// False when the record is broken; nothing after it can be read then.
bool readAnswer(Reader& reader, QByteArrayView packet, std::vector<modMXQuery::MailHost>& hosts) {
    std::ignore = reader.ReadName();
    const quint16 type = reader.Read16();
    constexpr qsizetype classAndTimeToLive = 6;
    reader.Skip(classAndTimeToLive);
    const quint16 length = reader.Read16();
    const qsizetype dataStart = reader.Position();
    reader.Skip(length);
    if (reader.Failed())
        return false;
    if (type != typeMX)
        return true;
    Reader data(packet.first(reader.Position()), dataStart);
    const quint16 preference = data.Read16();
    const Name exchange = data.ReadName();
    if (data.Failed())
        return false;
    if (exchange.isHost && !exchange.text.isEmpty())
        hosts.push_back({QString::fromLatin1(exchange.text), preference});
    return true;
}

} // namespace

std::optional<QByteArray> modMXQuery::BuildQuery(const QString& domain) {
    const QByteArray name = modMailEncoding::DomainToAscii(domain);
    if (name.size() + 2 > longestName)
        return std::nullopt;

    QByteArray query;
    append16(query, identifier);
    append16(query, recursionDesired);
    constexpr std::array<quint16, 4> counts{1, 0, 0, 0}; // questions, answers, authorities, additional records
    for (const quint16 count : counts)
        append16(query, count);
    for (const QByteArray& label : name.split('.')) {
        if (label.isEmpty() || label.size() > longestLabel || !std::all_of(label.begin(), label.end(), isHostCharacter))
            return std::nullopt;
        query.append(static_cast<char>(label.size())).append(label);
    }
    query.append('\0');
    append16(query, typeMX);
    append16(query, classInternet);
    return query;
}

std::optional<modMXQuery::Reply> modMXQuery::ParseReply(const QByteArray& packet, const QByteArray& query) {
    qsizetype endOfQuestion = 0;
    if (!isReplyTo(packet, query, endOfQuestion))
        return std::nullopt;
    Reply reply;
    constexpr qsizetype answerCount = 6;
    reply.answers = Reader(packet, answerCount).Read16();
    Reader reader(packet, endOfQuestion);
    for (quint16 read = 0; read < reply.answers && readAnswer(reader, packet, reply.hosts); ++read) {
    }
    std::stable_sort(reply.hosts.begin(), reply.hosts.end(),
                     [](const MailHost& left, const MailHost& right) { return left.preference < right.preference; });
    return reply;
}
