// The boxes that ask the user: what they show and which answer each way of closing them gives.
#include "MessageBoxPrompter.h"
#include "ModalForm.h"
#include "StringTable.h"
#include "frmDisclaimer.h"
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

Q_DECLARE_METATYPE(MessageButtons)
Q_DECLARE_METATYPE(MessageAnswer)
Q_DECLARE_METATYPE(std::function<void(frmDisclaimer&)>)

class TestQuestions : public QObject {
    Q_OBJECT

    StringTable m_texts{Language::English};

    static Message message(MessageButtons buttons) {
        return {u"<b>file</b><img src='x'>"_qs, u"T"_qs, MessageIcon::Question, buttons};
    }

  private Q_SLOTS:
    void answers_data() {
        QTest::addColumn<MessageButtons>("buttons");
        QTest::addColumn<int>("key");
        QTest::addColumn<MessageAnswer>("answer");
        QTest::newRow("Escape is No") << MessageButtons::YesNo << int(Qt::Key_Escape) << MessageAnswer::No;
        QTest::newRow("Enter is the safe answer") << MessageButtons::YesNo << int(Qt::Key_Return) << MessageAnswer::No;
        QTest::newRow("Yes is Yes") << MessageButtons::YesNo << int(Qt::Key_Y) << MessageAnswer::Yes;
        QTest::newRow("Escape is Cancel") << MessageButtons::OkCancel << int(Qt::Key_Escape) << MessageAnswer::Cancel;
        QTest::newRow("Escape is OK") << MessageButtons::Ok << int(Qt::Key_Escape) << MessageAnswer::Ok;
    }
    void answers() {
        QFETCH(MessageButtons, buttons);
        QFETCH(int, key);
        QWidget hidden;
        MessageBoxPrompter prompter(m_texts);
        prompter.SetWindow(&hidden);
        WhenOpen<QMessageBox>([&](QMessageBox& box) {
            QCOMPARE(box.text(), message(buttons).text); // of file names, which may hold anything
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QVERIFY(box.parentWidget() == nullptr); // or it would be hidden too
            if (key == Qt::Key_Y)
                box.button(QMessageBox::Yes)->click();
            else
                QTest::keyClick(&box, static_cast<Qt::Key>(key));
        });
        QTEST(prompter.Ask(message(buttons)), "answer");
    }

    void afterTheUserHasLeftNothingWaits() {
        MessageBoxPrompter prompter(m_texts);
        WhenOpen<QMessageBox>([&](QMessageBox&) { prompter.StopAsking(); });
        QCOMPARE(prompter.Ask(message(MessageButtons::YesNo)), MessageAnswer::No);
        QCOMPARE(prompter.Ask(message(MessageButtons::YesNo)), MessageAnswer::No); // hangs if it still opens a box
    }

    void noticeIsAcceptedByItsButtonOnly_data() {
        QTest::addColumn<std::function<void(frmDisclaimer&)>>("act");
        QTest::addColumn<int>("result");
        using Act = std::function<void(frmDisclaimer&)>;
        const auto press = [](const char* button) {
            return Act([button](frmDisclaimer& notice) { Find<QPushButton>(notice, button).click(); });
        };
        const auto type = [](Qt::Key key) {
            return Act([key](frmDisclaimer& notice) { QTest::keyClick(&notice, key); });
        };
        QTest::newRow("Accept") << press("cmdAccept") << int(QDialog::Accepted);
        QTest::newRow("Decline") << press("cmdDecline") << int(QDialog::Rejected);
        QTest::newRow("Enter") << type(Qt::Key_Return) << int(QDialog::Rejected);
        QTest::newRow("Escape") << type(Qt::Key_Escape) << int(QDialog::Rejected);
        QTest::newRow("close box") << Act([](frmDisclaimer& notice) { notice.close(); }) << int(QDialog::Rejected);
    }
    void noticeIsAcceptedByItsButtonOnly() {
        QFETCH(std::function<void(frmDisclaimer&)>, act);
        frmDisclaimer notice(m_texts);
        notice.show();
        const auto& label = Find<QLabel>(notice, "lblNotice");
        QCOMPARE(label.text(), m_texts.Text(109));
        QVERIFY(label.height() >= label.heightForWidth(label.width())); // all of it
        QSignalSpy finished(&notice, &QDialog::finished);
        act(notice);
        QCOMPARE(finished.size(), 1);
        QTEST(notice.result(), "result");
    }
};

QTEST_MAIN(TestQuestions)
#include "test_questions.moc"
