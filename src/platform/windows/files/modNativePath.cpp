#include "modNativePath.h"

#include <system_error>

/// Half of a pair of surrogates, which no text can hold, appears as \uNNNN.
QString modNativePath::ToText(const std::filesystem::path& path) {
    const QString text = QString::fromStdWString(path.native());
    QString shown;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar unit = text[at];
        const bool isPair = unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (isPair)
            shown += text[at++];
        if (!isPair && unit.isSurrogate())
            shown += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
        else
            shown += text[at];
    }
    return shown;
}

std::filesystem::path modNativePath::FromText(const QString& text) {
    return {text.toStdWString()};
}

/// An absolute path stays as it is: the system would cut off dots and blanks at the end of names.
std::filesystem::path modNativePath::Absolute(const QString& text) {
    if (text.trimmed().isEmpty())
        return {};
    std::error_code error;
    std::filesystem::path path = FromText(text);
    if (!path.is_absolute())
        path = std::filesystem::absolute(path, error);
    if (error)
        return {};
    path.make_preferred();
    const bool endsWithSlash = !path.has_filename() && path.has_relative_path();
    return endsWithSlash ? path.parent_path() : path;
}
