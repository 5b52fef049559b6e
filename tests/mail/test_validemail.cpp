#include "modValidEMail.h"

#include <QTest>

class TestValidEMail final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void tellsAddresses() {
        for (const char* valid :
             {"a.b-c_d~e@mail.example.de", "a@EXAMPLE.De", "a@example.com", "a@example.uk", "  a@example.org ",
              "a@example..org", "a@.org", "a@example.om", "a@192.168.0.255", "a@0.0.0.0", "a@1.2.3.de"})
            QVERIFY2(modValidEMail::IsValidEmailAddress(QString::fromLatin1(valid)), valid);
        for (const char* invalid :
             {"", "   ", "@example.de", "example.de", "a@b@example.de", "a@@example.de", "a@", "a@de", "a@example.de.",
              "a@example.info", "a@example.o", "a b@example.de", "\ta@example. de", "a@192.168.0.256",
              "a@99999999999999999999.1.1.1", "a@-1.2.3.4", "a@1.2.3", "a@1.2.3.4.5", "a@1..2.3"})
            QVERIFY2(!modValidEMail::IsValidEmailAddress(QString::fromLatin1(invalid)), invalid);
    }
    void refusesEachIllegalCharacterAnywhere() {
        const QString good = u"ab@example.de"_qs;
        const QString illegal = u"!#$%^&*()=+{}[]|\\;:'/?>,<\r\n"_qs + QChar(u'\0');
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
