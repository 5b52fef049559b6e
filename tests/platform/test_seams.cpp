// What the seams promise on every system: settings, locks between real processes, session start, refused starts, time.
#include "HostAddresses.h"
#include "LocalTime.h"
#include "Machine.h"
#include "OwnSeams.h"
#include "ScratchFolder.h"
#include "Table.h"
#include "modForeignText.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <cstdlib>
#include <iostream>

namespace {

const QString app = u"Kalvenor"_qs;
const QString section = u"Options"_qs;
const QString key = u"Key"_qs;
constexpr int mostKeys = 40;

struct Scratch : ScratchFolder {
    OwnSeams seams{std::filesystem::path(Path().toStdWString())};
    SettingsStore& store = *seams.settings;
};

/// Any text: steps to elsewhere, quotes, umlauts, longer than a file name may be.
QString lockName(const QString& place) {
    return place + u"../../etc/a \"b\"\n\u00e4\u20ac"_qs + QString(5000, u'x');
}

bool writeAll(SettingsStore& store, const QString& name) {
    bool isWritten = true;
    for (int number = 0; number < mostKeys; ++number) {
        std::error_code error;
        do // the other process may keep the lock for so long that a save gives up
            error = store.Write(app, section, name + QString::number(number), u"x"_qs);
        while (error == std::errc::resource_unavailable_try_again);
        isWritten = isWritten && !error;
    }
    return isWritten;
}

/// The other process: does its work on the test's place, tells the result, and lives until its input ends.
int beTheOther(const QString& work, const QString& place) {
    // The test's, so nothing of it goes with this process.
    auto* const seams = new OwnSeams(std::filesystem::path(place.toStdWString()));
    LockRefusal refusal{};
    const auto held = work == u"lock" ? seams->locks->TryAcquire(lockName(place), refusal) : nullptr;
    const bool succeeded = work == u"lock" ? held != nullptr : writeAll(*seams->settings, u"child"_qs);
    std::cout << (succeeded ? "yes" : "no") << std::endl;
    std::cin.get();
    std::_Exit(0);
}

/// The other process; `Answer` waits for its result.
class Other final {
  public:
    Other(const QString& work, const QString& place) {
        m_process.start(QCoreApplication::applicationFilePath(), {u"--other"_qs, work, place});
    }
    ~Other() {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Other)

    [[nodiscard]] bool Answer() {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(60000))
            ;
        return m_process.readLine().trimmed() == "yes";
    }

  private:
    QProcess m_process;
};

} // namespace

class TestSeams final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void settingsSurvive() {
        Scratch scratch;
        QVERIFY(!scratch.store.Read(app, section, key));
        for (const auto& value : {u""_qs, u"C:\\new\\table"_qs, u"\"quoted\""_qs, u"x=y;z, b"_qs, u"\u00e4\u20ac"_qs,
                                  u" both ends "_qs, u"#no [comment]"_qs, u"%20"_qs, QString(5000, u'x')}) {
            QVERIFY(!scratch.store.WriteAll(app, section, {{key, value}, {u"Second"_qs, value + u'2'}}));
            QCOMPARE(scratch.store.Read(app, section, key), value.trimmed());
            QCOMPARE(scratch.store.Read(app, section, u"Second"_qs), QString(value + u'2').trimmed());
        }
        QVERIFY(!scratch.store.Write(app, section, key, u"new"_qs));
        QVERIFY(scratch.store.Read(app, section, u"Second"_qs)); // a write keeps the others
        QVERIFY(!scratch.store.Read(app, u"Other"_qs, key));
    }

    void whatCannotBeReadBackIsRefused() {
        Scratch scratch;
        const auto isRefused = [&](const QString& inApp, const QString& inSection, const QString& ofKey,
                                   const QString& value) {
            return scratch.store.Write(inApp, inSection, ofKey, value) == std::errc::invalid_argument;
        };
        QVERIFY(isRefused(u""_qs, section, key, u"x"_qs));
        for (const auto& name : {u""_qs, u"a\nb"_qs, u" a"_qs})
            QVERIFY2(isRefused(app, name, key, u"x"_qs) && isRefused(app, section, name, u"x"_qs), qPrintable(name));
        for (const auto& value : {u"a\nb"_qs, u"a\rb"_qs, QString(QChar(u'\0')), QString(QChar(0xD800))})
            QVERIFY2(isRefused(app, section, key, value), qPrintable(value));
        QVERIFY(scratch.store.WriteAll(app, section, {{u"Good"_qs, u"x"_qs}, {key, u"a\nb"_qs}}));
        QVERIFY(!scratch.store.Read(app, section, u"Good"_qs));
    }

    void twoProcessesLoseNoKeyOfEachOther() {
        Scratch scratch;
        Other other(u"settings"_qs, scratch.Path());
        QVERIFY(writeAll(scratch.store, u"parent"_qs));
        QVERIFY(other.Answer());
        for (int number = 0; number < mostKeys; ++number)
            for (const auto& name : {u"child"_qs, u"parent"_qs})
                QVERIFY(scratch.store.Read(app, section, name + QString::number(number)));
    }

    void oneHolderAtATime() {
        Scratch scratch;
        const QString name = lockName(scratch.Path());
        LockRefusal refusal{};
        const auto take = [&] {
            refusal = LockRefusal::NoneCanBeMade;
            return scratch.seams.locks->TryAcquire(name, refusal);
        };
        {
            Other other(u"lock"_qs, scratch.Path());
            QVERIFY(other.Answer());
            QVERIFY(!take() && refusal == LockRefusal::HeldElsewhere);
            QVERIFY(scratch.seams.locks->TryAcquire(name + u'2', refusal));
        } // killed
        auto held = take();
        QVERIFY2(held, "a killed holder must not keep the lock");
        QVERIFY2(!take() && refusal == LockRefusal::HeldElsewhere, "a second holder in the same process");
        QVERIFY(!Other(u"lock"_qs, scratch.Path()).Answer());
        held.reset();
        QVERIFY2(scratch.Entries(u"Kalvenor"_qs).isEmpty(), "names of files that are gone pile up");
        QVERIFY(Other(u"lock"_qs, scratch.Path()).Answer());
    }

    void startsWithTheSession() {
        Scratch scratch;
        Autostart& entries = *scratch.seams.autostart;
        const std::filesystem::path program = scratch.Path("a b/Kalvenor").toStdWString();
        QVERIFY(!entries.Exists(app) && !entries.Remove(app));
        QVERIFY(!entries.Create(app, program) && !entries.Create(app, program));
        QVERIFY(entries.Exists(app) && !entries.Exists(u"Other"_qs));
        QVERIFY(!entries.Remove(app) && !entries.Exists(app));
    }

    void startsNothingElse() {
        Scratch scratch;
        QVERIFY(scratch.Write(u"a.txt"_qs, "text"));
        Process& process = scratch.seams.process;
        QVERIFY(!process.Open({}) && !process.Open(scratch.Path("nothing")) && !process.Open(scratch.Path("a.txt 1")));
        QVERIFY(!process.OpenFolder(scratch.Path("a.txt")) && !process.OpenFolder(scratch.Path("nothing")));
        for (const auto& address : {u"file:///etc/passwd"_qs, u"--help"_qs, u"https:///a"_qs, u"C:\\a.exe"_qs})
            QVERIFY2(!process.OpenWebPage(address), qPrintable(address));
        bool failed = false;
        process.ShowDocument(scratch.Path("nothing"), [&] { failed = true; });
        QVERIFY(!failed); // told later
        QTRY_VERIFY(failed);
    }

    void knowsItsMachine() {
        const std::optional<SystemFacts> facts = ReadSystemFacts();
        QVERIFY(facts && facts->processors > 0 && facts->memory > 1 << 20);
        QVERIFY(!facts->system.isEmpty() && facts->kernel.contains(u' ') && !facts->architecture.isEmpty());
        for (const NameServer& server : MakeNameService()->Discover().servers)
            QVERIFY(!server.address.isEmpty() && server.port != 0);
        HostAddresses addresses;
        QSignalSpy found(&addresses, &HostAddresses::Found);
        addresses.Begin("127.0.0.1");
        QTRY_COMPARE(found.count(), 1);
        QCOMPARE(found.first().first().toStringList(), QStringList(u"127.0.0.1"_qs));
    }

    void foreignTextsAreHarmless() {
        const std::tuple<QString, QString, QString> rows[] = {
            {u"\u00e4 \u05d0\u200f\u00a0~"_qs, u"\u00e4 \u05d0\u200f\u00a0~"_qs, u"\u00e4 \u05d0\u200f\u00a0~"_qs},
            {u"a\r\nb\nc\td\re"_qs, u"a  b c\uFFFDd e"_qs, u"a\nb\nc\td e"_qs},
            {u"\x1b[2J\x07\x7f"_qs, u"\uFFFD[2J\uFFFD\uFFFD"_qs, u"\uFFFD[2J\uFFFD\uFFFD"_qs},
            {u"\u0080\u009b\u2028\u202e\u2029"_qs, QString(5, u'\uFFFD'), QString(5, u'\uFFFD')},
            {u"\u2065\u2066\u2069\u206a"_qs, u"\u2065\uFFFD\uFFFD\u206a"_qs, u"\u2065\uFFFD\uFFFD\u206a"_qs}};
        for (const auto& [text, oneLine, lines] : rows) {
            QCOMPARE(modForeignText::OneLine(text), oneLine);
            QCOMPARE(modForeignText::Lines(text), lines);
        }
        QCOMPARE(modForeignText::OneLine(QString(QChar(u'\0'))), u"\uFFFD"_qs);
        QCOMPARE(modForeignText::FromServer(u" 550\r\n550  no \x1b[m"_qs), u"550 550 no \uFFFD[m"_qs);
        QCOMPARE(modForeignText::FromServer(QString(199, u'x') + u"\U0001F600y"), QString(199, u'x')); // not half of it
    }

    void tellsLocalTime_data() {
        const Table<qint64, QString> row;
        row("now", 1'700'000'000, "2023-11-14 17:13:20 2");
        row("the first", 0, "1969-12-31 19:00:00 3");
        row("before 1970", -86'400LL * 3653, "1959-12-31 19:00:00 4");
        row("far away", 32'503'680'000LL + 86'400, "3000-01-01 19:00:00 3");
    }
    void tellsLocalTime() {
        const auto [seconds, expected] = Table<qint64, QString>::Current();
        const QByteArray before = qgetenv("TZ");
        qputenv("TZ", "EST5");
        LocalTime::ReadZone();
        const std::tm parts = LocalTime::Parts(static_cast<std::time_t>(seconds));
        before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
        LocalTime::ReadZone();
        const QDateTime time(QDate(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday),
                             QTime(parts.tm_hour, parts.tm_min, parts.tm_sec));
        QCOMPARE(time.toString(u"yyyy-MM-dd HH:mm:ss "_qs) + QString::number(parts.tm_wday), expected);
    }
};

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.value(1) == u"--other")
        return beTheOther(words.value(2), words.value(3));
    TestSeams test;
    return QTest::qExec(&test, words);
}
#include "test_seams.moc"
