// Reads the date of a once-only activity, in every form in which one may be stored. Free functions, no failure.
#pragma once

#include <QDate>
#include <QLocale>
#include <QString>

namespace modTriggerDate {

/// Takes d.M.yyyy, yyyy-M-d and three numbers with "/" in the locale's order, years with four digits. Invalid for
/// anything else.
[[nodiscard]] QDate Read(const QString& text, const QLocale& locale);

} // namespace modTriggerDate
