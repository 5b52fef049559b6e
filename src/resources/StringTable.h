// Every text the user reads, by number, in one language. Owns the loaded table. An id without a text gives "".
#pragma once

#include <QString>
#include <QTranslator>
#include <initializer_list>

enum class Language { English, German };

class StringTable final {
  public:
    /// German when the first of the user's interface languages begins with "de", else English.
    [[nodiscard]] static Language PreferredLanguage();

    explicit StringTable(Language language);

    /// The text of this id, byte for byte, blanks at its ends included.
    [[nodiscard]] QString Text(int id) const;

  private:
    QTranslator m_translator;
};
