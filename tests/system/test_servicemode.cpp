// Each service word from both callers; the service's own events; the file type that is registered once.
#include "Fakes.h"
#include "ProgramPlaces.h"
#include "ServiceMode.h"
#include "StringTable.h"
#include "clsAssocFile.h"

#include <QSignalSpy>
#include <QTest>

class TestServiceMode final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void doesWhatTheWordSays() {
        /// What the service manager is asked, the boxes and, at its end, what the program ends with.
        const auto done = [&](const QString& word, ServiceCaller caller, bool succeeds = true) -> QString {
            FakeServiceManager manager;
            manager.succeeds = succeeds;
            FakePrompter prompter;
            ServiceMode mode(manager, prompter, m_texts);
            const auto end = mode.ServiceConfiguration(word, caller);
            QStringList said = manager.asked;
            for (const Message& box : prompter.shown)
                said.append(box.text);
            return said.join(u'|') + (end ? u" -> %1"_qs.arg(*end) : QString());
        };
        const auto text = [this](Text id) { return m_texts[id]; };
        const auto line = ServiceCaller::CommandLine;
        const auto dialog = ServiceCaller::Dialog;
        QCOMPARE(done(u"install"_qs, line), QString(u"install|" + text(Text::ServiceInstalled) + u" -> 0"));
        QCOMPARE(done(u"install"_qs, line, false), QString(u"install|" + text(Text::ServiceInstallFailed) + u" -> 1"));
        QCOMPARE(done(u"install"_qs, dialog, false), QString(u"install|" + text(Text::ServiceInstallFailed)));
        QCOMPARE(done(u"uninstall"_qs, dialog), QString(u"uninstall|" + text(Text::ServiceUninstalled)));
        QCOMPARE(done(u"startservice"_qs, line, false),
                 QString(u"start Kalvenor|" + text(Text::ServiceManagerNotStarted) + u" -> 1"));
        QCOMPARE(done(u"startservice"_qs, dialog),
                 QString(u"start KalvenorPro|" + text(Text::ClosesToStartService) + u" -> 0"));
        QCOMPARE(done(u"startservice"_qs, dialog, false),
                 QString(u"start KalvenorPro|" + text(Text::ClosesToStartService) + u'|' +
                         text(Text::ServiceManagerNotStarted)));
        QCOMPARE(done(u"stopservice"_qs, line), u"stop Kalvenor -> 0"_qs);
        QCOMPARE(done(QString(), line), QString());
        QCOMPARE(done(u"Install"_qs, line), text(Text::UnknownServiceParameter));
    }

    void theDialogIsNotHeldUp() {
        FakeServiceManager manager;
        FakePrompter prompter;
        ServiceMode mode(manager, prompter, m_texts);
        QSignalSpy working(&mode, &ServiceMode::Working);
        QSignalSpy states(&mode, &ServiceMode::StateKnown);
        std::vector<std::function<void()>> pending;
        manager.later = [&](const std::function<void()>& work) { pending.push_back(work); };
        manager.succeeds = false;
        manager.reason = u"no \x1b bus"_qs;
        manager.state = {ServiceState::Kind::Failed, u"exit-code, status 3"_qs};
        for (const char* word : {"install", "uninstall"}) // the second comes too early
            QVERIFY(!mode.ServiceConfiguration(QLatin1String(word), ServiceCaller::Dialog));
        QCOMPARE(working.size(), 1);
        mode.QueryState(); // a dialog that is opened meanwhile
        QCOMPARE(working.size(), 2);
        QVERIFY(prompter.shown.empty() && states.isEmpty());
        QCOMPARE(pending.size(), 1U);
        pending.front()();
        QCOMPARE(prompter.shown.front().text, m_texts[Text::ServiceInstallFailed] + u"\nno \uFFFD bus");
        QCOMPARE(states.value(0).value(0).toString(), m_texts[Text::ServiceHasFailed].arg(manager.state.reason));
    }

    void obeysTheServiceManager() {
        FakeServiceManager manager;
        FakePrompter prompter;
        ServiceMode mode(manager, prompter, m_texts);
        QVERIFY(!mode.ServiceConfiguration(u"initialize"_qs, ServiceCaller::CommandLine));
        QVERIFY(!manager.listener); // a window
        manager.runsThisProcess = true;
        QVERIFY(!mode.ServiceConfiguration(u"initialize"_qs, ServiceCaller::CommandLine));
        QVERIFY(manager.listener);
        QSignalSpy stopWanted(&mode, &ServiceMode::StopWanted);
        for (const auto control : {ServiceControl::Pause, ServiceControl::Continue, ServiceControl::Stop})
            manager.listener(control);
        QCOMPARE(manager.asked, (QStringList{u"event 1 109 Service paused"_qs, u"event 4 110 Service continued"_qs}));
        QCOMPARE(stopWanted.size(), 1);
    }

    void registersTheFileTypeOnce() {
        for (const QString& done : {QString(), u"False"_qs, u"1"_qs, u"True"_qs}) {
            const bool registers = done.isEmpty() || done == u"False";
            MemorySettings settings;
            const QString key = u"Kalvenor/Options/Done"_qs;
            settings.values[key] = done;
            FakeFileTypes types;
            types.error = std::make_error_code(std::errc::read_only_file_system);
            clsAssocFile assoc(types, settings, m_texts);
            for (int start = 0; start < 2; ++start)
                assoc.RegisterOnce({.programFolder = "/opt/k", .dataFolder = "/opt/k", .userDataFolder = "/home/u"});
            QCOMPARE(types.registered.size(), std::size_t(registers ? 1 : 0));
            QCOMPARE(settings.values[key], registers ? u"1"_qs : done);
            if (registers)
                QCOMPARE(types.registered.front().program.generic_string(), std::string("/opt/k/Kalvenor"));
        }
    }

  private:
    StringTable m_texts{Language::English};
};

QTEST_GUILESS_MAIN(TestServiceMode)
#include "test_servicemode.moc"
