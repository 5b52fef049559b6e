// The command line, the order of the start with and without a window, and what must not happen when it is cut short.
#include "CommandLine.h"
#include "HeadlessHost.h"
#include "HeadlessUser.h"
#include "ProgramFixture.h"
#include "SingleInstance.h"
#include "StartUp.h"
#include "SystemWorld.h"
#include <QtTest>

namespace {

/// Writes down what the start asks of it.
struct RecordingFace final : StartUpFace {
    void Appear() override { steps.append(u"appear"_qs); }
    void ShowState() override { steps.append(u"state"_qs); }
    void Minimise() override { steps.append(u"minimise"_qs); }
    bool AcceptsNotice() override {
        steps.append(u"notice"_qs);
        if (onNotice)
            onNotice();
        return accepts;
    }
    QStringList steps;
    bool accepts = false;
    std::function<void()> onNotice;
};

/// A program that has not started yet, without a window.
struct World : ProgramFixture {
    explicit World(bool isAccepted = true) {
        if (!isAccepted)
            settings->values.clear();
        Build();
    }
    StartUpResult Begin(const QStringList& words = {}) { return RunStartUp(*program, ParseCommandLine(words), face); }
    RecordingFace face;
};

/// The program without a window, and what it has written.
struct Headless {
    explicit Headless(World& world) : host(*world.program, log) {}
    QString Said() const { return said.join(QString()); }
    QStringList said;
    HeadlessLog log = HeadlessLog([this](int /*priority*/, const QString& line) { said.append(line + u'\n'); });
    HeadlessHost host;
};

} // namespace

class TestStartUp : public QObject {
    Q_OBJECT

    /// "kind: text -> file", the file relative to the present folder.
    static QString parsed(const QStringList& words) {
        const QStringList kinds{u"nothing"_qs, u"start"_qs, u"word"_qs, u"file"_qs};
        const CommandLine result = ParseCommandLine(words);
        QString said = kinds.at(static_cast<int>(result.kind)) + u": " + result.text;
        if (!result.file.isEmpty())
            said += u" -> " + QDir::fromNativeSeparators(result.file)
                                  .replace(QDir::currentPath() + u'/', u"./"_qs)
                                  .remove(QDir::currentPath().section(u'/', 0, 0)); // the drive
        return said;
    }

  private Q_SLOTS:
    void parses() {
        QCOMPARE(parsed({}), u"nothing: "_qs);
        QCOMPARE(parsed({u"STARTSERVICE"_qs}), u"start: STARTSERVICE"_qs);
        QCOMPARE(parsed({u"STARTSERVICE"_qs, u"x"_qs}), u"file: STARTSERVICE x -> ./STARTSERVICE x"_qs);
        QCOMPARE(parsed({u"/a/my"_qs, u"own"_qs, u"file.kvd"_qs}),
                 u"file: /a/my own file.kvd -> /a/my own file.kvd"_qs);
        QCOMPARE(parsed({u"\"\"/a\"\""_qs}), u"file: \"/a\" -> ./\"/a\""_qs); // one pair of quotes goes
        if (SystemWorld::CanMake("link")) // else ".." is taken out of a text by the system itself
            QCOMPARE(parsed({u"link/../b.kvd"_qs}), u"file: link/../b.kvd -> ./link/../b.kvd"_qs);
        // What Qt takes is left out.
        QCOMPARE(parsed({u"-plugin"_qs, u"xcb"_qs, u"--style"_qs, u"fusion"_qs, u"-reverse"_qs, u"/a.kvd"_qs}),
                 u"file: /a.kvd -> /a.kvd"_qs);
        QCOMPARE(parsed({u"STARTSERVICE"_qs, u"-platform"_qs, u"offscreen"_qs}), u"start: STARTSERVICE"_qs);
        QCOMPARE(parsed({u"/a.kvd"_qs, u"-platform"_qs}), u"file: /a.kvd -> /a.kvd"_qs); // its value is missing
    }

    void showsWindowsOnlyWhereSomebodySeesThem() {
        const QString display = u":0"_qs;
        QVERIFY(!ShowsWindows({{}, {}, {}}));
        QVERIFY(ShowsWindows({display, {}, {}}));
        QVERIFY(ShowsWindows({{}, u"wayland-0"_qs, {}}));
        QVERIFY(!ShowsWindows({display, {}, u"offscreen"_qs}));
    }

    void secondCopyIsRefused() {
        ProgramFixture fixture;
        const auto start = [&](const QStringList& words = {}) {
            return std::make_unique<SingleInstance>(*fixture.locks, ParseCommandLine(words), fixture.prompter,
                                                    fixture.texts);
        };
        const QStringList service{u"STARTSERVICE"_qs};
        {
            const auto first = start();
            QVERIFY(first->MayRun() && start(service)->MayRun()); // the service neither tests nor takes the lock
            for (int refused = 0; refused < 2; ++refused)         // the refused one does not let the lock go
                QVERIFY(!start()->MayRun());
            QCOMPARE(fixture.prompter.shown.size(), 2U);
        }
        QVERIFY(start()->MayRun());
    }

    void takesAFileThatIsThere() {
        for (const QString& argument : {u"other.kvd"_qs, u"none.kvd"_qs, u"folder"_qs}) {
            World world;
            const QString path = world.Path(argument);
            const bool taken = argument == u"other.kvd";
            world.Folder(u"folder"_qs);
            world.WriteActivities(u"other.kvd"_qs, world.Copying(u"A"_qs));
            QCOMPARE(world.Begin({path}), StartUpResult::Running);
            QVERIFY(QFile::exists(world.DefaultFile())); // ensured in any case
            QCOMPARE(world.program->File().CurrentPath(), taken ? path : world.DefaultFile());
            QCOMPARE(world.program->List().Rows(), taken ? 1 : 0);
            const QString box = u"Invalid file: File '"_qs + path + u"' could not be started with Kalvenor."_qs;
            QCOMPARE(world.prompter.Told(), taken ? QStringList() : QStringList{box});
        }
    }

    void wordsOfTheServiceEndTheStart() {
        World world;
        QCOMPARE(world.Begin({u"install"_qs}), StartUpResult::Ended);
        QCOMPARE(world.serviceManager->asked, QStringList{u"install"_qs});
        QCOMPARE(world.prompter.shown.front().text, world.texts[Text::ServiceInstalled]);
        QCOMPARE(world.process->endedWith, std::optional<int>(0));
        QVERIFY(world.face.steps.isEmpty());
    }

    void nothingRunsBeforeTheNoticeIsAnswered() {
        World world(false);
        world.SetOption("StartUp", u"1"_qs);
        world.Fill({u"A"_qs});
        const QString copy = world.Folder(u"A-out"_qs) + u"/f"_qs;
        world.face.accepts = true;
        bool monitoredMeanwhile = false;
        world.face.onNotice = [&] {
            monitoredMeanwhile = world.program->Monitoring().IsOn();
            world.Pass(std::chrono::seconds(10));
            QVERIFY(!QFile::exists(copy));
        };
        QCOMPARE(world.Begin(), StartUpResult::Running);
        QCOMPARE(world.face.steps, (QStringList{u"appear"_qs, u"state"_qs, u"notice"_qs}));
        QVERIFY(monitoredMeanwhile && world.program->IsNoticeAccepted());
        world.Pass(std::chrono::seconds(10));
        QVERIFY(QFile::exists(copy));
    }

    void declineSavesNothing() {
        World world(false);
        QCOMPARE(world.Begin(), StartUpResult::Declined);
        QCOMPARE(world.settings->values.keys(), QStringList{u"Kalvenor/Options/Done"_qs}); // of the file type
        QVERIFY(!world.program->IsNoticeAccepted());
    }

    void headlessWithoutAcceptanceTouchesNothing() {
        World world(false);
        Headless headless(world);
        QCOMPARE(headless.host.Start({}), std::optional<int>(3));
        const QString said = headless.Said();
        QVERIFY(said.contains(world.texts[Text::LegalNotice]) && said.contains(world.texts[Text::AcceptHeadless]));
        QVERIFY(world.settings->values.isEmpty());
        QVERIFY(!QFile::exists(world.DefaultFile()));
        QVERIFY(world.fileTypes->registered.empty() && world.serviceManager->asked.isEmpty());
    }

    void headlessSaysWhyItIsIdle() {
        for (const bool startUp : {false, true}) {
            World world;
            world.Fill({u"A"_qs});
            world.SetOption("StartUp", startUp ? u"1"_qs : u"0"_qs);
            Headless headless(world);
            QCOMPARE(headless.host.Start({}), std::nullopt);
            QCOMPARE(world.program->Monitoring().IsOn(), startUp);
            QVERIFY(world.prompter.shown.empty());
            QCOMPARE(headless.Said(), startUp ? QString() : world.texts[Text::MonitoringIsOff] + u'\n');
            QSignalSpy closed(&headless.host, &HeadlessHost::Closed);
            headless.host.RequestStop();
            QTRY_COMPARE(closed.size(), 1);
            QVERIFY(!world.program->Monitoring().IsOn() && world.program->State().Closing());
            QCOMPARE(world.serviceManager->asked, (QStringList{u"ready"_qs, u"stopping"_qs}));
        }
    }

    void headlessWaitsForItsFile() {
        for (const bool isLocked : {true, false}) { // else it cannot be loaded
            World world;
            const QByteArray damaged = "<items>";
            world.Fill({u"A"_qs});
            world.SetOption("StartUp", u"1"_qs);
            EngineLock elsewhere(*world.locks, *world.services.ownFiles);
            LockRefusal ignored{};
            EngineLock::Token other;
            if (isLocked)
                other = elsewhere.Take(world.DefaultFile(), ignored);
            else
                world.Write(world.DefaultFile(), damaged);
            Headless headless(world);
            QCOMPARE(headless.host.Start({}), std::nullopt);
            QVERIFY(isLocked || world.Read(world.DefaultFile()) == damaged);
            auto* retry = headless.host.findChild<QTimer*>();
            const auto aMinuteLater = [&] { QVERIFY(QMetaObject::invokeMethod(retry, "timeout")); };
            const std::size_t told = world.prompter.shown.size();
            aMinuteLater();
            world.Write(world.DefaultFile(), damaged);
            other.reset();
            aMinuteLater();
            QVERIFY(retry->isActive() && !world.program->Monitoring().IsOn());
            world.WriteActivities(world.DefaultFile(), world.Copying(u"B"_qs)); // by the other process
            aMinuteLater();
            QVERIFY(world.program->Monitoring().IsOn() && !retry->isActive());
            QCOMPARE(world.program->List().NameAt(0), u"B"_qs);
            QCOMPARE(world.prompter.shown.size(), told);
            QCOMPARE(headless.Said(), world.texts[Text::RetryEveryMinute] + u'\n');
        }
    }

    void questionsWithoutAUser() {
        QStringList lines;
        HeadlessLog log(
            [&](int priority, const QString& line) { lines.append(u"<%1>%2\n"_qs.arg(priority).arg(line)); });
        HeadlessPrompter prompter(log);
        const QString title = u"T"_qs;
        QCOMPARE(prompter.Ask({u"Replace\n'a'?"_qs, title, MessageIcon::Question, MessageButtons::YesNo}),
                 MessageAnswer::No);
        QCOMPARE(prompter.Ask({u"Gone"_qs, title, MessageIcon::Exclamation, MessageButtons::Ok}), MessageAnswer::Ok);
        const Message countdown{u"Off"_qs, title, MessageIcon::Exclamation, MessageButtons::OkCancel,
                                std::chrono::seconds(60)};
        QCOMPARE(prompter.Ask(countdown), MessageAnswer::Ok); // no user could cancel it
        QCOMPARE(lines.join(QString()), u"<5>T: Replace 'a'? -> No\n<4>T: Gone\n<4>T: Off\n"_qs);
    }
};

QTEST_GUILESS_MAIN(TestStartUp)
#include "test_startup.moc"
