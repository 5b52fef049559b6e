#include "QtTexts.h"

#include <QCoreApplication>

/// A library's resources are not there by themselves. (The macro does not work inside a namespace.)
static void loadTable() {
    Q_INIT_RESOURCE(qttexts);
}

QtTexts::QtTexts(Language language) {
    loadTable();
    // English is what Qt speaks without a table.
    if (language == Language::German && m_translator.load(QStringLiteral(":/qttexts/qtbase_de.qm")))
        QCoreApplication::installTranslator(&m_translator);
}

QtTexts::~QtTexts() {
    QCoreApplication::removeTranslator(&m_translator);
}
