// Every text the user reads, in one language. Owns the loaded table. A text that the table lacks is "".
#pragma once

#include "Text.h"
#include <QString>
#include <QTranslator>
#include <initializer_list>

enum class Language { English, German };

class StringTable final {
  public:
    /// German when the first of the user's interface languages begins with "de", else English.
    [[nodiscard]] static Language PreferredLanguage();

    explicit StringTable(Language language);

    /// Byte for byte, blanks at the ends included.
    [[nodiscard]] QString operator[](Text text) const;

  private:
    QTranslator m_translator;
};
