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
    void doesWhatTheWordSays_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<ServiceCaller>("caller");
        QTest::addColumn<bool>("succeeds");
        QTest::addColumn<QString>("asked"); // of the service manager
        QTest::addColumn<QList<int>>("boxes");
        QTest::addColumn<bool>("isProblem"); // icon of the boxes
        QTest::addColumn<int>("end");        // -1: the program goes on
        const auto line = ServiceCaller::CommandLine;
        const auto dialog = ServiceCaller::Dialog;
        const auto row = [](const QString& word, ServiceCaller caller, bool succeeds, const QString& asked,
                            const QList<int>& boxes, bool isProblem, int end) {
            QTest::addRow("%s, caller %d, %d", qPrintable(word), static_cast<int>(caller), succeeds)
                << word << caller << succeeds << asked << boxes << isProblem << end;
        };
        row(u"install"_qs, line, true, u"install"_qs, {412}, false, 0);
        row(u"install"_qs, line, false, u"install"_qs, {413}, true, 1);
        row(u"install"_qs, dialog, true, u"install"_qs, {412}, false, -1);
        row(u"install"_qs, dialog, false, u"install"_qs, {413}, false, -1);
        row(u"uninstall"_qs, line, true, u"uninstall"_qs, {414}, false, 0);
        row(u"uninstall"_qs, line, false, u"uninstall"_qs, {415}, true, 1);
        row(u"uninstall"_qs, dialog, true, u"uninstall"_qs, {414}, false, -1);
        row(u"uninstall"_qs, dialog, false, u"uninstall"_qs, {415}, false, -1);
        row(u"startservice"_qs, line, true, u"start Kalvenor"_qs, {}, false, 0);
        row(u"startservice"_qs, line, false, u"start Kalvenor"_qs, {580}, true, 1);
        row(u"startservice"_qs, dialog, true, u"start KalvenorPro"_qs, {426}, true, 0);
        row(u"startservice"_qs, dialog, false, u"start KalvenorPro"_qs, {426, 580}, true, -1);
        row(u"stopservice"_qs, line, true, u"stop Kalvenor"_qs, {}, false, 0);
        row(u"stopservice"_qs, dialog, true, u"stop KalvenorPro"_qs, {425}, true, 0);
        row(u"debug"_qs, line, true, {}, {}, false, -1);
        row(u"initialize"_qs, line, true, {}, {}, false, -1);
        row(QString(), line, true, {}, {}, false, -1);
        row(QString(), dialog, true, {}, {}, false, -1);
        row(u"Install"_qs, line, true, {}, {416}, true, -1);
        row(u"start"_qs, dialog, true, {}, {416}, true, -1);
    }
    void doesWhatTheWordSays() {
        QFETCH(QString, word);
        QFETCH(ServiceCaller, caller);
        QFETCH(QList<int>, boxes);
        QFETCH(bool, isProblem);
        QFETCH(bool, succeeds);
        FakeServiceManager manager;
        manager.succeeds = succeeds;
        FakePrompter prompter;
        ServiceMode mode(manager, prompter, m_texts);
        QTEST(mode.ServiceConfiguration(word, caller).value_or(-1), "end");
        QTEST(manager.asked.join(u'|'), "asked");
        QCOMPARE(prompter.shown.size(), static_cast<std::size_t>(boxes.size()));
        for (std::size_t i = 0; i < prompter.shown.size(); ++i) {
            const Message& box = prompter.shown[i];
            QCOMPARE(box.text, m_texts.Text(boxes.at(static_cast<qsizetype>(i))));
            QCOMPARE(box.title, u"Kalvenor service configuration"_qs);
            QCOMPARE(box.icon, isProblem ? MessageIcon::Exclamation : MessageIcon::Information);
        }
        QVERIFY(!manager.listener);
    }

    void obeysTheServiceManager_data() {
        QTest::addColumn<bool>("managed");
        QTest::addColumn<bool>("debug");
        QTest::newRow("a window") << false << false;
        QTest::newRow("started by the manager") << true << false;
        QTest::newRow("debug mode") << false << true;
    }
    void obeysTheServiceManager() {
        QFETCH(bool, managed);
        QFETCH(bool, debug);
        FakeServiceManager manager;
        FakePrompter prompter;
        ServiceMode mode(manager, prompter, m_texts);
        manager.runsThisProcess = managed;
        if (debug)
            QVERIFY(!mode.ServiceConfiguration(u"debug"_qs, ServiceCaller::CommandLine));
        QVERIFY(!mode.ServiceConfiguration(u"initialize"_qs, ServiceCaller::CommandLine));
        QCOMPARE(manager.listener != nullptr, managed || debug);
        if (!manager.listener)
            return;
        QSignalSpy stopWanted(&mode, &ServiceMode::StopWanted);
        for (const auto control : {ServiceControl::Pause, ServiceControl::Continue, ServiceControl::Stop})
            manager.listener(control);
        QCOMPARE(manager.asked, (QStringList{u"event 1 109 Service paused"_qs, u"event 4 110 Service continued"_qs}));
        QCOMPARE(stopWanted.size(), 1);
    }

    void registersTheFileTypeOnce_data() {
        QTest::addColumn<QString>("done");
        QTest::addColumn<bool>("registers");
        QTest::newRow("never") << QString() << true;
        QTest::newRow("no") << u"0"_qs << true;
        QTest::newRow("False") << u"False"_qs << true;
        QTest::newRow("yes") << u"1"_qs << false;
        QTest::newRow("True") << u"True"_qs << false;
    }
    void registersTheFileTypeOnce() {
        QFETCH(QString, done);
        QFETCH(bool, registers);
        MemorySettings settings;
        const QString key = u"Kalvenor/Options/Done"_qs;
        if (!done.isNull())
            settings.values[key] = done;
        FakeFileTypes types;
        types.error = std::make_error_code(std::errc::read_only_file_system);
        clsAssocFile assoc(types, settings, m_texts);
        for (int start = 0; start < 2; ++start)
            assoc.RegisterOnce({"/opt/k", "/home/u"});
        QCOMPARE(types.registered.size(), std::size_t(registers ? 1 : 0));
        QCOMPARE(settings.values[key], registers ? u"1"_qs : done);
        if (!registers)
            return;
        const FileType& type = types.registered.front();
        QCOMPARE(type.program.string(), std::string("/opt/k/Kalvenor"));
        QCOMPARE(type.icon.string(), std::string("/opt/k/kvd.ico"));
        QCOMPARE(type.extension, u".kvd"_qs);
        QVERIFY(!type.description.isEmpty());
    }

  private:
    StringTable m_texts{Language::English};
};

QTEST_GUILESS_MAIN(TestServiceMode)
#include "test_servicemode.moc"
