// Which addresses are opened in a browser: absolute http and https ones. A plain function.
#pragma once

#include <QString>
#include <QUrl>
#include <optional>

/// The address as a browser takes it; nullopt for any other text.
[[nodiscard]] inline std::optional<QString> WebAddress(const QString& text) {
    const QUrl page(text, QUrl::StrictMode);
    const bool isWeb = page.scheme() == u"https" || page.scheme() == u"http";
    return page.isValid() && isWeb && !page.host().isEmpty() ? std::optional(page.toString(QUrl::FullyEncoded))
                                                             : std::nullopt;
}
