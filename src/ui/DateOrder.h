// The form in which the date of a once-only activity is typed and stored: day, month and year in the locale's order,
// two, two and four digits. Pure functions; each form is one that the schedulers read.
#pragma once

#include <QLocale>
#include <QString>

namespace DateOrder {

/// "dd.MM.yyyy", "dd/MM/yyyy", "MM/dd/yyyy" or "yyyy-MM-dd".
[[nodiscard]] QString Format(const QLocale& locale);

/// The form with other letters for its d, M and y, for people: "DMY" gives "DD/MM/YYYY".
[[nodiscard]] QString Spelled(const QString& format, const QString& letters);

} // namespace DateOrder
