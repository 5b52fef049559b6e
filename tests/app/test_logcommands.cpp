// Logs in the window: which are shown, how they are read, and that only a confirmed regular file is deleted.
#include "DialogHost.h"
#include "LogCommands.h"
#include "ModalForm.h"
#include "ProgramFixture.h"
#include "frmLogFile.h"
#include <QPlainTextEdit>
#include <QTimer>
#include <sys/stat.h>

namespace {

struct Scene : ProgramFixture {
    Scene() {
        for (const char* name : {"A", "B", "C"})
            Add(QLatin1String(name));
        Start();
        commands = std::make_unique<LogCommands>(*program, dialogs);
    }
    /// Everything the command told or asked, "title: text".
    QStringList Told() const {
        QStringList told;
        for (const Message& message : prompter.shown)
            told.append(
                QString(message.title + QStringLiteral(": ") + message.text).replace(dir.path(), QStringLiteral("~")));
        return told;
    }
    DialogHost dialogs;
    std::unique_ptr<LogCommands> commands;
};

QPlainTextEdit& textOf(const frmLogFile& viewer) {
    return Find<QPlainTextEdit>(viewer, "rtfText");
}

} // namespace

class TestLogCommands : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void showsOneAfterTheOther() {
        Scene scene;
        scene.Write(QStringLiteral("A.log"), "first\r\nlast \xC3\xA4\xFF\r\n");
        scene.Write(QStringLiteral("B.log"), "b");
        QStringList captions;
        const auto look = [&](const frmLogFile& viewer) { captions.append(viewer.windowTitle()); };
        WhenOpen<frmLogFile>([&](const frmLogFile& viewer) {
            look(viewer);
            QCOMPARE(textOf(viewer).toPlainText(), QStringLiteral("first\nlast \u00e4\ufffd\n"));
            QVERIFY(textOf(viewer).textCursor().atEnd());
            WhenOpen<frmLogFile>(look);
        });
        scene.commands->ShowActivityLogs({QStringLiteral("A"), QStringLiteral("gone"), QStringLiteral("B"),
                                          QStringLiteral("C"), QStringLiteral("A")});
        QCOMPARE(captions,
                 (QStringList{QStringLiteral("Kalvenor Log   [") + scene.Path(QStringLiteral("A.log")) + u']',
                              QStringLiteral("Kalvenor Log   [") + scene.Path(QStringLiteral("B.log")) + u']'}));
        QCOMPARE(scene.Told(), QStringList{QStringLiteral("No logfile found: No logfile found for this activity.")});
    }

    void refresh_data() {
        QTest::addColumn<bool>("application");
        QTest::addColumn<bool>("option");
        QTest::addColumn<bool>("monitoring");
        QTest::addColumn<bool>("refreshes");
        QTest::newRow("activity") << false << true << true << true;
        QTest::newRow("not wanted") << false << false << true << false;
        QTest::newRow("not monitoring") << false << true << false << false;
        QTest::newRow("application") << true << true << true << false;
    }
    void refresh() {
        QFETCH(bool, application);
        QFETCH(bool, option);
        QFETCH(bool, monitoring);
        Scene scene;
        const QString log = application ? QStringLiteral("app.log") : QStringLiteral("A.log");
        scene.Write(log, "one");
        scene.program->Options().LogfileRefresh = option ? 1 : 0;
        if (monitoring)
            scene.program->Monitoring().ToggleMonitoring();
        WhenOpen<frmLogFile>([&](frmLogFile& viewer) {
            auto& timer = Find<QTimer>(viewer, "tmrRefresh");
            QTEST(timer.isActive(), "refreshes");
            QCOMPARE(timer.intervalAsDuration(), std::chrono::seconds(10));
            scene.Write(log, "one\ntwo");
            QTest::keyClick(&textOf(viewer), Qt::Key_F5);
            QCOMPARE(textOf(viewer).toPlainText(), QStringLiteral("one\ntwo"));
            QVERIFY(textOf(viewer).textCursor().atEnd());
            scene.Write(log, "three");
            if (timer.isActive()) {
                timer.start(0);
                QTRY_COMPARE(textOf(viewer).toPlainText(), QStringLiteral("three"));
            }
            QVERIFY(QFile::remove(scene.Path(log)));
            QTest::keyClick(&viewer, Qt::Key_F5);
            QCOMPARE(textOf(viewer).toPlainText(), QString());
        });
        if (application)
            scene.commands->ShowApplicationLog();
        else
            scene.commands->ShowActivityLogs({QStringLiteral("A")});
        QVERIFY(scene.prompter.shown.empty());
    }

    void largeLogShowsItsEnd() {
        Scene scene;
        const QByteArray line = "-> [01.02.2026 10:11:12] " + QByteArray(1000, 'x') + "\r\n";
        scene.Write(QStringLiteral("A.log"), line.repeated(5000) + QByteArray(3'000'000, 'y') + "\r\nlast");
        frmLogFile viewer(scene.texts);
        viewer.SetFileName(scene.Path(QStringLiteral("A.log")));
        viewer.show();
        const QStringList lines = textOf(viewer).toPlainText().split(u'\n');
        QCOMPARE(lines.first(), QStringLiteral("[Only the last 4 MiB of this logfile are shown.]"));
        QVERIFY(lines[2].startsWith(QStringLiteral("-> [")));
        QCOMPARE(lines.last(), QStringLiteral("last"));
        qsizetype longest = 0;
        qsizetype all = 0;
        for (const QString& each : lines) {
            longest = std::max(longest, each.size());
            all += each.size();
        }
        QVERIFY(longest <= 10'000); // the box would need minutes for one line of millions
        QVERIFY(all > 4'100'000 && all < 4'300'000);
        QVERIFY(textOf(viewer).viewport()->rect().contains(textOf(viewer).cursorRect().center()));
    }

    void deletes_data() {
        QTest::addColumn<bool>("application");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QString>("told");
        QTest::addColumn<bool>("deleted");
        const QString ask = QStringLiteral("Delete Kalvenor logfile: Really delete the Kalvenor logfile?");
        const QString none = QStringLiteral("No logfile found: No logfile found for Kalvenor Pro.");
        const QString askOne =
            QStringLiteral("Delete activity logfile: Should the logfile '~/A.log' really be deleted?");
        const QString noneOne =
            QStringLiteral("No logfile found: There is no logfile for this activity that can be deleted.");
        const QString file = QStringLiteral("file");
        QTest::newRow("application, yes") << true << file << true << ask << true;
        QTest::newRow("application, no") << true << file << false << ask << false;
        QTest::newRow("application, missing") << true << QStringLiteral("missing") << true << none << false;
        QTest::newRow("application, not set") << true << QString() << true << none << false;
        QTest::newRow("application, folder") << true << QStringLiteral("folder") << true << none << false;
        QTest::newRow("activity, yes") << false << file << true << askOne << true;
        QTest::newRow("activity, no") << false << file << false << askOne << false;
        QTest::newRow("activity, missing") << false << QStringLiteral("missing") << true << noneOne << false;
        QTest::newRow("activity, folder") << false << QStringLiteral("folder") << true << noneOne << false;
        QTest::newRow("activity, pipe") << false << QStringLiteral("pipe") << true << noneOne << false;
    }
    void deletes() {
        QFETCH(bool, application);
        QFETCH(QString, kind);
        QFETCH(bool, yes);
        QFETCH(QString, told);
        Scene scene;
        scene.prompter.yes = yes;
        const QString log = application ? QStringLiteral("app.log") : QStringLiteral("A.log");
        if (kind == u"file")
            scene.Write(log, "text");
        else if (kind == u"folder")
            QDir().mkpath(scene.Path(log));
        else if (kind == u"pipe")
            QCOMPARE(mkfifo(QFile::encodeName(scene.Path(log)).constData(), 0600), 0);
        else if (kind.isEmpty())
            scene.program->Options().LoggingPath.clear();
        const bool before = scene.Exists(log);
        if (application)
            scene.commands->DeleteApplicationLog();
        else
            scene.commands->DeleteActivityLog(QStringLiteral("A"));
        QCOMPARE(scene.Told(), QStringList{told});
        QTEST(before && !scene.Exists(log), "deleted");
    }

    void whatIsNoLogIsNotWaitedFor() {
        Scene scene;
        QCOMPARE(mkfifo(QFile::encodeName(scene.Path(QStringLiteral("pipe"))).constData(), 0600), 0);
        frmLogFile viewer(scene.texts);
        viewer.SetFileName(scene.Path(QStringLiteral("pipe"))); // hangs if it waits for the other end
        QCOMPARE(textOf(viewer).toPlainText(), QString());
        QVERIFY(textOf(viewer).placeholderText().startsWith(scene.texts.Text(522)));
    }
};

QTEST_MAIN(TestLogCommands)
#include "test_logcommands.moc"
