// The date of a once-only activity: stored in a form that reads alike in every locale, shown and typed in the locale's
// order. Pure functions; what is no date reads as an invalid one.
#pragma once

#include <QDate>
#include <QLocale>
#include <QString>

namespace modTriggerDate {

/// The form in the activity file.
inline const QString Stored = QStringLiteral("dd.MM.yyyy");

/// Reads d.M.yyyy, yyyy-M-d and three numbers with "/" in the locale's order; the year has four digits.
[[nodiscard]] QDate Read(const QString& text, const QLocale& locale);

/// The form for people: "dd.MM.yyyy", "dd/MM/yyyy", "MM/dd/yyyy" or "yyyy-MM-dd".
[[nodiscard]] QString Format(const QLocale& locale);

/// A form with other letters for d, M and y: "DMY" gives "DD/MM/YYYY".
[[nodiscard]] QString Spelled(const QString& format, const QString& letters);

} // namespace modTriggerDate
