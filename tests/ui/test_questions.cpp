// The boxes that ask the user: what they show and which answer each way of closing them gives.
#include "FilePicker.h"
#include "MessageBoxPrompter.h"
#include "ModalForm.h"
#include "ScratchFolder.h"
#include "StringTable.h"
#include "frmDisclaimer.h"
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

Q_DECLARE_METATYPE(MessageButtons)
Q_DECLARE_METATYPE(MessageAnswer)

class TestQuestions : public QObject {
    Q_OBJECT

    StringTable m_texts{Language::English};

    static Message message(MessageButtons buttons) {
        return {u"<b>file</b><img src='x'>\u202e\nnext"_qs, u"T"_qs, MessageIcon::Question, buttons};
    }

  private Q_SLOTS:
    void answers_data() {
        QTest::addColumn<MessageButtons>("buttons");
        QTest::addColumn<int>("key");
        QTest::addColumn<MessageAnswer>("answer");
        QTest::newRow("Escape is No") << MessageButtons::YesNo << int(Qt::Key_Escape) << MessageAnswer::No;
        QTest::newRow("Enter is the safe answer") << MessageButtons::YesNo << int(Qt::Key_Return) << MessageAnswer::No;
        QTest::newRow("Yes is Yes") << MessageButtons::YesNo << int(Qt::Key_Y) << MessageAnswer::Yes;
    }
    void answers() {
        QFETCH(MessageButtons, buttons);
        QFETCH(int, key);
        QWidget hidden;
        MessageBoxPrompter prompter(m_texts);
        prompter.SetWindow(&hidden);
        WhenOpen<QMessageBox>([&](QMessageBox& box) {
            QCOMPARE(box.text(), u"<b>file</b><img src='x'>\uFFFD\nnext"_qs); // of file names, which may hold anything
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QVERIFY(box.parentWidget() == nullptr); // or it would be hidden too
            if (key == Qt::Key_Y)
                box.button(QMessageBox::Yes)->click();
            else
                QTest::keyClick(&box, static_cast<Qt::Key>(key));
        });
        QTEST(prompter.Ask(message(buttons)), "answer");
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
};

QTEST_MAIN(TestQuestions)
#include "test_questions.moc"
