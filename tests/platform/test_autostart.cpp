// The entry that starts the program with the user's session: what is in it, and that only it is touched.
#include "LinuxAutostart.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class AutostartTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder->filePath(QStringLiteral("config"))));
    }
    void cleanupTestCase() { qunsetenv("XDG_CONFIG_HOME"); }

    void Command_data() {
        QTest::addColumn<QByteArray>("program");
        QTest::addColumn<QByteArray>("exec");
        QTest::newRow("blanks") << QByteArray("/opt/My Tools/Kalvenor") << QByteArray(R"("/opt/My Tools/Kalvenor")");
        QTest::newRow("quote") << QByteArray(R"(/a"b/K)") << QByteArray(R"("/a\\"b/K")");
        QTest::newRow("shell") << QByteArray("/$HOME/`id`/'a'/K") << QByteArray(R"("/\\$HOME/\\`id\\`/'a'/K")");
        QTest::newRow("backslash") << QByteArray(R"(/a\b/K)") << QByteArray(R"("/a\\\\b/K")");
        QTest::newRow("field code") << QByteArray("/100%f/K") << QByteArray(R"("/100%%f/K")");
        QTest::newRow("line break") << QByteArray("/a\nHidden=true/K") << QByteArray(R"("/a\nHidden=true/K")");
        QTest::newRow("no text") << QByteArray("/a\xff/K") << QByteArray("\"/a\xff/K\"");
    }
    void Command() {
        QFETCH(QByteArray, program);
        QFETCH(QByteArray, exec);
        QVERIFY(!LinuxAutostart().Create(name, program.toStdString()));
        QCOMPARE(content(), "[Desktop Entry]\nType=Application\nName=Kalvenor\nExec=" + exec + "\nTerminal=false\n");
    }

    void MakesReplacesRemoves() {
        LinuxAutostart autostart;
        QVERIFY(!autostart.Exists(name));
        QVERIFY(!autostart.Remove(name));
        QVERIFY(!autostart.Create(name, "/old/Kalvenor"));
        QVERIFY(autostart.Exists(name));
        QVERIFY(!autostart.Exists(QStringLiteral("Other")));
        QVERIFY(!autostart.Create(name, "/new/Kalvenor"));
        QVERIFY(content().contains("/new/") && !content().contains("/old/"));
        QVERIFY(!autostart.Remove(name));
        QVERIFY(!autostart.Exists(name));
    }

    void TellsWhyNot() {
        QDir().mkpath(m_folder->filePath(QStringLiteral("config")));
        QFile taken(m_folder->filePath(QStringLiteral("config/autostart")));
        QVERIFY(taken.open(QIODevice::WriteOnly));
        LinuxAutostart autostart;
        QVERIFY(autostart.Create(name, "/a/Kalvenor"));
        QVERIFY(!autostart.Exists(name));
        QVERIFY(!autostart.Remove(name)); // there is none, and none is left

        taken.remove();
        QDir().mkpath(entry()); // a folder has the entry's name
        QVERIFY(autostart.Create(name, "/a/Kalvenor"));
        QVERIFY(autostart.Remove(name));
        QVERIFY(QDir(entry()).exists());
    }

  private:
    [[nodiscard]] QString entry() const {
        return m_folder->filePath(QStringLiteral("config/autostart/Kalvenor.desktop"));
    }
    [[nodiscard]] QByteArray content() const {
        QFile file(entry());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QString name = QStringLiteral("Kalvenor");
    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_APPLESS_MAIN(AutostartTest)
#include "test_autostart.moc"
