// Whatever a server sends, in whatever pieces: the same replies come out, within bounds.
#include "MailWire.h"
#include "Require.h"

#include <cstdint>

namespace {

QByteArray replies(const QByteArray& bytes, qsizetype piece) {
    ReplyReader reader;
    QByteArray all;
    for (qsizetype at = 0; at < bytes.size(); at += piece) {
        reader.Feed(bytes.mid(at, piece));
        while (const auto reply = reader.Next()) {
            Require(reply->code.size() <= 3 && reply->text.size() <= 2 * ReplyReader::LongestReply);
            all.append(reply->code).append(reply->text).append('\0');
        }
    }
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1));
    Require(replies(bytes, data[0] + 1) == replies(bytes, bytes.size() + 1));
    return 0;
}
