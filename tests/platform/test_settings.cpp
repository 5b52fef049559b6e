// Settings as people edit them: every value is taken as it stands, and a write changes its own line only.
#include "IniSettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString app = QStringLiteral("Kalvenor");
const QString section = QStringLiteral("Options");

struct Scratch {
    QTemporaryDir folder;
    IniSettingsStore store{folder.path().toStdString()};
    QString file = folder.filePath(QStringLiteral("Kalvenor/Kalvenor.ini"));

    [[nodiscard]] bool Put(const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(file).path());
        QFile opened(file);
        return opened.open(QIODevice::WriteOnly) && opened.write(bytes) == bytes.size();
    }
    [[nodiscard]] QByteArray Bytes() const {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }
};

} // namespace

class TestSettings : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void valuesSurvive_data() {
        QTest::addColumn<QString>("value");
        for (const char* value :
             {"", "0", "a, b.log", "a;b", "C:\\new\\table", "\"quoted\"", "x=y=z", "\xC3\xA4\xE2\x82\xAC",
              " both ends ", "#no comment", "[no section]", "%20", "@ByteArray(x)", "tab\there"})
            QTest::newRow(value) << QString::fromUtf8(value);
    }
    void valuesSurvive() {
        QFETCH(QString, value);
        Scratch scratch;
        QVERIFY(!scratch.store.Read(app, section, QStringLiteral("Key")));
        QVERIFY(!QFile::exists(scratch.file)); // only a write creates it
        QVERIFY(!scratch.store.Write(app, section, QStringLiteral("Key"), value));
        QCOMPARE(scratch.Bytes(), "[Options]\nKey=" + value.toUtf8() + '\n');
        QCOMPARE(scratch.store.Read(app, section, QStringLiteral("Key")), std::optional<QString>(value));
        // The same line written by hand, in the midst of other things and with the other line ending.
        QVERIFY(scratch.Put("\xEF\xBB\xBF; mine\r\n[Other]\r\nKey=other\r\n\r\n [Options]\r\n Key =" + value.toUtf8() +
                            "\r\nkey=lower\r\n"));
        QCOMPARE(scratch.store.Read(app, section, QStringLiteral("Key")), std::optional<QString>(value));
        QCOMPARE(scratch.store.Read(app, section, QStringLiteral("key")), QStringLiteral("lower"));
        QVERIFY(!scratch.store.Read(app, section, QStringLiteral("KEY")));
        QVERIFY(!scratch.store.Read(app, QStringLiteral("options"), QStringLiteral("Key")));
    }

    void writeKeepsEverythingElse_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after"); // of Key=new
        const auto row = [](const char* name, const QByteArray& before, const QByteArray& after) {
            QTest::newRow(name) << before << after;
        };
        row("changed", "; c\n[Options]\n a = 1 \nKey=old\n#Key=x\n[Z]\nKey=z\n",
            "; c\n[Options]\n a = 1 \nKey=new\n#Key=x\n[Z]\nKey=z\n");
        row("added to its section", "[Options]\na=1\n\n; on Z\n[Z]\nKey=z\n",
            "[Options]\na=1\nKey=new\n\n; on Z\n[Z]\nKey=z\n");
        row("into an empty section", "[Options]\n[Z]\n", "[Options]\nKey=new\n[Z]\n");
        row("new section, no last line end", "[Z]\r\nKey=z", "[Z]\r\nKey=z\r\n[Options]\r\nKey=new\r\n");
        row("no line end behind the section", "[Options]", "[Options]\nKey=new\n");
        row("foreign lines and bytes", "free text\n[Options]\n\xFF\xFE=\xE4\nKey=old",
            "free text\n[Options]\n\xFF\xFE=\xE4\nKey=new");
        row("first of two", "[Options]\nKey=1\nKey=2\n[Options]\nKey=3\n",
            "[Options]\nKey=new\nKey=2\n[Options]\nKey=3\n");
        row("same value", "[Options]\r\nKey=new\n\n", "[Options]\r\nKey=new\n\n");
    }
    void writeKeepsEverythingElse() {
        QFETCH(QByteArray, before);
        Scratch scratch;
        QVERIFY(scratch.Put(before));
        QVERIFY(!scratch.store.Write(app, section, QStringLiteral("Key"), QStringLiteral("new")));
        QTEST(scratch.Bytes(), "after");
        QCOMPARE(scratch.store.Read(app, section, QStringLiteral("Key")), QStringLiteral("new"));
    }

    void whatCannotBeReadBackIsRefused_data() {
        QTest::addColumn<QString>("application");
        QTest::addColumn<QString>("inSection");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        const QString good = QStringLiteral("x");
        for (const char* application : {"", "a/b", "..", ".hidden"})
            QTest::newRow(application) << QString::fromLatin1(application) << good << good << good;
        for (const char* name : {"", "a\nb", "a\rb", " a"}) {
            QTest::addRow("section '%s'", name) << app << QString::fromLatin1(name) << good << good;
            QTest::addRow("key '%s'", name) << app << good << QString::fromLatin1(name) << good;
        }
        for (const char* key : {"a=b", ";a", "#a", "[a"})
            QTest::addRow("key '%s'", key) << app << good << QString::fromLatin1(key) << good;
        for (const char* value : {"a\nb", "a\rb", "\n"})
            QTest::addRow("value '%s'", value) << app << good << good << QString::fromLatin1(value);
        QTest::newRow("NUL") << app << good << good << QString(QChar(u'\0'));
        QTest::newRow("half a surrogate pair") << app << good << good << QString(QChar(0xD800));
    }
    void whatCannotBeReadBackIsRefused() {
        QFETCH(QString, application);
        QFETCH(QString, inSection);
        QFETCH(QString, key);
        QFETCH(QString, value);
        Scratch scratch;
        QVERIFY(scratch.store.Write(application, inSection, key, value) == std::errc::invalid_argument);
        QVERIFY(QDir(scratch.folder.path()).isEmpty());
    }

    void unreadableFileIsNotOverwritten() {
        Scratch scratch;
        QVERIFY(QDir().mkpath(scratch.file)); // a folder where the file should be
        QVERIFY(!scratch.store.Read(app, section, QStringLiteral("Key")));
        QVERIFY(scratch.store.Write(app, section, QStringLiteral("Key"), QStringLiteral("x")));
        QVERIFY(QFileInfo(scratch.file).isDir());
    }

    void folderFollowsTheEnvironment_data() {
        QTest::addColumn<bool>("isAbsolute");
        QTest::newRow("absolute") << true;
        QTest::newRow("relative: ignored") << false;
    }
    void folderFollowsTheEnvironment() {
        QFETCH(bool, isAbsolute);
        QTemporaryDir home;
        const QByteArray homeBefore = qgetenv("HOME");
        const bool hadConfig = qEnvironmentVariableIsSet("XDG_CONFIG_HOME");
        const QByteArray configBefore = qgetenv("XDG_CONFIG_HOME");
        qputenv("HOME", home.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", isAbsolute ? home.filePath(QStringLiteral("conf")).toLocal8Bit() : "conf");
        const std::error_code error =
            IniSettingsStore().Write(app, section, QStringLiteral("Key"), QStringLiteral("x"));
        qputenv("HOME", homeBefore);
        hadConfig ? qputenv("XDG_CONFIG_HOME", configBefore) : qunsetenv("XDG_CONFIG_HOME");
        QVERIFY(!error);
        const QString folder =
            home.filePath(isAbsolute ? QStringLiteral("conf/Kalvenor") : QStringLiteral(".config/Kalvenor"));
        QVERIFY(QFile::exists(folder + QStringLiteral("/Kalvenor.ini")));
        QCOMPARE(QFile::permissions(folder) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
