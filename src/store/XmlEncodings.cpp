#include "XmlEncodings.h"

#include <algorithm>
#include <array>
#include <libxml/encoding.h>
#include <mutex>

namespace {

using Byte = unsigned char;

/// What 0x80 to 0x9F stand for (WHATWG Encoding Standard); every other byte is the character of the same number.
constexpr Byte firstOwn = 0x80;
constexpr std::array<unsigned, 32> own{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                       0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The interface of libxml2: how much was taken and made goes back in the lengths.
int toUtf8(Byte* out, int* outLength, const Byte* in, int* inLength) {
    constexpr int longest = 3;
    int taken = 0;
    int made = 0;
    const auto put = [&](unsigned bits) { out[made++] = static_cast<Byte>(bits); };
    for (; in != nullptr && taken < *inLength && made + longest <= *outLength; ++taken) {
        const Byte byte = in[taken];
        const bool isOwn = byte >= firstOwn && byte < firstOwn + own.size();
        const unsigned character = isOwn ? own.at(byte - firstOwn) : byte;
        if (character < 0x80) {
            put(character);
        } else if (character < 0x800) {
            put(0xC0 | (character >> 6));
            put(0x80 | (character & 0x3F));
        } else {
            put(0xE0 | (character >> 12));
            put(0x80 | ((character >> 6) & 0x3F));
            put(0x80 | (character & 0x3F));
        }
    }
    *inLength = taken;
    *outLength = made;
    return made;
}

/// The byte for a character; -1 when there is none.
int byteOf(unsigned character) {
    if (character < firstOwn || (character >= firstOwn + own.size() && character <= 0xFF))
        return static_cast<int>(character);
    const auto* const found = std::find(own.begin(), own.end(), character);
    return found == own.end() ? -1 : static_cast<int>(firstOwn + (found - own.begin()));
}

/// -2 at a character that has no byte: libxml2 writes a reference for it. The text is valid UTF-8.
int fromUtf8(Byte* out, int* outLength, const Byte* in, int* inLength) {
    int taken = 0;
    int made = 0;
    int result = 0;
    while (in != nullptr && taken < *inLength && made < *outLength) {
        const Byte lead = in[taken];
        const int length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        if (taken + length > *inLength)
            break; // the rest comes with the next call
        unsigned character = length == 1 ? lead : lead & (0x7FU >> length);
        for (int at = 1; at < length; ++at)
            character = (character << 6) | (in[taken + at] & 0x3F);
        const int byte = byteOf(character);
        if (byte < 0) {
            result = -2;
            break;
        }
        out[made++] = static_cast<Byte>(byte);
        taken += length;
    }
    *inLength = taken;
    *outLength = made;
    return result < 0 ? result : made;
}

} // namespace

void XmlEncodings::Register() {
    static std::once_flag once;
    std::call_once(once, [] {
        constexpr auto* name = "windows-1252";
        xmlCharEncodingHandler* const known = xmlFindCharEncodingHandler(name);
        if (known == nullptr)
            xmlNewCharEncodingHandler(name, toUtf8, fromUtf8); // owned by the library
        else
            xmlCharEncCloseFunc(known);
    });
}
