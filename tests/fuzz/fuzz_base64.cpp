// Base64 in both directions: what was encoded reads back, and any text decodes as another decoder does it.
#include "Require.h"
#include "modMailEncoding.h"

#include <QList>
#include <QStringBuilder>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArray code = modMailEncoding::Base64Lines(input);
    Require(modMailEncoding::DecodeBase64String(code) == input);
    Require(QByteArray::fromBase64(QByteArray(code).replace("\r\n", ""), QByteArray::AbortOnBase64DecodingErrors) ==
            input);
    for (const QByteArray& line : QByteArray(code).replace("\r\n", "\n").split('\n'))
        Require(line.size() <= 76 && !line.contains('\r') && (!line.isEmpty() || input.isEmpty()));

    // Whole lines may be encoded one by one.
    const qsizetype cut = modMailEncoding::Base64LineBytes;
    if (input.size() > cut)
        Require(modMailEncoding::Base64Lines(input.left(cut)) + "\r\n" + modMailEncoding::Base64Lines(input.mid(cut)) ==
                code);

    const qsizetype end = input.indexOf('=');
    Require(modMailEncoding::DecodeBase64String(input) == QByteArray::fromBase64(end < 0 ? input : input.left(end)));
    return 0;
}
