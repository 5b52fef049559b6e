// Settings as people edit them: every value is taken as it stands, and a write changes its own line only.
#include "LinuxServices.h"
#include "ScratchFolder.h"
#include "SizeLimit.h"
#include "Table.h"

#include <QTest>

namespace {

const QString app = u"Kalvenor"_qs;
const QString section = u"Options"_qs;
const QString key = u"Key"_qs;
const QString ini = u"Kalvenor/Kalvenor.ini"_qs;

struct Scratch : ScratchFolder {
    std::unique_ptr<SettingsStore> files = MakeIniSettingsStore(Native());
    SettingsStore& store = *files;
};

} // namespace

class TestSettings : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void valuesSurvive_data() {
        QTest::addColumn<QString>("value");
        for (const char* value : {"", "C:\\new\\table", "\"quoted\"", "x=y;z", "\xC3\xA4\xE2\x82\xAC", " both ends ",
                                  "#no [comment]", "%20"})
            QTest::newRow(value) << QString::fromUtf8(value);
    }
    void valuesSurvive() {
        QFETCH(QString, value);
        Scratch scratch;
        QVERIFY(!scratch.store.Read(app, section, key));
        QVERIFY(!scratch.Exists(ini)); // only a write creates it
        QVERIFY(!scratch.store.Write(app, section, key, value));
        QCOMPARE(scratch.Read(ini), "[Options]\nKey=" + value.trimmed().toUtf8() + '\n');
        QCOMPARE(scratch.store.Read(app, section, key), value.trimmed());
        // The same line written by hand, in the midst of other things and with the other line ending.
        QVERIFY(scratch.Write(ini, "\xEF\xBB\xBF; mine\r\n[Other]\r\nKey=other\r\n\r\n [ Options ] \r\n Key \t=\t" +
                                       value.toUtf8() + " \r\r\nkey=lower\r\n"));
        QCOMPARE(scratch.store.Read(app, section, key), value.trimmed());
        QCOMPARE(scratch.store.Read(app, section, u"key"_qs), u"lower"_qs);
        QVERIFY(!scratch.store.Read(app, section, u"KEY"_qs));
        QVERIFY(!scratch.store.Read(app, u"options"_qs, key));
    }

    void writeKeepsEverythingElse_data() {
        const Table<QByteArray, QByteArray> row; // before and after Key=new
        row("changed", "; c\n[Options]\n a = 1 \nKey=old\n#Key=x\n[Z]\nKey=z\n",
            "; c\n[Options]\n a = 1 \nKey=new\n#Key=x\n[Z]\nKey=z\n");
        row("edited by hand", "[ Options ]\r\n Key = old \r\n", "[ Options ]\r\n Key = new \r\n");
        row("added to its section", "[Options]\na=1\n\n; on Z\n[Z]\nKey=z\n",
            "[Options]\na=1\nKey=new\n\n; on Z\n[Z]\nKey=z\n");
        row("new section, no last line end", "[Z]\r\nKey=z", "[Z]\r\nKey=z\r\n[Options]\r\nKey=new\r\n");
        row("foreign bytes", "text\n[Options]\n\xFF\xFE=\xE4\nKey=old", "text\n[Options]\n\xFF\xFE=\xE4\nKey=new");
        row("first of two", "[Options]\nKey=1\nKey=2\n[Options]\nKey=3\n",
            "[Options]\nKey=new\nKey=2\n[Options]\nKey=3\n");
    }
    void writeKeepsEverythingElse() {
        const auto [before, after] = Table<QByteArray, QByteArray>::Current();
        Scratch scratch;
        QVERIFY(scratch.Write(ini, before));
        QVERIFY(!scratch.store.Write(app, section, key, u"new"_qs));
        QCOMPARE(scratch.Read(ini), after);
        QCOMPARE(scratch.store.Read(app, section, key), u"new"_qs);
    }

    void whatCannotBeReadBackIsRefused() {
        Scratch scratch;
        const auto isRefused = [&](const QString& inApp, const QString& inSection, const QString& ofKey,
                                   const QString& value) {
            return scratch.store.Write(inApp, inSection, ofKey, value) == std::errc::invalid_argument;
        };
        QVERIFY(isRefused(u"a/b"_qs, section, key, u"x"_qs));
        QVERIFY(isRefused(app, section, u"a=b"_qs, u"x"_qs) && isRefused(app, section, u"[a"_qs, u"x"_qs));
        QVERIFY(scratch.store.WriteAll(app, section, {{u"Good"_qs, u"x"_qs}, {key, u"a\nb"_qs}}));
        QCOMPARE(scratch.Entries(), QStringList());
    }

    void unreadableFileIsNotOverwritten() {
        Scratch scratch;
        const QByteArray tooMuch((16 << 20) + 1, ';');
        QVERIFY(scratch.Write(ini, tooMuch));
        QVERIFY(!scratch.store.Read(app, section, key));
        QVERIFY(scratch.store.Write(app, section, key, u"x"_qs));
        QVERIFY(scratch.Read(ini) == tooMuch);
    }

    void failedSaveChangesNoKey() {
        Scratch scratch;
        const QByteArray before = "[Options]\nKey=old\n";
        QVERIFY(scratch.Write(ini, before));
        const SizeLimit limit(1000);
        QVERIFY(scratch.store.WriteAll(app, section, {{key, u"new"_qs}, {u"Long"_qs, QString(5000, u'x')}}));
        QCOMPARE(scratch.Read(ini), before);
        QCOMPARE(scratch.Entries(app), QStringList{u"Kalvenor.ini"_qs});
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
