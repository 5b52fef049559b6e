#include "XmlTagLengths.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <string_view>

namespace {

using namespace std::string_view_literals;

bool startsWithAny(std::string_view bytes, const auto& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(), [bytes](std::string_view p) { return bytes.starts_with(p); });
}

constexpr std::array littleEndian16 = {"\xFF\xFE"sv, "<\0?\0"sv, "<\0!\0"sv};
constexpr std::array bigEndian16 = {"\xFE\xFF"sv, "\0<\0?"sv, "\0<\0!"sv};
constexpr std::array notScannable = {"\0\0\0<"sv, "<\0\0\0"sv,         "\0\0<\0"sv,        "\0<\0\0"sv,
                                     "\x4C\x6F\xA7\x94"sv, "\xFF\xFE\0\0"sv, "\0\0\xFE\xFF"sv};

/// Behind the end mark, or at the end of the markup.
size_t skipPast(std::string_view markup, std::string_view mark, size_t from) {
    const size_t found = markup.find(mark, from);
    return found == std::string_view::npos ? markup.size() : found + mark.size();
}

/// Length of the tag that starts here, quotes respected; more than `limit` when it is not closed by then.
size_t tagLength(std::string_view tag, size_t limit) {
    char quote = '\0';
    for (size_t at = 1; at < tag.size() && at <= limit; ++at) {
        const char c = tag[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
    }
    return limit + 1;
}

bool tagsAreWithin(std::string_view markup, size_t limit) {
    for (size_t at = markup.find('<'); at < markup.size(); at = markup.find('<', at)) {
        const std::string_view rest = markup.substr(at);
        if (rest.starts_with("<!--"))
            at = skipPast(markup, "-->", at + 4);
        else if (rest.starts_with("<![CDATA["))
            at = skipPast(markup, "]]>", at + 9);
        else if (rest.starts_with("<?"))
            at = skipPast(markup, "?>", at + 2);
        else if (rest.starts_with("<!"))
            return true; // a DOCTYPE: the parser goes no further than this
        else if (const size_t length = tagLength(rest, limit); length <= limit)
            at += length;
        else
            return rest.size() <= limit; // merely cut off: the parser says so
    }
    return true;
}

} // namespace

bool XmlTagLengths::AreWithin(const QByteArray& markup, qsizetype limit) {
    const std::string_view bytes(markup.constData(), static_cast<size_t>(markup.size()));
    const auto most = static_cast<size_t>(limit);
    if (startsWithAny(bytes, notScannable))
        return false;
    const bool isLittle = startsWithAny(bytes, littleEndian16);
    if (!isLittle && !startsWithAny(bytes, bigEndian16))
        return tagsAreWithin(bytes, most);
    QStringDecoder decoder(isLittle ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
    const QString text = decoder(markup);
    const QByteArray utf8 = text.toUtf8();
    return tagsAreWithin({utf8.constData(), static_cast<size_t>(utf8.size())}, most);
}
