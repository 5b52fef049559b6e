// The version file from a web server, good and bad, and the check once a day.
#include "Fakes.h"
#include "StringTable.h"
#include "Table.h"
#include "ctlAutoUpdate.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace std::chrono_literals;

namespace {

const QByteArray release = "[~UP]\r\nVersion=2.2.0\r\nRelease=24.12.2026\r\nSize=3 MB\r\nInfo=\"Much better\"\r\n";

QByteArray reply(const QByteArray& status, const QByteArray& body, int missing = 0) {
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\nSet-Cookie: known=1\r\nContent-Length: " +
           QByteArray::number(body.size() + missing) + "\r\n\r\n" + body;
}

/// Sends the answer given for a path; a path without one gets none.
struct WebServer : QTcpServer {
    WebServer() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* client = nextPendingConnection();
            connect(client, &QTcpSocket::readyRead, this, [this, client] {
                if (!client->peek(10'000).contains("\r\n\r\n"))
                    return;
                lastRequest = client->readAll();
                const QByteArray answer = answers.value(lastRequest.split(' ').at(1));
                client->write(answer);
                if (!answer.isEmpty())
                    client->disconnectFromHost();
            });
        });
    }
    QMap<QByteArray, QByteArray> answers;
    QByteArray lastRequest;
};

} // namespace

class TestAutoUpdate final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TMPDIR", m_temporary.path().toUtf8()); }

    void asksTheSite_data() {
        const QString none = u"|||"_qs; // of version, date, size and description
        const Table<QByteArray, QString> row;
        const auto file = [&](const char* name, const QByteArray& bytes, const QString& values) {
            row(name, reply("200 OK", bytes), values);
        };
        file("newer", release, m_newer);
        file("equal", QByteArray(release).replace("2.2.0", "2.1.0"), u"2.1.0|24.12.2026|3 MB|Much better"_qs);
        file("spelling", "\xEF\xBB\xBF [ ~up ] \r\n\t version \t=  2.1.0 \t\r\nVersion=2\nInfo = \" x \"",
             u"2.1.0||| x "_qs);
        file("first", "Version=0\n[UP]\nVersion=1\n[~UP]\n;Version=0\nVersions=1\nVersion=2=b\nInfo=\"",
             u"2=b|||\""_qs);
        file("Latin-1", "[~UP]\nVersion=\xE4\nInfo=" + QByteArray(1024, 'x'), u"\u00E4|||"_qs + QString(1023, u'x'));
        file("no section", "[~UP\nVersion=2\n", none);
        row("moved", reply("302 Found\r\nLocation: /good/Version.inf", {}), m_newer);
        row("circle", reply("302 Found\r\nLocation: /site/Version.inf", {}), none);
        row("to a file", reply("302 Found\r\nLocation: file:///etc/hostname", {}), none);
        row("missing", reply("404 Not Found", release), none);
        row("truncated", reply("200 OK", release, 1), none);
        row("too large", reply("200 OK", release + QByteArray(HttpFetch::MaxBytes, '\n')), none);
        row("silent", {}, none);
    }
    void asksTheSite() {
        const auto [answer, values] = Table<QByteArray, QString>::Current();
        m_server.answers = {{"/good/Version.inf", reply("200 OK", release)}, {"/site/Version.inf", answer}};
        ctlAutoUpdate update(m_settings, m_clock, {}, answer.isEmpty() ? 100ms : 60s);
        QSignalSpy checked(&update, &ctlAutoUpdate::Checked);
        const auto found = [&] {
            const QStringList all{update.GetNewVersion(), update.GetReleaseDate(), update.GetFileSize(),
                                  update.GetFileInfo()};
            return all.join(u'|');
        };
        if (!answer.isEmpty()) { // a good check first, so that there are values to forget
            update.Configure(configuration(u"good"_qs));
            update.CheckForNewVersion();
            QVERIFY(checked.wait(60000));
            QCOMPARE(found(), m_newer);
        }
        update.Configure(configuration(u"site"_qs));
        update.CheckForNewVersion();
        QCOMPARE(found(), u"|||"_qs);
        QVERIFY(checked.wait(60000));
        QCOMPARE(checked.last().front().value<ctlAutoUpdate::Check>(), ctlAutoUpdate::Check::Manual);
        QCOMPARE(found(), values);
        QCOMPARE(update.IsOtherVersion(), !values.startsWith(u'|') && !values.startsWith(u"2.1.0"));
        QCOMPARE(QDir(m_temporary.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
        for (const char* header : {"User-Agent: Test agent", "Cache-Control: no-cache"})
            QVERIFY2(m_server.lastRequest.contains(header), m_server.lastRequest.constData());
        QVERIFY(!m_server.lastRequest.contains("Cookie:"));
    }

    void fetchesFromTheWebAlone() {
        ctlAutoUpdate update(m_settings, m_clock, {});
        update.Configure(configuration({}));
        const QString file = m_temporary.filePath(u"target"_qs);
        for (const QString& address : {u"file:///etc/hostname"_qs, u"data:,[~UP]"_qs, QString()}) {
            std::optional<bool> written;
            update.Download(QUrl(address), file, [&](bool result) { written = result; });
            QTRY_VERIFY(written);
            QVERIFY(!*written && !QFile::exists(file));
        }
    }

    void checksOnceADay() {
        UpdateConfiguration build = configuration(u"good"_qs);
        const auto checks = [&](const QString& everyDay, const QString& lastCheck) {
            m_settings.values = {{m_prefix + u"AutoCheckForUpdates", everyDay}, {m_prefix + u"LastCheck", lastCheck}};
            ctlAutoUpdate update(m_settings, m_clock, {});
            update.Configure(build);
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

        QCOMPARE(build.InsteadOfCheck(), Text::None);
        build.byPackages = true;
        QVERIFY(!checks(u"1"_qs, u"n/a"_qs) && build.InsteadOfCheck() == Text::UpdatedByPackages);
        build = configuration({});
        build.site.clear();
        QVERIFY(!checks(u"1"_qs, u"n/a"_qs) && build.InsteadOfCheck() == Text::NoUpdateSite);
    }

  private:
    [[nodiscard]] UpdateConfiguration configuration(const QString& folder) const {
        return {u"Kalvenor"_qs,
                u"2.1.0"_qs,
                u"http://127.0.0.1:%1/"_qs.arg(m_server.serverPort()) + folder,
                u"Version.inf"_qs,
                {},
                u"Test agent"_qs,
                false};
    }

    const QString m_newer = u"2.2.0|24.12.2026|3 MB|Much better"_qs;
    const QString m_prefix = u"Kalvenor/AutoUpdate/"_qs;
    WebServer m_server;
    QTemporaryDir m_temporary;
    MemorySettings m_settings;
    FakeClock m_clock;
};

QTEST_GUILESS_MAIN(TestAutoUpdate)
#include "test_autoupdate.moc"
