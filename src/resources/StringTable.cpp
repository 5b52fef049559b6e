#include "StringTable.h"

#include <QByteArray>
#include <QLocale>
#include <QStringList>
#include <tuple>

// Nothing refers to the resource in this static library, so the linker would drop it. The macro must be used outside of
// every namespace.
static void registerTables() {
    Q_INIT_RESOURCE(strings);
}

Language StringTable::PreferredLanguage() {
    const QStringList languages = QLocale::system().uiLanguages();
    const bool german = !languages.isEmpty() && languages.constFirst().startsWith(QLatin1String("de"));
    return german ? Language::German : Language::English;
}

StringTable::StringTable(Language language) {
    registerTables();
    const QString table = language == Language::German ? QStringLiteral("de") : QStringLiteral("en");
    const bool loaded = m_translator.load(QStringLiteral(":/strings/strings_%1.qm").arg(table));
    Q_ASSERT_X(loaded, "StringTable", "the compiled-in table is unreadable");
    std::ignore = loaded;
}

QString StringTable::operator[](Text text) const {
    const int number = static_cast<int>(text);
    const auto read = m_read.constFind(number);
    return read != m_read.constEnd()
               ? *read
               : *m_read.insert(number, m_translator.translate("", QByteArray::number(number).constData()));
}
