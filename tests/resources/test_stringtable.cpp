// The texts as the program reads them: delicate ones byte for byte, both languages with the same ids and joints.
#include "StringTable.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>
#include <map>

namespace {

using Table = std::map<Text, QString>;

/// Reads a translator's file without lrelease, which made the embedded table.
Table translations(const QString& language) {
    QFile file(QStringLiteral(TABLES "/strings_%1.ts").arg(language));
    Table table;
    if (!file.open(QIODevice::ReadOnly))
        return table;
    QXmlStreamReader xml(&file);
    Text id{};
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("message"))
            id = static_cast<Text>(xml.attributes().value(QLatin1String("id")).toInt());
        if (xml.isStartElement() && xml.name() == QLatin1String("translation"))
            table[id] = xml.readElementText();
    }
    return xml.hasError() ? Table{} : table;
}

/// What composed messages rely on: blanks and quotes at both ends, placeholders, a closing colon.
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
        const StringTable english(Language::English);
        const StringTable german(Language::German);
        QCOMPARE(english[Text::MonitoringFinished], u"Monitoring finished! "_qs);
        QCOMPARE(english[Text::RenameQuestion],
                 u"To save the activity with new name select 'Yes', for creating a new activity press \"No':"_qs);
        QCOMPARE(english[Text::HelpNeedsBrowser],
                 u"The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!"_qs);
        QCOMPARE(english[Text::FileCorrupted],
                 u"Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file "
                 "will not be deleted but get the extension .OLD)?"_qs);
        QCOMPARE(english[Text::DoesNotExist], u"' doesn't exist."_qs);
        QCOMPARE(english[Text::LastAccessed], u"Last accessed:"_qs);
        QCOMPARE(german[Text::MonitoringFinished], u"Überwachung beendet! "_qs);
        QCOMPARE(german[Text::None], QString());
    }

    void BothLanguagesMatch() {
        const Table english = translations(QStringLiteral("en"));
        const Table german = translations(QStringLiteral("de"));
        QVERIFY(english.size() > 250);
        QCOMPARE(german.size(), english.size());
        const StringTable englishTexts(Language::English);
        const StringTable germanTexts(Language::German);
        for (const auto& [id, text] : english) {
            const QByteArray number = QByteArray::number(static_cast<int>(id));
            QVERIFY2(!text.isEmpty() && german.contains(id), number);
            QCOMPARE(englishTexts[id], text);
            QCOMPARE(germanTexts[id], german.at(id));
            QVERIFY2(joints(german.at(id)) == joints(text), number);
        }
    }
};

QTEST_APPLESS_MAIN(StringTableTest)
#include "test_stringtable.moc"
