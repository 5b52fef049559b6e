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
        scene.Write(u"A.log"_qs, "first\r\nlast \xC3\xA4\xFF\r\n");
        scene.Write(u"B.log"_qs, "b");
        QStringList captions;
        const auto look = [&](const frmLogFile& viewer) { captions.append(viewer.windowTitle()); };
        WhenOpen<frmLogFile>([&](const frmLogFile& viewer) {
            look(viewer);
            QCOMPARE(textOf(viewer).toPlainText(), u"first\nlast \u00e4\ufffd\n"_qs);
            WhenOpen<frmLogFile>(look);
        });
        scene.commands->ShowActivityLogs({u"A"_qs, u"gone"_qs, u"B"_qs, u"C"_qs, u"A"_qs});
        const QString caption = u"Kalvenor Log   [%1]"_qs;
        QCOMPARE(captions, (QStringList{caption.arg(scene.Path(u"A.log"_qs)), caption.arg(scene.Path(u"B.log"_qs))}));
        QCOMPARE(scene.prompter.Told(), QStringList{u"No logfile found: No logfile found for this activity."_qs});
    }

    void refreshes() {
        const auto refreshes = [](const QString& log, bool option, bool monitoring) {
            Scene scene;
            scene.Write(log, "one");
            scene.program->Options().LogfileRefresh = option ? 1 : 0;
            if (monitoring)
                scene.program->Monitoring().ToggleMonitoring();
            bool isActive = false;
            WhenOpen<frmLogFile>([&](frmLogFile& viewer) {
                auto& timer = Find<QTimer>(viewer, "tmrRefresh");
                isActive = timer.isActive();
                scene.Write(log, "one\ntwo");
                QTest::keyClick(&textOf(viewer), Qt::Key_F5);
                QCOMPARE(textOf(viewer).toPlainText(), u"one\ntwo"_qs);
                QVERIFY(textOf(viewer).textCursor().atEnd());
                QVERIFY(QFile::remove(scene.Path(log)));
                if (isActive)
                    timer.start(0);
                else
                    QTest::keyClick(&viewer, Qt::Key_F5);
                QTRY_COMPARE(textOf(viewer).toPlainText(), QString());
            });
            if (log == u"app.log")
                scene.commands->ShowApplicationLog();
            else
                scene.commands->ShowActivityLogs({u"A"_qs});
            return isActive;
        };
        QVERIFY(refreshes(u"A.log"_qs, true, true));
        QVERIFY(!refreshes(u"A.log"_qs, false, true));
        QVERIFY(!refreshes(u"A.log"_qs, true, false));
        QVERIFY(!refreshes(u"app.log"_qs, true, true));
    }

    void largeLogShowsItsEnd() {
        Scene scene;
        const QByteArray line = "-> [01.02.2026 10:11:12] " + QByteArray(1000, 'x') + "\r\n";
        scene.Write(u"A.log"_qs, line.repeated(5000) + QByteArray(3'000'000, 'y') + "\r\nlast");
        frmLogFile viewer(scene.texts);
        viewer.SetFileName(scene.Path(u"A.log"_qs));
        viewer.show();
        const QString text = textOf(viewer).toPlainText();
        const QStringList lines = text.split(u'\n');
        QCOMPARE(lines.first(), u"[Only the last 4 MiB of this logfile are shown.]"_qs);
        QVERIFY(lines[2].startsWith(u"-> ["));
        QCOMPARE(lines.last(), u"last"_qs);
        for (const QString& each : lines)
            QVERIFY(each.size() <= 10'000); // the box would need minutes for one line of millions
        QVERIFY(text.size() > 4'100'000 && text.size() < 4'300'000);
        QVERIFY(textOf(viewer).viewport()->rect().contains(textOf(viewer).cursorRect().center()));
    }

    void deletesConfirmedRegularFilesOnly() {
        /// What is told, and "gone" when the file is.
        const auto removal = [](const QString& log, const QString& kind, bool yes) {
            Scene scene;
            scene.prompter.yes = yes;
            if (kind == u"file")
                scene.Write(log, "text");
            else if (kind == u"folder")
                QDir().mkpath(scene.Path(log));
            else if (kind == u"pipe" && mkfifo(QFile::encodeName(scene.Path(log)).constData(), 0600) != 0)
                qFatal("no pipe");
            else if (kind == u"not set")
                scene.program->Options().LoggingPath.clear();
            const bool before = scene.Exists(log);
            if (log == u"app.log")
                scene.commands->DeleteApplicationLog();
            else
                scene.commands->DeleteActivityLog(u"A"_qs);
            if (before && !scene.Exists(log))
                scene.prompter.shown.push_back({{}, u"gone"_qs});
            return scene.prompter.Told().join(u' ').replace(scene.dir.path(), u"~"_qs);
        };
        const QString ask = u"Delete Kalvenor logfile: Really delete the Kalvenor logfile?"_qs;
        const QString none = u"No logfile found: No logfile found for Kalvenor Pro."_qs;
        QCOMPARE(removal(u"app.log"_qs, u"file"_qs, true), ask + u" gone: ");
        QCOMPARE(removal(u"app.log"_qs, u"file"_qs, false), ask);
        for (const QString& kind : {u"folder"_qs, u"not set"_qs})
            QCOMPARE(removal(u"app.log"_qs, kind, true), none);
        const QString askOne = u"Delete activity logfile: Should the logfile '~/A.log' really be deleted?"_qs;
        const QString noneOne = u"No logfile found: There is no logfile for this activity that can be deleted."_qs;
        QCOMPARE(removal(u"A.log"_qs, u"file"_qs, true), askOne + u" gone: ");
        QCOMPARE(removal(u"A.log"_qs, u"file"_qs, false), askOne);
        for (const QString& kind : {u"missing"_qs, u"folder"_qs, u"pipe"_qs})
            QCOMPARE(removal(u"A.log"_qs, kind, true), noneOne);
    }

    void whatIsNoLogIsNotWaitedFor() {
        Scene scene;
        QCOMPARE(mkfifo(QFile::encodeName(scene.Path(u"pipe"_qs)).constData(), 0600), 0);
        frmLogFile viewer(scene.texts);
        viewer.SetFileName(scene.Path(u"pipe"_qs)); // hangs if it waits for the other end
        QCOMPARE(textOf(viewer).toPlainText(), QString());
        QVERIFY(textOf(viewer).placeholderText().startsWith(scene.texts.Text(522)));
    }
};

QTEST_MAIN(TestLogCommands)
#include "test_logcommands.moc"
