// The order of the start, with and without a window, and what must not have happened when it is broken off.
#include "AppFixture.h"
#include "CommandLine.h"
#include "HeadlessHost.h"
#include "HeadlessUser.h"
#include "SingleInstance.h"
#include "StartUp.h"
#include <QtTest>
#include <sstream>

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
struct World : AppFixture {
    explicit World(bool isAccepted = true) {
        if (!isAccepted)
            settings->values.clear();
    }
    StartUpResult Start(const QStringList& words = {}) { return RunStartUp(program, ParseCommandLine(words), face); }
    void Tick() {
        for (int second = 0; second < 10; ++second) {
            clock->Advance(std::chrono::seconds(1));
            program.Timers().tmrMonitoring.Poll();
        }
    }
    Program program{services, prompter, keys, texts};
    RecordingFace face;
};

} // namespace

class TestStartUp : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void secondCopyIsRefused() {
        AppFixture fixture;
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
        for (const QString& argument : {u"%1/other.kvd"_qs, u"%1/none.kvd"_qs, u"%1/program"_qs}) {
            World world;
            const QString path = QString(argument).replace(u"%1"_qs, world.Path());
            const bool taken = argument == u"%1/other.kvd";
            AppFixture::Write(world.Path(u"other.kvd"_qs),
                              u"<?xml version=\"1.0\"?><items>"_qs + world.Activity(u"A"_qs) + u"</items>"_qs);
            QCOMPARE(world.Start({path}), StartUpResult::Running);
            QVERIFY(QFile::exists(world.DefaultFile())); // ensured in any case
            QCOMPARE(world.program.File().CurrentPath(), taken ? path : world.DefaultFile());
            QCOMPARE(world.program.List().Rows(), taken ? 1 : 0);
            const QString box = u"Invalid file: File '"_qs + path + u"' could not be started with Kalvenor."_qs;
            QCOMPARE(world.prompter.Told(), taken ? QStringList() : QStringList{box});
        }
    }

    void wordsOfTheServiceEndTheStart() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        RecordingFace face;
        QCOMPARE(RunStartUp(program, ParseCommandLine({u"install"_qs}), face), StartUpResult::Ended);
        QCOMPARE(fixture.serviceManager->asked, QStringList{u"install"_qs});
        QCOMPARE(fixture.prompter.shown.front().text, fixture.texts[Text::ServiceInstalled]);
        QCOMPARE(fixture.process->endedWith, std::optional<int>(0));
        QVERIFY(face.steps.isEmpty());
    }

    void nothingRunsBeforeTheNoticeIsAnswered() {
        World world(false);
        world.SetOption("StartUp", u"1"_qs);
        world.Fill({u"A"_qs});
        const QString copy = world.Folder(u"A-out"_qs) + u"/f"_qs;
        world.face.accepts = true;
        bool monitoredMeanwhile = false;
        world.face.onNotice = [&] {
            monitoredMeanwhile = world.program.Monitoring().IsOn();
            world.Tick();
            QVERIFY(!QFile::exists(copy));
        };
        QCOMPARE(world.Start(), StartUpResult::Running);
        QCOMPARE(world.face.steps, (QStringList{u"appear"_qs, u"state"_qs, u"notice"_qs}));
        QVERIFY(monitoredMeanwhile && world.program.IsNoticeAccepted());
        world.Tick();
        QVERIFY(QFile::exists(copy));
    }

    void declineSavesNothing() {
        World world(false);
        QCOMPARE(world.Start(), StartUpResult::Declined);
        QCOMPARE(world.settings->values.keys(), QStringList{u"Kalvenor/Options/Done"_qs}); // of the file type
        QVERIFY(!world.program.IsNoticeAccepted());
    }

    void damagedFileIsLeftAloneWithoutAYes() {
        World world;
        AppFixture::Write(world.DefaultFile(), u"no activity file"_qs);
        QCOMPARE(world.Start(), StartUpResult::Running);
        QFile file(world.DefaultFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("no activity file"));
    }

    void headlessWithoutAcceptanceTouchesNothing() {
        World world(false);
        std::ostringstream lines;
        HeadlessLog log(lines, false);
        HeadlessHost host(world.program, log);
        QCOMPARE(host.Start({}), std::optional<int>(3));
        const QString said = QString::fromStdString(lines.str());
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
            std::ostringstream lines;
            HeadlessLog log(lines, true);
            HeadlessHost host(world.program, log);
            QCOMPARE(host.Start({}), std::nullopt);
            QCOMPARE(world.program.Monitoring().IsOn(), startUp);
            QVERIFY(world.prompter.shown.empty());
            QCOMPARE(QString::fromStdString(lines.str()),
                     startUp ? QString() : u"<5>"_qs + world.texts[Text::MonitoringIsOff] + u'\n');

            QSignalSpy closed(&host, &HeadlessHost::Closed);
            host.RequestStop();
            QVERIFY(closed.wait());
            QVERIFY(!world.program.Monitoring().IsOn() && world.program.State().Closing());
            QCOMPARE(world.serviceManager->asked, (QStringList{u"ready"_qs, u"stopping"_qs}));
        }
    }

    void headlessWaitsForItsFile() {
        for (const bool isLocked : {true, false}) { // else it cannot be loaded
            World world;
            const QString damaged = u"<items>"_qs;
            world.Fill({u"A"_qs});
            world.SetOption("StartUp", u"1"_qs);
            EngineLock elsewhere(*world.locks, *world.services.ownFiles);
            LockRefusal ignored{};
            EngineLock::Token other;
            if (isLocked)
                other = elsewhere.Take(world.DefaultFile(), ignored);
            else
                AppFixture::Write(world.DefaultFile(), damaged);
            std::ostringstream lines;
            HeadlessLog log(lines, false);
            HeadlessHost host(world.program, log);
            QCOMPARE(host.Start({}), std::nullopt);
            auto* retry = host.findChild<QTimer*>();
            const auto aMinuteLater = [&] { QVERIFY(QMetaObject::invokeMethod(retry, "timeout")); };
            const std::size_t told = world.prompter.shown.size();
            aMinuteLater();
            AppFixture::Write(world.DefaultFile(), damaged);
            other.reset();
            aMinuteLater();
            QVERIFY(retry->isActive() && !world.program.Monitoring().IsOn());
            world.WriteActivities({world.Activity(u"B"_qs)}); // by the other process
            aMinuteLater();
            QVERIFY(world.program.Monitoring().IsOn() && !retry->isActive());
            QCOMPARE(world.program.List().NameAt(0), u"B"_qs);
            QCOMPARE(world.prompter.shown.size(), told);
            QCOMPARE(QString::fromStdString(lines.str()), world.texts[Text::RetryEveryMinute] + u'\n');
        }
    }

    void questionsWithoutAUser() {
        std::ostringstream lines;
        HeadlessLog log(lines, true);
        HeadlessPrompter prompter(log);
        const QString title = u"T"_qs;
        QCOMPARE(prompter.Ask({u"Replace\n'a'?"_qs, title, MessageIcon::Question, MessageButtons::YesNo}),
                 MessageAnswer::No);
        QCOMPARE(prompter.Ask({u"Gone"_qs, title, MessageIcon::Exclamation, MessageButtons::Ok}), MessageAnswer::Ok);
        const Message countdown{u"Off"_qs, title, MessageIcon::Exclamation, MessageButtons::OkCancel,
                                std::chrono::seconds(60)};
        QCOMPARE(prompter.Ask(countdown), MessageAnswer::Ok); // nobody could cancel it
        QCOMPARE(QString::fromStdString(lines.str()), u"<5>T: Replace 'a'? -> No\n<4>T: Gone\n<4>T: Off\n"_qs);
    }
};

QTEST_GUILESS_MAIN(TestStartUp)
#include "test_startup.moc"
