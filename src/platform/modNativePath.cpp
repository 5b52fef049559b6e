#include "modNativePath.h"

#include <algorithm>
#include <system_error>

namespace {

constexpr char16_t replacementCharacter = 0xFFFD;

/// Length of the valid UTF-8 sequence that starts here; 0 when the byte starts none.
qsizetype sequenceLength(const QByteArray& bytes, qsizetype at) {
    for (qsizetype length = 1; length <= 4 && at + length <= bytes.size(); ++length) {
        const QByteArray slice = bytes.mid(at, length);
        const QString text = QString::fromUtf8(slice);
        if (!text.contains(QChar(replacementCharacter)) || slice == "\xEF\xBF\xBD")
            return length;
    }
    return 0;
}

} // namespace

QString modNativePath::ToText(const std::filesystem::path& path) {
    const std::string native = path.string();
    const QByteArray bytes = QByteArray::fromRawData(native.data(), static_cast<qsizetype>(native.size()));
    QString text = QString::fromUtf8(bytes);
    if (!text.contains(QChar(replacementCharacter)))
        return text;
    QString escaped;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype length = sequenceLength(bytes, at);
        if (length > 0)
            escaped += QString::fromUtf8(bytes.mid(at, length));
        else
            escaped += QStringLiteral("\\x%1").arg(static_cast<uchar>(bytes[at]), 2, 16, QLatin1Char('0'));
        at += std::max<qsizetype>(length, 1);
    }
    return escaped;
}

std::filesystem::path modNativePath::FromText(const QString& text) {
    return {text.toUtf8().toStdString()};
}

std::filesystem::path modNativePath::Absolute(const QString& text) {
    if (text.trimmed().isEmpty())
        return {};
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(FromText(text), error);
    if (error)
        return {};
    const bool endsWithSlash = !absolute.has_filename() && absolute.has_relative_path();
    return endsWithSlash ? absolute.parent_path() : absolute;
}
