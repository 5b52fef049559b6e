// What the command line asks for, and whether a window would be seen.
#include "CommandLine.h"
#include <QDir>
#include <QtTest>

class TestCommandLine : public QObject {
    Q_OBJECT

    /// "kind: text -> file", the file relative to the present folder.
    static QString parsed(const QStringList& words) {
        const QStringList kinds{u"nothing"_qs, u"start"_qs, u"word"_qs, u"file"_qs};
        const CommandLine result = ParseCommandLine(words);
        QString said = kinds.at(static_cast<int>(result.kind)) + u": " + result.text;
        if (!result.file.isEmpty())
            said += u" -> " + QString(result.file).replace(QDir::currentPath() + u'/', u"./"_qs);
        return said;
    }

  private Q_SLOTS:
    void parses() {
        QCOMPARE(parsed({}), u"nothing: "_qs);
        QCOMPARE(parsed({u"STARTSERVICE"_qs}), u"start: STARTSERVICE"_qs);
        QCOMPARE(parsed({u"STARTSERVICE"_qs, u"x"_qs}), u"file: STARTSERVICE x -> ./STARTSERVICE x"_qs);
        QCOMPARE(parsed({u"/a/my"_qs, u"own"_qs, u"file.kvd"_qs}),
                 u"file: /a/my own file.kvd -> /a/my own file.kvd"_qs);
        QCOMPARE(parsed({u"\"\"/a\"\""_qs}), u"file: \"/a\" -> ./\"/a\""_qs); // one pair of quotes goes
        QCOMPARE(parsed({u"link/../b.kvd"_qs}), u"file: link/../b.kvd -> ./link/../b.kvd"_qs);
    }

    void leavesOutWhatQtTakes() {
        QCOMPARE(parsed({u"-plugin"_qs, u"xcb"_qs, u"--style"_qs, u"fusion"_qs, u"-reverse"_qs, u"/a.kvd"_qs}),
                 u"file: /a.kvd -> /a.kvd"_qs);
        QCOMPARE(parsed({u"STARTSERVICE"_qs, u"-platform"_qs, u"offscreen"_qs}), u"start: STARTSERVICE"_qs);
        QCOMPARE(parsed({u"/a.kvd"_qs, u"-platform"_qs}), u"file: /a.kvd -> /a.kvd"_qs); // its value is missing
    }

    void showsWindowsOnlyWhereSomebodySeesThem() {
        const QString display = u":0"_qs;
        QVERIFY(!ShowsWindows({{}, {}, {}}));
        QVERIFY(ShowsWindows({display, {}, {}}));
        QVERIFY(ShowsWindows({{}, u"wayland-0"_qs, {}}));
        QVERIFY(!ShowsWindows({display, {}, u"offscreen"_qs}));
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "test_commandline.moc"
