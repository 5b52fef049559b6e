// The texts of Qt's own dialogs (choosing files, context menus of text fields) in the language of the program. Owns the
// loaded table; it is in force as long as this lives.
#pragma once

#include "StringTable.h"

class QtTexts final {
  public:
    explicit QtTexts(Language language);
    ~QtTexts();
    QtTexts(const QtTexts&) = delete;
    QtTexts& operator=(const QtTexts&) = delete;

  private:
    QTranslator m_translator;
};
