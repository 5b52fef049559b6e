// The logs in the window: what is shown, found, told apart and deleted, and what a log that changes meanwhile does.
#include "BackgroundRead.h"
#include "DialogHost.h"
#include "LogCommands.h"
#include "LogKinds.h"
#include "LogWindows.h"
#include "ModalForm.h"
#include "ProgramFixture.h"
#include "Prompter.h"
#include "RunFacts.h"
#include "SyncTexts.h"
#include "SystemWorld.h"
#include "Table.h"
#include "UndoCommand.h"
#include "frmLogFile.h"
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>

namespace {

struct Scene : ProgramFixture {
    /// The windows beside the main window.
    static QList<frmLogFile*> Windows() {
        QList<frmLogFile*> all;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* form = qobject_cast<frmLogFile*>(widget); form != nullptr && form->isVisible())
                all.append(form);
        return all;
    }
    frmLogFile& Show(const QString& log, std::optional<qint64> position = {}) {
        windows.Show(Native(log), position);
        return *Windows().constLast();
    }
    void Append(const QString& log, const QByteArray& bytes) const {
        QFile file(Path(log));
        QVERIFY(file.open(QIODevice::Append));
        file.write(bytes);
    }

    DialogHost dialogs;
    UndoCommand undo{startWithActivities()};
    LogWindows windows{texts, [this](const QString& kept) { undo.UndoRun(kept); }};
    LogCommands logs{*program, dialogs, windows};

  private:
    Program& startWithActivities() {
        for (const char* name : {"A", "B", "C"})
            Add(QLatin1String(name));
        Add(u"None"_qs, {{u"logfile"_qs, u" "_qs}});
        Add(u"Keeps"_qs, {{u"action"_qs, u"3"_qs}, {u"keepdays"_qs, u"3"_qs}});
        return Start();
    }
};

QPlainTextEdit& textOf(const frmLogFile& viewer) {
    return Find<QPlainTextEdit>(viewer, "rtfText");
}

QByteArray entry(const QByteArray& text) {
    return "-> [15.11.2026 05:34:48] " + text + "\r\n";
}

const QByteArray copied = entry("Activity 'A' - Copy file '/a' [x] to '/b'");
const QByteArray failed = entry("Activity 'A' - Copy/move from '/a' failed - Error5");

} // namespace

class TestLogs : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void showsOneAfterTheOther() {
        Scene scene;
        scene.Write(u"A.log"_qs, "first\r\nlast \xC3\xA4\xFF\r\n");
        scene.Write(u"B.log"_qs, "b");
        QStringList expected{u"first\nlast %1\n"_qs.arg(QString::fromLocal8Bit("\xC3\xA4\xFF")), u"new"_qs, u"b"_qs};
        const auto look = [&](const frmLogFile& viewer) {
            QTRY_COMPARE(textOf(viewer).toPlainText(), expected.first());
            expected.removeFirst();
        };
        WhenOpen<frmLogFile>([&](frmLogFile& viewer) {
            look(viewer);
            scene.Write(u"A.log"_qs, "new");
            QTest::keyClick(&viewer, Qt::Key_F5);
            look(viewer);
            WhenOpen<frmLogFile>(look);
        });
        scene.logs.ShowActivityLogs({u"A"_qs, u"gone"_qs, u"B"_qs, u"C"_qs, u"A"_qs});
        QCOMPARE(expected, QStringList());
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
        QTRY_VERIFY(box.toPlainText().endsWith(u"zlast"));
        QVERIFY(isBounded());
        // Up to the beginning: no line is left out between two parts, and what was in view stays there.
        int next = -1;
        for (int parts = 0; !box.toPlainText().startsWith(u"0x") && parts < 40; ++parts) {
            const QString top = lineAt(0);
            bar.setValue(bar.minimum());
            QTRY_VERIFY(bar.value() > 0);
            QVERIFY(isBounded());
            QCOMPARE(lineAt(bar.value()), top);
            const int above = lineAt(bar.value() - 1).remove(QRegularExpression(u"[xyz].*"_qs)).toInt();
            if (next >= 0)
                QCOMPARE(above, next);
            next = top.startsWith(u'z') ? -1 : lineAt(0).remove(QRegularExpression(u"[xyz].*"_qs)).toInt() - 1;
        }
        QVERIFY(box.toPlainText().startsWith(u"0x"));
        // And down again.
        for (int parts = 0; !box.toPlainText().endsWith(u"last") && parts < 40; ++parts) {
            const QString bottom = box.toPlainText().trimmed().section(u'\n', -1);
            bar.setValue(bar.maximum());
            QTRY_VERIFY(bar.value() < bar.maximum());
            QVERIFY(isBounded() && box.toPlainText().contains(bottom));
        }
        QVERIFY(box.toPlainText().endsWith(u"last"));
        QTest::keyClick(&box, Qt::Key_Home, Qt::ControlModifier);
        QTRY_VERIFY(box.toPlainText().startsWith(u"0x"));
        QTest::keyClick(&viewer, Qt::Key_F5);
        QTRY_VERIFY(box.toPlainText().endsWith(u"last"));
    }

    void deletesConfirmedRegularFilesOnly() {
        /// What the boxes say, and "gone" when the file is.
        const auto removal = [](const QString& log, const QString& kind, bool yes) {
            Scene scene;
            scene.prompter.yes = yes;
            if (kind != u"not set")
                scene.program->Options().LoggingPath = scene.Path(u"app.log"_qs);
            if (kind == u"file")
                scene.Write(log, "text");
            else if (kind == u"folder")
                QDir().mkpath(scene.Path(log));
            else if (kind == u"pipe")
                SystemWorld::MakeFifo(scene.Native(log));
            const bool before = scene.Exists(log);
            if (log == u"app.log")
                scene.logs.DeleteApplicationLog();
            else
                scene.logs.DeleteActivityLog(u"A"_qs);
            if (before && !scene.Exists(log))
                scene.prompter.shown.push_back({{}, u"gone"_qs});
            return QDir::fromNativeSeparators(scene.prompter.Told().join(u' ').replace(scene.Path(), u"~"_qs));
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

    void whatCannotBeReadIsNotWaitedFor() {
        Scene scene;
        if (SystemWorld::CanMake("fifo")) {
            SystemWorld::MakeFifo(scene.Native(u"pipe"_qs));
            const frmLogFile& window = scene.Show(u"pipe"_qs);
            QTRY_VERIFY(textOf(window).placeholderText().startsWith(scene.texts[Text::LogUnreadable]));
        }
        // A drive that holds the job: neither the next job nor the end waits for it, and its result is dropped.
        std::promise<void> drive;
        bool delivered = false;
        auto reads = std::make_unique<BackgroundRead>();
        reads->Run([answer = drive.get_future().share(), &delivered](const std::atomic_bool&) {
            answer.wait();
            return [&delivered] { delivered = true; };
        });
        reads.reset();
        drive.set_value();
        QTest::qWait(0);
        QVERIFY(!delivered);
    }

    void kindsAreThoseOfTheEngine_data() {
        const Table<QString, int> table;
        const FileFacts facts{.kind = EntryKind::File};
        const QString path = u"/a/Copy file 'x' - b"_qs;
        const FileSide side{path, facts};
        for (const Language language : {Language::English, Language::German}) {
            const StringTable strings(language);
            const SyncTexts lines(strings);
            const auto add = [&table](const QString& line, LogKind kind) { table.Add(line, static_cast<int>(kind)); };
            for (const bool asks : {false, true})
                for (const bool onlyNewer : {false, true}) {
                    add(lines.Replacement({FileAction::Copy, asks, onlyNewer}, side, side), LogKind::Copied);
                    if (!asks || !onlyNewer) // else the line does not tell
                        add(lines.Replacement({FileAction::Move, asks, onlyNewer}, side, side), LogKind::Moved);
                }
            add(lines.New(FileAction::Copy, side, path), LogKind::Copied);
            add(lines.TransferringFolder(path, path), LogKind::Copied);
            add(lines.New(FileAction::Move, side, path), LogKind::Moved);
            add(lines.FinishingMove(path, path), LogKind::Moved);
            add(lines.DeletingFile(path), LogKind::Deleted);
            add(lines.DeletingFolder(path), LogKind::Deleted);
            add(lines.Failure(path, std::make_error_code(std::errc::text_file_busy)), LogKind::Failed);
            add(lines.Failure(path, std::make_error_code(std::errc::io_error)), LogKind::Failed);
            for (const RunEnd end :
                 {RunEnd::RecordChanged, RunEnd::RootGone, RunEnd::Unreadable, RunEnd::FolderExchanged})
                add(lines.EndedEarly(end), LogKind::Failed);
            for (const QString& line : {lines.OwnFile(path), lines.NestedRoot(path), lines.TooDeep(path)})
                add(line, LogKind::Failed);
            for (const QString& line :
                 {lines.NotNewer(side, side), lines.NoAction(path), lines.Declined(path), lines.OtherMount(path),
                  lines.EndedEarly(RunEnd::Closing), lines.EndedEarly(RunEnd::Stopped), QString(),
                  strings[Text::CheckingFinished], strings[Text::RunSummary].arg(lines.EndedEarly(RunEnd::RootGone))})
                add(line, LogKind::Other);
        }
    }
    void kindsAreThoseOfTheEngine() {
        const auto [line, kind] = Table<QString, int>::Current();
        for (const Language language : {Language::English, Language::German}) {
            const QString prefix = StringTable(language)[Text::ActivityQuote] + u"Copy' - ";
            const QByteArray written = entry((prefix + line).toLocal8Bit()).trimmed();
            QCOMPARE(static_cast<int>(LogKinds().Of(written)), kind);
        }
        QCOMPARE(LogKinds().Of(line.toLocal8Bit()), LogKind::Other); // an entry of no log
    }

    /// Lines that no function composes: as a run writes them.
    void kindsOfAWholeRun() {
        ProgramFixture fixture;
        fixture.Add(u"A"_qs, {{u"executeable"_qs, u"/no/program"_qs}});
        fixture.Add(u"B"_qs, {{u"sourcedir"_qs, fixture.Path(u"gone"_qs)}});
        Program& program = fixture.Start();
        fixture.process->succeeds = false;
        fixture.Write(u"src/f"_qs, "x");
        fixture.Write(u"app.log"_qs, "");
        program.Options().StopIfFolderNotExist = 1;
        program.RunNow(u"A"_qs);
        program.RunNow(u"B"_qs);
        program.Options().StopIfFolderNotExist = 0;
        program.RunNow(u"B"_qs);
        QStringList failures;
        QStringList copies;
        const LogKinds kinds;
        for (const char* log : {"A.log", "B.log", "app.log"})
            for (const QByteArray& line : fixture.Read(QLatin1String(log)).split('\n')) {
                const LogKind kind = kinds.Of(line.trimmed());
                if (kind != LogKind::Other)
                    (kind == LogKind::Failed ? failures : copies).append(QString::fromLocal8Bit(line));
            }
        QCOMPARE(copies.size(), 1);
        QCOMPARE(failures.size(), 5); // the program, and the folder twice in both logs
        QVERIFY(failures.first().contains(u"could not executed"));
    }

    void findsWhatIsNotLoaded() {
        Scene scene;
        QByteArray log;
        for (int line = 0; line < 60'000; ++line)
            log += QByteArray::number(line) + (line == 5 ? " Needle" : " hay") + QByteArray(60, '.') + "\r\n";
        scene.Write(u"A.log"_qs, log + QByteArray(10'000'000, 'z') + "needle in a long line\r\nend\r\n");
        frmLogFile& window = scene.Show(u"A.log"_qs);
        QPlainTextEdit& box = textOf(window);
        QTRY_VERIFY(box.toPlainText().endsWith(u"end\n"));
        QTest::keyClick(&box, Qt::Key_F, Qt::ControlModifier);
        auto& text = Find<QLineEdit>(window, "txtSearchText");
        auto& notice = Find<QLabel>(window, "lblSearchNotice");
        QTRY_VERIFY(text.isVisible());
        text.setText(u"needle"_qs);
        const auto found = [&]() -> QString {
            return box.textCursor().block().text().left(8) + u'|' + box.textCursor().selectedText();
        };
        QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier);
        QTRY_COMPARE(found().right(7), u"|needle"_qs);
        QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier);
        QTRY_COMPARE(found(), u"5 Needle|Needle"_qs);
        QVERIFY(notice.isHidden());
        Find<QCheckBox>(window, "chkMatchCase").click();
        QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier); // only the other one is left: from the end on
        QTRY_COMPARE(notice.text(), scene.texts[Text::WrappedToEnd]);
        QTRY_COMPARE(found().right(7), u"|needle"_qs);
        text.setText(u"NEEDLE"_qs);
        QTest::keyClick(&text, Qt::Key_F3);
        QTRY_COMPARE(notice.text(), scene.texts[Text::SearchNotFound]);
        QTest::keyClick(&text, Qt::Key_Escape);
        QVERIFY(text.isHidden() || !text.isVisible());
        QVERIFY(window.isVisible());
    }

    void showsTheLinesOfAKind() {
        Scene scene;
        QByteArray log = failed;
        for (int line = 0; line < 60'000; ++line)
            log += copied;
        scene.Write(u"A.log"_qs, log + failed + copied);
        frmLogFile& window = scene.Show(u"A.log"_qs);
        QPlainTextEdit& box = textOf(window);
        QTRY_VERIFY(box.blockCount() > 100);
        Find<QCheckBox>(window, "chkFailed").click();
        QTRY_COMPARE(box.toPlainText(), QString::fromLatin1(failed + failed).remove(u'\r'));
        QTextCursor first(box.document());
        first.movePosition(QTextCursor::Right);
        QCOMPARE(first.charFormat().fontWeight(), int(QFont::Bold));
        box.moveCursor(QTextCursor::Start);
        QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier); // nothing is selected: the line
        QCOMPARE(QGuiApplication::clipboard()->text(), QString::fromLatin1(failed).trimmed());
        Find<QCheckBox>(window, "chkDeleted").click();
        Find<QCheckBox>(window, "chkFailed").click();
        QTRY_COMPARE(box.toPlainText(), QString());
        QTRY_COMPARE(box.placeholderText(), scene.texts[Text::NoSuchLines]);
    }

    void followsTheEndOrStays() {
        Scene scene;
        QByteArray log;
        for (int line = 0; line < 500; ++line)
            log += QByteArray::number(line) + "\r\n";
        scene.Write(u"A.log"_qs, log + "half");
        frmLogFile& window = scene.Show(u"A.log"_qs);
        QPlainTextEdit& box = textOf(window);
        QScrollBar& bar = *box.verticalScrollBar();
        auto& follow = Find<QCheckBox>(window, "chkFollow");
        QTRY_VERIFY(box.toPlainText().endsWith(u"half") && follow.isChecked());
        scene.Append(u"A.log"_qs, " line\r\nnew\r\n");
        QTRY_VERIFY(box.toPlainText().endsWith(u"499\nhalf line\nnew\n"));
        QTRY_COMPARE(bar.value(), bar.maximum());

        bar.setValue(100);
        QVERIFY(!follow.isChecked());
        QTextCursor cursor(box.document()->findBlockByNumber(102));
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
        scene.Append(u"A.log"_qs, "newer\r\n");
        QTRY_VERIFY(box.toPlainText().endsWith(u"new\nnewer\n"));
        scene.Append(u"A.log"_qs, "newest\r\n");
        QTest::keyClick(&box, Qt::Key_F5);
        QTRY_VERIFY(box.toPlainText().endsWith(u"newer\nnewest\n"));
        QCOMPARE(bar.value(), 100);
        QCOMPARE(box.textCursor().selectedText(), u"102"_qs);

        scene.Write(u"A.log"_qs, log.replace("0\r\n", "zero\r\n") + "anew"); // as long, but another one
        QTRY_VERIFY(box.toPlainText().endsWith(u"anew"));
        QVERIFY(box.toPlainText().startsWith(u"zero\n"));
        QVERIFY(QFile::remove(scene.Path(u"A.log"_qs)));
        QTRY_VERIFY(Find<QLabel>(window, "lblLogNotice").text().startsWith(scene.texts[Text::LogUnreadable]));
        scene.Write(u"A.log"_qs, "again");
        QTRY_COMPARE(box.toPlainText(), u"again"_qs);
    }

    void oneWindowShowsTheLine() {
        Scene scene;
        QByteArray log;
        for (int line = 0; line < 200'000; ++line)
            log += QByteArray::number(line).rightJustified(10, ' ') + ".....\r\n"; // 17 bytes
        scene.Write(u"A.log"_qs, log);
        frmLogFile& window = scene.Show(u"A.log"_qs, 17 * 70'000 + 5);
        QPlainTextEdit& box = textOf(window);
        const auto caretLine = [&] { return box.textCursor().block().text().remove(u'.').trimmed(); };
        QTRY_COMPARE(caretLine(), u"70000"_qs);
        QCOMPARE(box.extraSelections().size(), 1);
        Find<QCheckBox>(window, "chkFailed").click();
        QTRY_COMPARE(box.toPlainText(), QString());
        scene.Show(u"A.log"_qs, 17 * 3); // a line that was filtered away
        QTRY_COMPARE(caretLine(), u"3"_qs);
        scene.Show(u"A.log"_qs, log.size() + 1000);
        QTRY_VERIFY(box.toPlainText().endsWith(u"199999.....\n"));
        QCOMPARE(Scene::Windows(), QList<frmLogFile*>{&window});
        window.close();
        scene.Show(u"A.log"_qs);
        scene.windows.Show(scene.Native(u"B.log"_qs), {});
        QCOMPARE(Scene::Windows().size(), 2);
        scene.windows.CloseAll();
        QCOMPARE(Scene::Windows().size(), 0);
    }

    void undoesTheRunAtTheCaret() {
        Scene scene;
        for (const char* surplus : {"first", "second"}) {
            scene.Write(u"dst/"_qs + QLatin1String(surplus), "1");
            QVERIFY(scene.program->RunNow(u"Keeps"_qs).Succeeded());
        }
        frmLogFile& window = scene.Show(u"Keeps.log"_qs, 0); // in the lines of the first run
        QTRY_VERIFY(!textOf(window).toPlainText().isEmpty());
        auto& undo = Find<QPushButton>(window, "cmdUndoRun");
        const auto boxes = [&](bool yes) {
            scene.prompter.yes = yes;
            scene.prompter.shown.clear();
            undo.click();
            QCoreApplication::processEvents();
            return scene.prompter.shown.size();
        };
        QCOMPARE(boxes(false), 1U);
        QVERIFY(!scene.Exists(u"dst/first"_qs));
        QCOMPARE(boxes(true), 2U);
        QVERIFY(scene.Exists(u"dst/first"_qs) && !scene.Exists(u"dst/second"_qs));
        QVERIFY(scene.prompter.shown.back().text.startsWith(u"1 "_qs));
        QCOMPARE(boxes(true), 1U); // nothing is kept there any more
        scene.windows.CloseAll();
    }

    void choosesTheLog() {
        Scene scene;
        const auto shown = [&](const QString& name) {
            scene.logs.ShowLogWindow(name);
            const QList<frmLogFile*> windows = Scene::Windows();
            const QString title = windows.isEmpty() ? QString() : windows.constFirst()->windowTitle();
            scene.windows.CloseAll();
            QCoreApplication::processEvents();
            return title.section(u'[', 1).section(QDir::separator(), -1);
        };
        QCOMPARE(shown(u"A"_qs), u"A.log]"_qs);
        QCOMPARE(shown(u"None"_qs), u"app.log]"_qs);
        QCOMPARE(shown({}), u"app.log]"_qs);
        QVERIFY(scene.prompter.Told().isEmpty());
        scene.program->Options().LoggingPath.clear();
        QCOMPARE(shown(u"None"_qs), QString());
        QCOMPARE(scene.prompter.shown.size(), 1U);
    }
};

QTEST_MAIN(TestLogs)
#include "test_logs.moc"
