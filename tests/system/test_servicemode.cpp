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
        row(u"install"_qs, dialog, false, u"install"_qs, {413}, false, -1);
        row(u"uninstall"_qs, dialog, true, u"uninstall"_qs, {414}, false, -1);
        row(u"startservice"_qs, line, false, u"start Kalvenor"_qs, {580}, true, 1);
        row(u"startservice"_qs, dialog, true, u"start KalvenorPro"_qs, {426}, true, 0);
        row(u"startservice"_qs, dialog, false, u"start KalvenorPro"_qs, {426, 580}, true, -1);
        row(u"stopservice"_qs, line, true, u"stop Kalvenor"_qs, {}, false, 0);
        row(QString(), line, true, {}, {}, false, -1);
        row(u"Install"_qs, line, true, {}, {416}, true, -1);
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
                assoc.RegisterOnce({"/opt/k", "/home/u"});
            QCOMPARE(types.registered.size(), std::size_t(registers ? 1 : 0));
            QCOMPARE(settings.values[key], registers ? u"1"_qs : done);
            if (registers)
                QCOMPARE(types.registered.front().program.string(), std::string("/opt/k/Kalvenor"));
        }
    }

  private:
    StringTable m_texts{Language::English};
};

QTEST_GUILESS_MAIN(TestServiceMode)
#include "test_servicemode.moc"
