// The forms of a once-only activity's date: day, month and year with two, two and four digits. It is shown and typed in
// the locale's order, and stored in one that every locale reads alike. Pure functions; the schedulers read each form.
#pragma once

#include <QLocale>
#include <QString>

namespace DateOrder {

/// As it stands in the activity file.
inline const QString Stored = QStringLiteral("dd.MM.yyyy");

/// "dd.MM.yyyy", "dd/MM/yyyy", "MM/dd/yyyy" or "yyyy-MM-dd".
[[nodiscard]] QString Format(const QLocale& locale);

/// The form with other letters for its d, M and y, for people: "DMY" gives "DD/MM/YYYY".
[[nodiscard]] QString Spelled(const QString& format, const QString& letters);

} // namespace DateOrder
