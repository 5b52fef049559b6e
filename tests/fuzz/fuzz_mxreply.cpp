// Whatever a name server, or somebody in its name, sends: reading it ends, stays inside of the packet, and gives
// nothing but sorted names that may go into a log and a command.
#include "Require.h"
#include "modMXQuery.h"

#include <algorithm>

namespace {

constexpr qsizetype longestText = 253; // 255 bytes on the wire

bool isHost(const QString& host) {
    return !host.isEmpty() && host.size() <= longestText &&
           std::all_of(host.begin(), host.end(), [](QChar c) { return c > u' ' && c <= u'~'; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QByteArray query = modMXQuery::BuildQuery(QStringLiteral("example.org")).value();
    // Not a copy, which would have a byte to spare: reading too far must be seen.
    const QByteArray packet = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto reply = modMXQuery::ParseReply(packet, query);
    if (!reply)
        return 0;
    const auto& hosts = reply->hosts;
    Require(hosts.size() <= reply->answers);
    Require(std::all_of(hosts.begin(), hosts.end(), [](const auto& each) { return isHost(each.host); }));
    Require(std::is_sorted(hosts.begin(), hosts.end(),
                           [](const auto& left, const auto& right) { return left.preference < right.preference; }));
    return 0;
}
