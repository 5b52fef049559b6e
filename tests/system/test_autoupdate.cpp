// The version file against a real web server, good and bad; how the file is read; the check of the day.
#include "Fakes.h"
#include "ServerProcess.h"
#include "VersionFile.h"
#include "ctlAutoUpdate.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace std::chrono_literals;

class TestAutoUpdate final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() {
        QVERIFY(m_server.Start(u"update_server.py"_qs));
        qputenv("TMPDIR", m_temporary.path().toUtf8());
    }

    void asksTheSite_data() {
        QTest::addColumn<QString>("version"); // "": taken for up to date
        QTest::addColumn<bool>("isOther");
        QTest::addColumn<int>("seconds"); // until it is given up
        const auto row = [](const char* folder, const QString& version, bool isOther = false, int seconds = 60) {
            QTest::newRow(folder) << version << isOther << seconds;
        };
        row("newer", u"2.2.0"_qs, true);
        row("equal", u"2.1.0"_qs);
        row("moved", u"2.2.0"_qs, true);
        for (const char* folder : {"novalue", "html", "missing", "cut", "endless", "tofile", "circle"})
            row(folder, {});
        row("silent", {}, false, 2);
    }
    void asksTheSite() {
        QFETCH(QString, version);
        QFETCH(int, seconds);
        ctlAutoUpdate update(m_settings, m_clock, {}, std::chrono::seconds(seconds));
        update.Configure(configuration(u"newer"_qs));
        QSignalSpy checked(&update, &ctlAutoUpdate::Checked);
        update.CheckForNewVersion();
        QVERIFY(checked.wait(60000)); // so that there are values to forget
        QCOMPARE(update.GetNewVersion(), u"2.2.0"_qs);
        update.Configure(configuration(QString::fromLatin1(QTest::currentDataTag())));
        update.CheckForNewVersion();
        QVERIFY(update.GetNewVersion().isEmpty() && checked.size() == 1);
        QVERIFY(checked.wait(60000));
        QCOMPARE(checked.last().front().value<ctlAutoUpdate::Check>(), ctlAutoUpdate::Check::Manual);
        QTEST(update.GetNewVersion(), "version");
        QTEST(update.IsOtherVersion(), "isOther");
        if (!version.isEmpty()) {
            QCOMPARE(update.GetReleaseDate(), u"24.12.2026"_qs);
            QCOMPARE(update.GetFileSize(), u"3 MB"_qs);
            QCOMPARE(update.GetFileInfo(), u"Much better"_qs);
        }
        QVERIFY(leftOver().isEmpty());
    }

    void fetchesFromTheWebAlone() {
        ctlAutoUpdate update(m_settings, m_clock, {});
        update.Configure(UpdateConfiguration::OfThisProgram());
        const QString file = m_temporary.filePath(u"target"_qs);
        for (const QString& address : {u"file:///etc/hostname"_qs, u"data:,[~UP]"_qs, QString()}) {
            std::optional<bool> written;
            update.Download(QUrl(address), file, [&](bool result) { written = result; });
            QTRY_VERIFY(written);
            QVERIFY(!*written && !QFile::exists(file));
        }
    }

    void readsTheFile() {
        const auto value = [](const QByteArray& bytes) { return VersionFile(bytes).Value(u"~UP"_qs, u"Version"_qs); };
        QCOMPARE(value("\xEF\xBB\xBF [ ~up ] \r\n\t version \t=  2.1.0 \t\r\nVersion=2\n"), u"2.1.0"_qs);
        QCOMPARE(value("[~UP]\nVersion = \" 2.1.0 \"\n"), u" 2.1.0 "_qs);
        QCOMPARE(value("[~UP]\nVersion=\"\n"), u"\""_qs); // one quote alone
        QCOMPARE(value("Version=0\n[UP]\nVersion=1\n[~UP]\n;Version=0\nVersions=1\nVersion=2=b\n"), u"2=b"_qs);
        QCOMPARE(value("[~UP]\nVersion=\xE4\n"), u"\u00E4"_qs); // not UTF-8
        QCOMPARE(value("[~UP]\nVersion=" + QByteArray(1024, 'x')), QString(1023, u'x'));
        QCOMPARE(value("[~UP\nVersion=2\n"), QString());
    }

    void checksOnceADay() {
        const auto checks = [&](const QString& everyDay, const QString& lastCheck) {
            m_settings.values = {{m_prefix + u"AutoCheckForUpdates", everyDay}, {m_prefix + u"LastCheck", lastCheck}};
            ctlAutoUpdate update(m_settings, m_clock, {});
            update.Configure(configuration(u"newer"_qs));
            return update.CheckOncePerDay() && !update.CheckOncePerDay();
        };
        const QDateTime now(QDate(2026, 11, 18), QTime(9, 5, 7));
        m_clock.now = std::chrono::system_clock::from_time_t(now.toSecsSinceEpoch());
        QVERIFY(!checks(u"0"_qs, u"n/a"_qs));
        QVERIFY(!checks(u"1"_qs, u"18.11.2026"_qs));
        QVERIFY(checks(u"1"_qs, u"17.11.2026"_qs));
        QVERIFY(checks(u"1"_qs, u"n/a"_qs));
        QCOMPARE(m_settings.values[m_prefix + u"LastCheck"], u"18.11.2026"_qs);
        QCOMPARE(m_settings.values[m_prefix + u"Time"], u"09:05:07"_qs);
    }

  private:
    const QString m_prefix = u"Kalvenor/AutoUpdate/"_qs;

    [[nodiscard]] UpdateConfiguration configuration(const QString& folder) const {
        UpdateConfiguration made = UpdateConfiguration::OfThisProgram();
        made.site = u"http://127.0.0.1:%1/"_qs.arg(m_server.port) + folder;
        made.agent = u"Test agent"_qs;
        made.currentVersion = u"2.1.0"_qs;
        return made;
    }
    [[nodiscard]] QStringList leftOver() const {
        return QDir(m_temporary.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    ServerProcess m_server;
    QTemporaryDir m_temporary;
    MemorySettings m_settings;
    FakeClock m_clock;
};

QTEST_GUILESS_MAIN(TestAutoUpdate)
#include "test_autoupdate.moc"
