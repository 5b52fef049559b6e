// Logs in the window: which are shown, how they are read, and that only a confirmed regular file is deleted.
#include "DialogHost.h"
#include "LogCommands.h"
#include "ModalForm.h"
#include "ProgramFixture.h"
#include "frmLogFile.h"
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
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
        QStringList shown;
        const auto look = [&](const frmLogFile& viewer) { shown.append(textOf(viewer).toPlainText()); };
        WhenOpen<frmLogFile>([&](frmLogFile& viewer) {
            look(viewer);
            scene.Write(u"A.log"_qs, "new");
            QTest::keyClick(&viewer, Qt::Key_F5);
            look(viewer);
            WhenOpen<frmLogFile>(look);
        });
        scene.commands->ShowActivityLogs({u"A"_qs, u"gone"_qs, u"B"_qs, u"C"_qs, u"A"_qs});
        QCOMPARE(shown, (QStringList{u"first\nlast \u00e4\ufffd\n"_qs, u"new"_qs, u"b"_qs}));
        QCOMPARE(scene.prompter.Told(), QStringList{u"No logfile found: No logfile found for this activity."_qs});
    }

    void largeLogIsReadInParts() {
        Scene scene;
        constexpr int lines = 100'000;
        QByteArray log;
        for (int line = 0; line < lines; ++line)
            log += QByteArray::number(line) + QByteArray(70, line % 2 == 0 ? 'x' : 'y') + "\r\n";
        scene.Write(u"A.log"_qs, log + QByteArray(3'000'000, 'z') + "last");
        frmLogFile viewer(scene.texts);
        viewer.SetFileName(scene.Path(u"A.log"_qs));
        viewer.show();
        QPlainTextEdit& box = textOf(viewer);
        QScrollBar& bar = *box.verticalScrollBar();
        const auto isBounded = [&] {
            for (const QString& line : box.toPlainText().split(u'\n'))
                if (line.size() > 10'000) // the box would need minutes for one line of millions
                    return false;
            return box.toPlainText().size() <= 2 * 1024 * 1024 + 1000;
        };
        const auto lineAt = [&](int row) { return box.document()->findBlockByNumber(row).text(); };
        QVERIFY(box.toPlainText().endsWith(u"zlast") && isBounded());
        // Up to the beginning: no line is left out between two parts, and what was in view stays there.
        int next = -1;
        for (int parts = 0; !box.toPlainText().startsWith(u"0x") && parts < 20; ++parts) {
            const QString top = lineAt(0);
            bar.setValue(bar.minimum());
            QCoreApplication::processEvents();
            QVERIFY(isBounded());
            QCOMPARE(lineAt(bar.value()), top);
            QVERIFY(bar.value() > 0);
            const int above = lineAt(bar.value() - 1).remove(QRegularExpression(u"[xyz].*"_qs)).toInt();
            if (next >= 0)
                QCOMPARE(above, next);
            next = top.startsWith(u'z') ? -1 : lineAt(0).remove(QRegularExpression(u"[xyz].*"_qs)).toInt() - 1;
        }
        QVERIFY(box.toPlainText().startsWith(u"0x"));
        // And down again.
        for (int parts = 0; !box.toPlainText().endsWith(u"last") && parts < 20; ++parts) {
            const QString bottom = box.toPlainText().trimmed().section(u'\n', -1);
            bar.setValue(bar.maximum());
            QCoreApplication::processEvents();
            QVERIFY(isBounded() && box.toPlainText().contains(bottom));
        }
        QVERIFY(box.toPlainText().endsWith(u"last"));
        QTest::keyClick(&box, Qt::Key_Home, Qt::ControlModifier);
        QVERIFY(box.toPlainText().startsWith(u"0x"));
        QTest::keyClick(&viewer, Qt::Key_F5);
        QVERIFY(box.toPlainText().endsWith(u"last"));
    }

    void deletesConfirmedRegularFilesOnly() {
        /// What the boxes say, and "gone" when the file is.
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
            return scene.prompter.Told().join(u' ').replace(scene.Path(), u"~"_qs);
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
        QVERIFY(textOf(viewer).placeholderText().startsWith(scene.texts[Text::LogUnreadable]));
    }
};

QTEST_MAIN(TestLogCommands)
#include "test_logcommands.moc"
