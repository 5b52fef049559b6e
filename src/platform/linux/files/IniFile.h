// The text of one settings file: "[section]" lines, "key=value" lines, comments (";" or "#"). Owns the bytes as they
// were read and changes single lines only. A value has no escapes: it is everything after the first "=", without the
// blanks around it.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

class IniFile final {
  public:
    explicit IniFile(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    /// The first entry of this name, spelt exactly. Blanks around section, key and value do not count.
    [[nodiscard]] std::optional<QString> Value(const QString& section, const QString& key) const;

    /// Changes the first entry of this name, or adds it at the end of its section. False, with nothing changed, when
    /// section, key or value would not read back the same (blanks around the value do not count).
    [[nodiscard]] bool SetValue(const QString& section, const QString& key, const QString& value);

    [[nodiscard]] const QByteArray& Bytes() const { return m_bytes; }

  private:
    struct Place {
        qsizetype valueStart = -1; ///< -1: no such entry
        qsizetype valueEnd = 0;
        qsizetype sectionEnd = -1; ///< after the last entry of the section; -1: no such section
    };
    [[nodiscard]] Place find(const QByteArray& section, const QByteArray& key) const;
    [[nodiscard]] QByteArray lineEnd() const;

    QByteArray m_bytes;
};
