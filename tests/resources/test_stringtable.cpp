// The texts as the program reads them: delicate ones byte for byte, and both languages against the same list of ids.
#include "StringTable.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>
#include <map>
#include <vector>

namespace {

using Table = std::map<int, QString>;

/// The table as a translator's file holds it, read without the compiler that made the embedded one.
Table translations(const QString& language) {
    QFile file(QStringLiteral(TABLES "/strings_%1.ts").arg(language));
    Table table;
    if (!file.open(QIODevice::ReadOnly))
        return table;
    QXmlStreamReader xml(&file);
    int id = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("message"))
            id = xml.attributes().value(QLatin1String("id")).toInt();
        if (xml.isStartElement() && xml.name() == QLatin1String("translation"))
            table[id] = xml.readElementText();
    }
    return xml.hasError() ? Table{} : table;
}

/// What compositions rely on: blanks and quotes at both ends, placeholders, a closing colon.
QString joints(const QString& text) {
    static const QRegularExpression begin(QStringLiteral("^[ ')]*"));
    static const QRegularExpression end(QStringLiteral("[ '(:]*$"));
    static const QRegularExpression placeholder(QStringLiteral("%[0-9]"));
    QStringList found{begin.match(text).captured(), end.match(text).captured()};
    for (auto matches = placeholder.globalMatch(text); matches.hasNext();)
        found.append(matches.next().captured());
    return found.join(u'|');
}

} // namespace

class StringTableTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void DelicateTexts() {
        struct Delicate {
            Language language;
            int id;
            QByteArray text;
        };
        const std::vector<Delicate> rows{
            {Language::English, 221, "Monitoring finished! "},
            {Language::English, 317,
             "To save the activity with new name select 'Yes', for creating a new activity press \"No':"},
            {Language::English, 136,
             "The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!"},
            {Language::English, 371,
             "Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file will "
             "not be deleted but get the extension .OLD)?"},
            {Language::English, 274, "Synchronization of date & time"},
            {Language::English, 133, "' doesn't exist."},
            {Language::English, 272, "Last accessed:"},
            {Language::English, 104, ""}, // no such text
            {Language::German, 221, "Überwachung beendet! "},
            {Language::German, 0, ""},
        };
        for (const Delicate& row : rows)
            QCOMPARE(StringTable(row.language).Text(row.id).toUtf8(), row.text);
    }

    void EveryTextIsEmbeddedInBothLanguages() {
        const Table english = translations(QStringLiteral("en"));
        const Table german = translations(QStringLiteral("de"));
        QVERIFY(english.size() > 250);
        QCOMPARE(german.size(), english.size());
        const StringTable englishTexts(Language::English);
        const StringTable germanTexts(Language::German);
        for (const auto& [id, text] : english) {
            QVERIFY2(!text.isEmpty(), qPrintable(QString::number(id)));
            QVERIFY2(german.contains(id), qPrintable(QString::number(id)));
            QCOMPARE(englishTexts.Text(id), text);
            QCOMPARE(germanTexts.Text(id), german.at(id));
        }
    }

    void GermanKeepsTheJoints() {
        const StringTable germanTexts(Language::German);
        for (const auto& [id, text] : translations(QStringLiteral("en")))
            QVERIFY2(joints(germanTexts.Text(id)) == joints(text), qPrintable(QString::number(id)));
    }
};

QTEST_APPLESS_MAIN(StringTableTest)
#include "test_stringtable.moc"
