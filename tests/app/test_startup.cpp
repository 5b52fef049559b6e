// The order of the start, with and without a window, and what must not have happened when it is broken off.
#include "AppFixture.h"
#include "CommandLine.h"
#include "HeadlessHost.h"
#include "HeadlessLog.h"
#include "HeadlessPrompter.h"
#include "SingleInstance.h"
#include "StartUp.h"
#include <QtTest>
#include <sstream>

Q_DECLARE_METATYPE(Message)
Q_DECLARE_METATYPE(MessageAnswer)

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

CommandLine fileArgument(const QString& path) {
    return ParseCommandLine({path});
}

} // namespace

class TestStartUp : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void secondCopyIsRefusedBeforeAnythingIsTouched() {
        AppFixture fixture;
        const auto settingsBefore = fixture.settings->values;
        const SingleInstance first(*fixture.locks, {}, fixture.prompter, fixture.texts);
        QVERIFY(first.MayRun());
        QVERIFY(fixture.prompter.shown.empty());

        const SingleInstance second(*fixture.locks, {}, fixture.prompter, fixture.texts);
        QVERIFY(!second.MayRun());
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        const Message& box = fixture.prompter.shown.front();
        QCOMPARE(box.text, fixture.texts.Text(172) + u"\n\n"_qs + fixture.texts.Text(173));
        QCOMPARE(box.title, u"Kalvenor Pro"_qs);
        QCOMPARE(box.icon, MessageIcon::Exclamation);
        QVERIFY(!QFile::exists(fixture.DefaultFile()));
        QCOMPARE(fixture.settings->values, settingsBefore);
    }

    void serviceNeitherTestsNorTakesTheLock() {
        AppFixture fixture;
        const CommandLine service = ParseCommandLine({u"STARTSERVICE"_qs});
        const SingleInstance early(*fixture.locks, service, fixture.prompter, fixture.texts);
        QVERIFY(fixture.locks->held.empty());
        const SingleInstance window(*fixture.locks, {}, fixture.prompter, fixture.texts);
        const SingleInstance late(*fixture.locks, service, fixture.prompter, fixture.texts);
        QVERIFY(early.MayRun() && window.MayRun() && late.MayRun());
    }

    void endedCopyLeavesTheWayFree() {
        AppFixture fixture;
        { const SingleInstance first(*fixture.locks, {}, fixture.prompter, fixture.texts); }
        QVERIFY(SingleInstance(*fixture.locks, {}, fixture.prompter, fixture.texts).MayRun());
    }

    void argument_data() {
        QTest::addColumn<QString>("argument"); // "%1" is the temporary folder
        QTest::addColumn<bool>("taken");
        QTest::newRow("a file") << u"%1/other.kvd"_qs << true;
        QTest::newRow("no such file") << u"%1/none.kvd"_qs << false;
        QTest::newRow("a folder") << u"%1/program"_qs << false;
        QTest::newRow("nearly a command word") << u"Install"_qs << false;
        QTest::newRow("blanks") << u"   "_qs << false;
    }
    void argument() {
        QFETCH(QString, argument);
        QFETCH(bool, taken);
        AppFixture fixture;
        argument.replace(u"%1"_qs, fixture.dir.path());
        AppFixture::Write(fixture.dir.filePath(u"other.kvd"_qs),
                          u"<?xml version=\"1.0\"?><items>"_qs + fixture.Activity(u"A"_qs) + u"</items>"_qs);
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        RecordingFace face;
        QCOMPARE(RunStartUp(program, fileArgument(argument), face), StartUpResult::Running);
        QVERIFY(QFile::exists(fixture.DefaultFile())); // ensured in any case
        if (taken) {
            QVERIFY(fixture.prompter.shown.empty());
            QCOMPARE(program.File().CurrentPath(), argument);
            QCOMPARE(program.List().Rows(), 1);
            return;
        }
        QCOMPARE(fixture.prompter.shown.size(), std::size_t(1));
        const Message& box = fixture.prompter.shown.front();
        QCOMPARE(box.text, u"File '"_qs + argument + u"' could not be started with Kalvenor."_qs);
        QCOMPARE(box.title, u"Invalid file"_qs);
        QCOMPARE(box.icon, MessageIcon::Critical);
        QCOMPARE(program.File().CurrentPath(), fixture.DefaultFile());
    }

    void wordsOfTheServiceEndTheStart() {
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        RecordingFace face;
        QCOMPARE(RunStartUp(program, ParseCommandLine({u"install"_qs}), face), StartUpResult::Ended);
        QCOMPARE(fixture.serviceManager->asked, QStringList{u"install"_qs});
        QCOMPARE(fixture.prompter.shown.front().text, fixture.texts.Text(412));
        QCOMPARE(fixture.process->endedWith, std::optional<int>(0));
        QVERIFY(face.steps.isEmpty());
    }

    void theFileTypeIsRegisteredOnce() {
        AppFixture fixture;
        for (int start = 0; start < 2; ++start) {
            Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
            RecordingFace face;
            QCOMPARE(RunStartUp(program, {}, face), StartUpResult::Running);
        }
        QCOMPARE(fixture.fileTypes->registered.size(), std::size_t(1));
        QCOMPARE(fixture.settings->values.value(u"Kalvenor/Options/Done"_qs), u"1"_qs);
    }

    void steps_data() {
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<bool>("minimised");
        QTest::addColumn<QStringList>("steps");
        QTest::newRow("accepted before") << true << false << QStringList{u"appear"_qs, u"state"_qs};
        QTest::newRow("minimised") << true << true << QStringList{u"appear"_qs, u"state"_qs, u"minimise"_qs};
        QTest::newRow("first start") << false << true
                                     << QStringList{u"appear"_qs, u"state"_qs, u"minimise"_qs, u"notice"_qs};
    }
    void steps() {
        QFETCH(bool, accepted);
        QFETCH(bool, minimised);
        AppFixture fixture;
        if (!accepted)
            fixture.settings->values.clear();
        fixture.SetOption("ActivateWhileWindowsStarting", minimised ? u"1"_qs : u"0"_qs);
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        RecordingFace face;
        face.accepts = true;
        QCOMPARE(RunStartUp(program, {}, face), StartUpResult::Running);
        QTEST(face.steps, "steps");
        QVERIFY(program.IsNoticeAccepted());
    }

    void nothingRunsBeforeTheNoticeIsAnswered() {
        AppFixture fixture;
        fixture.settings->values.clear();
        fixture.SetOption("StartUp", u"1"_qs);
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        AppFixture::Write(fixture.Folder(u"A-in"_qs) + u"/f"_qs, u"data"_qs);
        const QString copy = fixture.Folder(u"A-out"_qs) + u"/f"_qs;
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        const auto tick = [&] {
            for (int second = 0; second < 10; ++second) {
                fixture.clock->Advance(std::chrono::seconds(1));
                program.Timers().tmrMonitoring.Poll();
            }
        };
        RecordingFace face;
        face.accepts = true;
        bool monitoredMeanwhile = false;
        face.onNotice = [&] {
            monitoredMeanwhile = program.Monitoring().IsOn();
            tick();
            QVERIFY(!QFile::exists(copy));
        };
        QCOMPARE(RunStartUp(program, {}, face), StartUpResult::Running);
        QVERIFY(monitoredMeanwhile);
        tick();
        QVERIFY(QFile::exists(copy));
    }

    void declineSavesNothing() {
        AppFixture fixture;
        fixture.settings->values.clear();
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        RecordingFace face;
        QCOMPARE(RunStartUp(program, {}, face), StartUpResult::Declined);
        QCOMPARE(fixture.settings->values.keys(), QStringList{u"Kalvenor/Options/Done"_qs}); // of the file type
        QVERIFY(!program.IsNoticeAccepted());
    }

    void damagedFileIsLeftAloneWithoutAYes() {
        AppFixture fixture;
        AppFixture::Write(fixture.DefaultFile(), u"no activity file"_qs);
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        RecordingFace face;
        QCOMPARE(RunStartUp(program, {}, face), StartUpResult::Running);
        QFile file(fixture.DefaultFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("no activity file"));
    }

    void headlessWithoutAcceptanceTouchesNothing() {
        AppFixture fixture;
        fixture.settings->values.clear();
        std::ostringstream lines;
        HeadlessLog log(lines, false);
        Program program(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        HeadlessHost host(program, log);
        QCOMPARE(host.Start({}), std::optional<int>(3));
        const QString said = QString::fromStdString(lines.str());
        QVERIFY(said.contains(fixture.texts.Text(109)));
        QVERIFY(said.contains(fixture.texts.Text(439)));
        QVERIFY(fixture.settings->values.isEmpty());
        QVERIFY(!QFile::exists(fixture.DefaultFile()));
        QVERIFY(fixture.fileTypes->registered.empty() && fixture.serviceManager->asked.isEmpty());
    }

    void headlessSaysWhyItIsIdle_data() {
        QTest::addColumn<bool>("startUp");
        QTest::newRow("option off") << false;
        QTest::newRow("option on") << true;
    }
    void headlessSaysWhyItIsIdle() {
        QFETCH(bool, startUp);
        AppFixture fixture;
        fixture.WriteActivities({fixture.Activity(u"A"_qs)});
        fixture.SetOption("StartUp", startUp ? u"1"_qs : u"0"_qs);
        std::ostringstream lines;
        HeadlessLog log(lines, true);
        HeadlessPrompter prompter(log);
        Program program(fixture.services, prompter, fixture.keys, fixture.texts);
        HeadlessHost host(program, log);
        QCOMPARE(host.Start({}), std::nullopt);
        QCOMPARE(program.Monitoring().IsOn(), startUp);
        QCOMPARE(QString::fromStdString(lines.str()),
                 startUp ? QString() : u"<5>"_qs + fixture.texts.Text(440) + u'\n');

        QSignalSpy closed(&host, &HeadlessHost::Closed);
        host.RequestStop();
        QVERIFY(closed.wait());
        QVERIFY(!program.Monitoring().IsOn());
        QVERIFY(program.State().closing);
        QCOMPARE(fixture.serviceManager->asked, (QStringList{u"ready"_qs, u"stopping"_qs}));
    }

    void questionsWithoutAUser_data() {
        QTest::addColumn<bool>("journal");
        QTest::addColumn<Message>("message");
        QTest::addColumn<MessageAnswer>("answer");
        QTest::addColumn<QString>("line");
        QTest::newRow("question") << false
                                  << Message{u"Replace\n'a'?"_qs, u"Exists"_qs, MessageIcon::Question,
                                             MessageButtons::YesNo}
                                  << MessageAnswer::No << u"Exists: Replace 'a'? -> No\n"_qs;
        QTest::newRow("damaged file") << true
                                      << Message{u"New?"_qs, u"Error"_qs, MessageIcon::Critical, MessageButtons::YesNo}
                                      << MessageAnswer::No << u"<3>Error: New? -> No\n"_qs;
        QTest::newRow("warning") << true << Message{u"Gone"_qs, u"T"_qs, MessageIcon::Exclamation, MessageButtons::Ok}
                                 << MessageAnswer::Ok << u"<4>T: Gone\n"_qs;
        QTest::newRow("cancel") << true
                                << Message{u"Do?"_qs, u"T"_qs, MessageIcon::Information, MessageButtons::OkCancel}
                                << MessageAnswer::Cancel << u"<5>T: Do? -> Cancel\n"_qs;
    }
    void questionsWithoutAUser() {
        QFETCH(bool, journal);
        QFETCH(Message, message);
        std::ostringstream lines;
        HeadlessLog log(lines, journal);
        HeadlessPrompter prompter(log);
        QTEST(prompter.Ask(message), "answer");
        QTEST(QString::fromStdString(lines.str()), "line");
    }
};

QTEST_GUILESS_MAIN(TestStartUp)
#include "test_startup.moc"
