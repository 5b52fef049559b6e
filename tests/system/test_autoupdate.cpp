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
        row("older", u"1.9.9"_qs, true);
        row("equal", u"2.1.0"_qs);
        row("moved", u"2.2.0"_qs, true);
        row("full", u"2.2.0"_qs, true);
        for (const char* folder :
             {"novalue", "empty", "html", "missing", "partial", "overfull", "cut", "endless", "tofile", "circle"})
            row(folder, {});
        row("stuck", {}, false, 2);
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

    void leavesNothingWhenItDiesOnTheWay() {
        auto update = std::make_unique<ctlAutoUpdate>(m_settings, m_clock, nullptr);
        update->Configure(configuration(u"silent"_qs));
        QSignalSpy checked(update.get(), &ctlAutoUpdate::Checked);
        update->CheckForNewVersion();
        QVERIFY(!checked.wait(50));
        update->CheckForNewVersion();
        update.reset();
        QVERIFY(leftOver().isEmpty());
        QVERIFY(checked.isEmpty());
    }

    void fetchesFromTheWebAlone_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("a file") << u"file:///etc/hostname"_qs;
        QTest::newRow("data") << u"data:,[~UP]"_qs;
        QTest::newRow("nothing") << QString();
    }
    void fetchesFromTheWebAlone() {
        QFETCH(QString, address);
        ctlAutoUpdate update(m_settings, m_clock, {});
        update.Configure(UpdateConfiguration::OfThisProgram());
        const QString file = m_temporary.filePath(u"target"_qs);
        std::optional<bool> written;
        update.Download(QUrl(address), file, [&](bool result) { written = result; });
        QVERIFY(!written);
        QTRY_VERIFY(written);
        QVERIFY(!*written && !QFile::exists(file));
    }

    void readsTheFile_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("value");
        const auto row = [](const char* name, const QByteArray& bytes, const QString& value) {
            QTest::newRow(name) << bytes << value;
        };
        row("plain", "[~UP]\nVersion=2.1.0", u"2.1.0"_qs);
        row("other case, blanks", " [ ~up ] \r\n\t version \t=  2.1.0 \t\r\n", u"2.1.0"_qs);
        row("quotes", "[~UP]\nVersion = \" 2.1.0 \"\n", u" 2.1.0 "_qs);
        row("single quotes", "[~UP]\nVersion='2.1.0'\n", u"2.1.0"_qs);
        row("half a pair", "[~UP]\nVersion=\"2.1.0\n", u"\"2.1.0"_qs);
        row("one quote alone", "[~UP]\nVersion=\"\n", u"\""_qs);
        row("first entry", "[~UP]\nVersion=1\nVersion=2\n", u"1"_qs);
        row("first section", "[~UP]\nSize=1\n[~UP]\nVersion=2\n", {});
        row("another section", "Version=0\n[UP]\nVersion=1\n[~UP]\nVersion=2\n", u"2"_qs);
        row("comment, and a longer key", "[~UP]\n;Version=0\nVersions=1\nVersion=2=b\n", u"2=b"_qs);
        row("byte order mark", "\xEF\xBB\xBF[~UP]\nVersion=2\n", u"2"_qs);
        row("UTF-8", "[~UP]\nVersion=\xC3\xA4\n", u"\u00E4"_qs);
        row("not UTF-8", "[~UP]\nVersion=\xE4\n", u"\u00E4"_qs);
        row("too long", "[~UP]\nVersion=" + QByteArray(1024, 'x'), QString(1023, u'x'));
        row("broken section", "[~UP\nVersion=2\n", {});
    }
    void readsTheFile() {
        QFETCH(QByteArray, bytes);
        QTEST(VersionFile(bytes).Value(u"~UP"_qs, u"Version"_qs), "value");
    }

    void checksOnceADay_data() {
        QTest::addColumn<QString>("everyDay");
        QTest::addColumn<QString>("lastCheck");
        QTest::addColumn<bool>("checks");
        QTest::newRow("never told") << QString() << QString() << false;
        QTest::newRow("off") << u"0"_qs << u"n/a"_qs << false;
        QTest::newRow("never done") << u"1"_qs << u"n/a"_qs << true;
        QTest::newRow("no entry") << u"1"_qs << QString() << true;
        QTest::newRow("the day before") << u"1"_qs << u"17.11.2026"_qs << true;
        QTest::newRow("today") << u"1"_qs << u"18.11.2026"_qs << false;
    }
    void checksOnceADay() {
        QFETCH(QString, lastCheck);
        QFETCH(QString, everyDay);
        QFETCH(bool, checks);
        const QDateTime now(QDate(2026, 11, 18), QTime(9, 5, 7));
        m_clock.now = std::chrono::system_clock::from_time_t(now.toSecsSinceEpoch());
        const QString prefix = u"Kalvenor/AutoUpdate/"_qs;
        m_settings.values = {};
        if (!everyDay.isNull())
            m_settings.values[prefix + u"AutoCheckForUpdates"] = everyDay;
        if (!lastCheck.isNull())
            m_settings.values[prefix + u"LastCheck"] = lastCheck;
        const auto before = m_settings.values;
        ctlAutoUpdate update(m_settings, m_clock, {});
        update.Configure(configuration(u"newer"_qs));
        QSignalSpy checked(&update, &ctlAutoUpdate::Checked);
        QCOMPARE(update.CheckOncePerDay(), checks);
        QVERIFY(!update.CheckOncePerDay());
        if (!checks) {
            QCOMPARE(m_settings.values, before);
            return;
        }
        QCOMPARE(m_settings.values[prefix + u"LastCheck"], u"18.11.2026"_qs);
        QCOMPARE(m_settings.values[prefix + u"Time"], u"09:05:07"_qs);
        QVERIFY(checked.wait(60000));
        QCOMPARE(checked.last().front().value<ctlAutoUpdate::Check>(), ctlAutoUpdate::Check::Daily);
        m_clock.Advance(24h);
        QVERIFY(update.CheckOncePerDay());
        update.SetCheckForUpdatesEveryDay(false);
        m_clock.Advance(24h);
        QVERIFY(!update.CheckOncePerDay());
    }

  private:
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
