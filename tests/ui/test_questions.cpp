// The boxes that ask the user: what they show and which answer each way of closing them gives; and the abort key.
#include "DesktopKeyState.h"
#include "FilePicker.h"
#include "MessageBoxPrompter.h"
#include "ModalForm.h"
#include "ScratchFolder.h"
#include "StringTable.h"
#include "frmDisclaimer.h"
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

class TestQuestions : public QObject {
    Q_OBJECT

    StringTable m_texts{Language::English};

    static Message message(MessageButtons buttons) {
        return {u"<b>file</b><img src='x'>\u202e\nnext"_qs, u"T"_qs, MessageIcon::Question, buttons};
    }

  private Q_SLOTS:
    void answers() {
        QWidget hidden;
        MessageBoxPrompter prompter(m_texts);
        prompter.SetWindow(&hidden);
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Y}) { // Enter gives the safe answer
            WhenOpen<QMessageBox>([&](QMessageBox& box) {
                // Of file names, which may hold anything.
                QCOMPARE(box.text(), u"<b>file</b><img src='x'>\uFFFD\nnext"_qs);
                QCOMPARE(box.textFormat(), Qt::PlainText);
                QVERIFY(box.parentWidget() == nullptr); // or it would be hidden too
                if (key == Qt::Key_Y)
                    box.button(QMessageBox::Yes)->click();
                else
                    QTest::keyClick(&box, key);
            });
            QCOMPARE(prompter.Ask(message(MessageButtons::YesNo)),
                     key == Qt::Key_Y ? MessageAnswer::Yes : MessageAnswer::No);
        }
    }

    void aCountdownEndsByItselfOrIsCancelled() {
        MessageBoxPrompter prompter(m_texts);
        Message counted = message(MessageButtons::OkCancel);
        counted.countdown = std::chrono::seconds(2);
        for (const bool isCancelled : {true, false}) {
            WhenOpen<QMessageBox>([&](QMessageBox& box) {
                QCOMPARE(box.informativeText(), m_texts[Text::SecondsLeft].arg(2));
                const auto aSecondLater = [timer = box.findChild<QTimer*>()] {
                    QVERIFY(QMetaObject::invokeMethod(timer, "timeout"));
                };
                aSecondLater();
                QCOMPARE(box.informativeText(), m_texts[Text::SecondsLeft].arg(1));
                isCancelled ? QTest::keyClick(&box, Qt::Key_Escape) : aSecondLater();
            });
            QCOMPARE(prompter.Ask(counted), isCancelled ? MessageAnswer::Cancel : MessageAnswer::Ok);
        }
    }

    void afterTheUserHasLeftNothingWaits() {
        MessageBoxPrompter prompter(m_texts);
        WhenOpen<QMessageBox>([&](QMessageBox&) { prompter.StopAsking(); });
        QCOMPARE(prompter.Ask(message(MessageButtons::YesNo)), MessageAnswer::No);
        QCOMPARE(prompter.Ask(message(MessageButtons::YesNo)), MessageAnswer::No); // hangs if it still opens a box
    }

    void aNameWithoutSuffixReplacesNothingUnasked() {
        ScratchFolder folder;
        QVERIFY(folder.Write(u"copy.kvd"_qs, "old"));
        const QString preset = folder.Path(u"present.kvd"_qs);
        WhenOpen<QFileDialog>([](QFileDialog& dialog) {
            Find<QLineEdit>(dialog, "fileNameEdit").setText(u"copy"_qs);
            WhenOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
            Find<QDialogButtonBox>(dialog, "buttonBox").button(QDialogButtonBox::Save)->click();
            QVERIFY(dialog.isVisible());
        });
        const FileRequest request{
            .title = {}, .filters = {u"K (*.kvd)"_qs}, .folder = {}, .file = preset, .suffix = u"kvd"_qs};
        QVERIFY(!MakeFilePicker()->SaveFile(request, true).has_value());
    }

    void noticeIsAcceptedByItsButtonOnly() {
        const auto result = [&](const std::function<void(frmDisclaimer&)>& act) {
            frmDisclaimer notice(m_texts);
            notice.show();
            QSignalSpy finished(&notice, &QDialog::finished);
            act(notice);
            return finished.size() == 1 ? notice.result() : -1;
        };
        const auto press = [](const char* name) {
            return [name](frmDisclaimer& notice) { Find<QPushButton>(notice, name).click(); };
        };
        QCOMPARE(result(press("cmdAccept")), int(QDialog::Accepted));
        QCOMPARE(result(press("cmdDecline")), int(QDialog::Rejected));
        QCOMPARE(result([](frmDisclaimer& notice) { notice.close(); }), int(QDialog::Rejected));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape})
            QCOMPARE(result([key](frmDisclaimer& notice) { QTest::keyClick(&notice, key); }), int(QDialog::Rejected));
    }

    void theAbortKeyIsDownWhileItIsHeldHere() {
        const auto keys = MakeDesktopKeyState(*qApp);
        QWidget window;
        const auto isDownAfter = [&](QEvent::Type type, Qt::Key key, bool repeat = false) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
            QCoreApplication::sendEvent(&window, &event);
            return keys->IsF8Down();
        };
        QVERIFY(!isDownAfter(QEvent::KeyPress, Qt::Key_F7));
        QVERIFY(isDownAfter(QEvent::KeyPress, Qt::Key_F8));
        QVERIFY(isDownAfter(QEvent::KeyRelease, Qt::Key_F8, true)); // auto-repeat
        QVERIFY(!isDownAfter(QEvent::KeyRelease, Qt::Key_F8));
        QVERIFY(isDownAfter(QEvent::KeyPress, Qt::Key_F8));
        QEvent change(QEvent::ApplicationStateChange); // the focus goes elsewhere
        QCoreApplication::sendEvent(qApp, &change);
        QVERIFY(!keys->IsF8Down());
    }
};

QTEST_MAIN(TestQuestions)
#include "test_questions.moc"
