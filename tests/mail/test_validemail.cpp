#include "modValidEMail.h"

#include <QTest>

class TestValidEMail final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void tellsAddresses() {
        for (const char* valid : {"a.b-c_d~e@mail.EXAMPLE.De", "a@example.com", "  a@example.org ", "a@192.168.0.255"})
            QVERIFY2(modValidEMail::IsValidEmailAddress(QString::fromLatin1(valid)), valid);
        for (const char* invalid : {"", "@example.de", "example.de", "a@b@example.de", "a@", "a@example.o",
                                    "a b@example.de", "a@192.168.0.256", "a@99999999999999999999.1.1.1", "a@1.2.3"})
            QVERIFY2(!modValidEMail::IsValidEmailAddress(QString::fromLatin1(invalid)), invalid);
    }
    void refusesEachIllegalCharacterAnywhere() {
        const QString good = u"ab@example.de"_qs;
        for (const QChar character : u"!#$%^&*()=+{}[]|\\;:'/?>,<\"\t\r\n\0"_qs)
            for (const qsizetype place : {qsizetype(0), qsizetype(5), good.size()})
                QVERIFY2(!modValidEMail::IsValidEmailAddress(QString(good).insert(place, character)),
                         qPrintable(QString(character)));
    }
};

QTEST_GUILESS_MAIN(TestValidEMail)
#include "test_validemail.moc"
