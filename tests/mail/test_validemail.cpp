#include "modValidEMail.h"

#include <QTest>

class TestValidEMail final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void tellsAddresses_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("valid");
        const auto row = [](const char* address, bool valid) {
            QTest::newRow(address) << QString::fromUtf8(address) << valid;
        };
        row("a.b-c_d~e@mail.example.de", true);
        row("a@EXAMPLE.De", true);
        row("a@example.com", true); // the first of the list
        row("a@example.uk", true);  // and its last
        row("a@example.fi", true);
        row("  a@example.org ", true);
        row("a@example..org", true);
        row("a@.org", true);

        row("", false);
        row("   ", false);
        row("@example.de", false);
        row("example.de", false);
        row("a@b@example.de", false);
        row("a@@example.de", false);
        row("a@", false);
        row("a@de", false);
        row("a@example.de.", false);
        row("a@example.info", false);
        row("a@example.xyz", false);
        row("a@example.o", false); // part of a listed one
        row("a@example.om", true); // a listed one, though part of another as well
        row("a b@example.de", false);
        row("a@example .de", false);
        row("\ta@example. de", false);

        row("a@192.168.0.255", true);
        row("a@0.0.0.0", true);
        row("a@192.168.0.256", false);
        row("a@99999999999999999999.1.1.1", false);
        row("a@-1.2.3.4", false);
        row("a@1.2.3", false);
        row("a@1.2.3.4.5", false);
        row("a@1..2.3", false);
        row("a@1.2.3.de", true);
    }
    void tellsAddresses() {
        QFETCH(QString, address);
        QTEST(modValidEMail::IsValidEmailAddress(address), "valid");
    }
    void refusesEachIllegalCharacterAnywhere() {
        const QString good = QStringLiteral("ab@example.de");
        const QString illegal = QStringLiteral("!#$%^&*()=+{}[]|\\;:'/?>,<\r\n") + QChar(u'\0');
        for (const QChar character : illegal) {
            for (const qsizetype place : {qsizetype(0), qsizetype(1), qsizetype(5), good.size()}) {
                const QString address = QString(good).insert(place, character);
                QVERIFY2(!modValidEMail::IsValidEmailAddress(address), qPrintable(address));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestValidEMail)
#include "test_validemail.moc"
