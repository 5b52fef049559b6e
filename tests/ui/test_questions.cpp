// The boxes that ask the user: what they show and which answer each way of closing them gives.
#include "MessageBoxPrompter.h"
#include "StringTable.h"
#include "frmDisclaimer.h"
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

Q_DECLARE_METATYPE(MessageButtons)
Q_DECLARE_METATYPE(MessageAnswer)

class TestQuestions : public QObject {
    Q_OBJECT

    StringTable m_texts{Language::English};

    /// Does something to the box as soon as it is open.
    template <typename Act>
    static void whenOpen(Act act) {
        QTimer::singleShot(0, qApp, [act] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr)
                QFAIL("no box is open");
            act(*box);
        });
    }

  private Q_SLOTS:
    void answers_data() {
        QTest::addColumn<MessageButtons>("buttons");
        QTest::addColumn<int>("key");
        QTest::addColumn<MessageAnswer>("answer");
        QTest::newRow("Escape is No") << MessageButtons::YesNo << int(Qt::Key_Escape) << MessageAnswer::No;
        QTest::newRow("Enter is the safe answer") << MessageButtons::YesNo << int(Qt::Key_Return) << MessageAnswer::No;
        QTest::newRow("Escape is Cancel") << MessageButtons::OkCancel << int(Qt::Key_Escape) << MessageAnswer::Cancel;
        QTest::newRow("Escape is OK") << MessageButtons::Ok << int(Qt::Key_Escape) << MessageAnswer::Ok;
    }
    void answers() {
        QFETCH(MessageButtons, buttons);
        QFETCH(int, key);
        MessageBoxPrompter prompter(m_texts);
        whenOpen([key](QMessageBox& box) { QTest::keyClick(&box, static_cast<Qt::Key>(key)); });
        QTEST(prompter.Ask({QStringLiteral("?"), QStringLiteral("T"), MessageIcon::Question, buttons}), "answer");
    }

    void yesIsYes() {
        MessageBoxPrompter prompter(m_texts);
        whenOpen([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        QCOMPARE(prompter.Ask({QStringLiteral("?"), {}, MessageIcon::Question, MessageButtons::YesNo}),
                 MessageAnswer::Yes);
    }

    void markupInFileNamesIsShownAsWritten() {
        MessageBoxPrompter prompter(m_texts);
        const QString text = QStringLiteral("<b>file</b><img src='x'>");
        QString shown;
        Qt::TextFormat format = Qt::AutoText;
        whenOpen([&](QMessageBox& box) {
            shown = box.text();
            format = box.textFormat();
            box.reject();
        });
        prompter.Ask({text, QStringLiteral("T"), MessageIcon::Information, MessageButtons::Ok});
        QCOMPARE(shown, text);
        QCOMPARE(format, Qt::PlainText);
    }

    void boxOfAHiddenWindowStandsAlone() {
        QWidget window;
        MessageBoxPrompter prompter(m_texts);
        prompter.SetWindow(&window);
        QWidget* parent = &window;
        whenOpen([&](QMessageBox& box) {
            parent = box.parentWidget();
            box.reject();
        });
        prompter.Ask({QStringLiteral("text"), {}, MessageIcon::Information, MessageButtons::Ok});
        QVERIFY(parent == nullptr);
    }

    void afterTheUserHasLeftNothingWaits() {
        MessageBoxPrompter prompter(m_texts);
        const Message question{QStringLiteral("?"), {}, MessageIcon::Question, MessageButtons::YesNo};
        whenOpen([&](QMessageBox&) { prompter.StopAsking(); });
        QCOMPARE(prompter.Ask(question), MessageAnswer::No);
        QCOMPARE(prompter.Ask(question), MessageAnswer::No); // hangs if it still opens a box
    }

    void noticeIsAcceptedByItsButtonOnly_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("result");
        const int accepted = QDialog::Accepted;
        const int rejected = QDialog::Rejected;
        QTest::newRow("Accept") << QStringLiteral("cmdAccept") << 0 << accepted;
        QTest::newRow("Decline") << QStringLiteral("cmdDecline") << 0 << rejected;
        QTest::newRow("Enter") << QString() << int(Qt::Key_Return) << rejected;
        QTest::newRow("Escape") << QString() << int(Qt::Key_Escape) << rejected;
        QTest::newRow("close box") << QString() << 0 << rejected;
    }
    void noticeIsAcceptedByItsButtonOnly() {
        QFETCH(QString, button);
        QFETCH(int, key);
        frmDisclaimer notice(m_texts);
        notice.show();
        QSignalSpy finished(&notice, &QDialog::finished);
        if (!button.isEmpty())
            notice.findChild<QPushButton*>(button)->click();
        else if (key != 0)
            QTest::keyClick(&notice, static_cast<Qt::Key>(key));
        else
            notice.close();
        QCOMPARE(finished.size(), 1);
        QTEST(notice.result(), "result");
    }

    void noticeShowsItsWholeText() {
        frmDisclaimer notice(m_texts);
        notice.show();
        const auto* label = notice.findChild<QLabel*>(QStringLiteral("lblNotice"));
        QCOMPARE(label->text(), m_texts.Text(109));
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
    }
};

QTEST_MAIN(TestQuestions)
#include "test_questions.moc"
