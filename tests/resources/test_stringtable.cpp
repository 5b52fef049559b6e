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
    void DelicateTexts_data() {
        QTest::addColumn<int>("language");
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("text");
        const int english = static_cast<int>(Language::English);
        const int german = static_cast<int>(Language::German);
        const std::vector<std::tuple<const char*, int, int, QByteArray>> rows{
            {"trailing blank", english, 221, "Monitoring finished! "},
            {"mixed quotes", english, 317,
             "To save the activity with new name select 'Yes', for creating a new activity press \"No':"},
            {"five point x", english, 136,
             "The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!"},
            {"double quotes inside", english, 405, "Activate \"SafeExit\" while processing by 'F8' key"},
            {"spelling kept", english, 371,
             "Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file will "
             "not be deleted but get the extension .OLD)?"},
            {"dots", english, 183, "Initializing, please wait ..."},
            {"ampersand as text", english, 274, "Synchronization of date & time"},
            {"ampersand as mnemonic", english, 126, "C&ancel"},
            {"quote after a blank", english, 132, "The selected directory '"},
            {"quote first", english, 133, "' doesn't exist."},
            {"no closing blank", english, 272, "Last accessed:"},
            {"caption of its own", english, 322, "Recipient:"},
            {"before paused", english, 418, "Service "},
            {"placeholders", english, 438, "Activities: %1, active: %2"},
            {"idle in German", german, 198, "bereit"},
            {"trailing blank in German", german, 221, "Überwachung beendet! "},
            {"start in German", german, 142, "Überwachung starten"},
            {"no such text", english, 104, ""},
            {"below all texts in German", german, 0, ""},
        };
        for (const auto& [name, language, id, text] : rows)
            QTest::newRow(name) << language << id << text;
    }
    void DelicateTexts() {
        QFETCH(int, language);
        QFETCH(int, id);
        QFETCH(QByteArray, text);
        QCOMPARE(StringTable(static_cast<Language>(language)).Text(id).toUtf8(), text);
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
