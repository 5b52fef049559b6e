// All texts for the user in one language. Owns the loaded table. A missing text reads as "". For one thread.
#pragma once

#include "Text.h"
#include <QHash>
#include <QString>
#include <QTranslator>
#include <initializer_list>

enum class Language { English, German };

class StringTable final {
  public:
    /// German if the user's first interface language is German, else English.
    [[nodiscard]] static Language PreferredLanguage();

    explicit StringTable(Language language);

    /// Exactly as in the table, with leading and trailing blanks.
    [[nodiscard]] QString operator[](Text text) const;

  private:
    QTranslator m_translator;
    mutable QHash<int, QString> m_read; ///< a long run writes the same few for every file
};
