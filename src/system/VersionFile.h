// The version file of the update site: an INI file whose section "[~UP]" tells of the newest version. Owns its text.
// What is missing or malformed reads as "".
#pragma once

#include <QByteArray>
#include <QString>

class VersionFile final {
  public:
    static constexpr qsizetype LongestValue = 1023; ///< characters

    /// UTF-8, or ISO-8859-1 when it is not valid UTF-8.
    explicit VersionFile(const QByteArray& bytes);

    /// The first such key of the first "[~UP]", without regard to case. Drops blanks and one pair of quotes around the
    /// value, and what exceeds LongestValue.
    [[nodiscard]] QString Value(const QString& key) const;

  private:
    QString m_text;
};
