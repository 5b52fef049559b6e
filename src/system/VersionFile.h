// The text of the file that tells of the newest version: "[section]" and "key=value" lines, read as lenient as such
// files are written. Owns the text; what is not in it reads as "".
#pragma once

#include <QByteArray>
#include <QString>

class VersionFile final {
  public:
    /// UTF-8, or ISO-8859-1 when it is no valid UTF-8.
    explicit VersionFile(const QByteArray& bytes);

    /// The first entry of the first section of these names, without regard to case; blanks and one pair of quotes
    /// around the value do not count. At most 1023 characters.
    [[nodiscard]] QString Value(const QString& section, const QString& key) const;

  private:
    QString m_text;
};
