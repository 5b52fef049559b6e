// What the command line asks for, and whether a window would be seen.
#include "CommandLine.h"
#include "DisplayChoice.h"
#include <QDir>
#include <QtTest>

using Kind = CommandLine::Kind;
Q_DECLARE_METATYPE(CommandLine::Kind)

class TestCommandLine : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void parse_data() {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("file");
        const auto row = [](const char* name, const QStringList& words, Kind kind, const QString& text = {},
                            const QString& file = {}) { QTest::newRow(name) << words << kind << text << file; };
        const QString here = QDir::currentPath() + u'/';
        row("nothing", {}, Kind::Nothing);
        row("one empty word", {u""_qs}, Kind::Nothing);
        row("a pair of quotes only", {u"\"\""_qs}, Kind::Nothing);
        row("service", {u"STARTSERVICE"_qs}, Kind::StartService, u"STARTSERVICE"_qs);
        row("service is spelt exactly", {u"startService"_qs}, Kind::File, u"startService"_qs,
            here + u"startService"_qs);
        row("service and more", {u"STARTSERVICE"_qs, u"x"_qs}, Kind::File, u"STARTSERVICE x"_qs,
            here + u"STARTSERVICE x"_qs);
        row("path", {u"/a/b.kvd"_qs}, Kind::File, u"/a/b.kvd"_qs, u"/a/b.kvd"_qs);
        row("path in pieces", {u"/a/my"_qs, u"own"_qs, u"file.kvd"_qs}, Kind::File, u"/a/my own file.kvd"_qs,
            u"/a/my own file.kvd"_qs);
        row("quoted", {u"\"/a/my file.kvd\""_qs}, Kind::File, u"/a/my file.kvd"_qs, u"/a/my file.kvd"_qs);
        row("quotes inside stay", {u"/a/\"b\"/c"_qs}, Kind::File, u"/a/\"b\"/c"_qs, u"/a/\"b\"/c"_qs);
        row("one quote stays", {u"\""_qs}, Kind::File, u"\""_qs, here + u"\""_qs);
        row("only one pair goes", {u"\"\"/a\"\""_qs}, Kind::File, u"\"/a\""_qs, here + u"\"/a\""_qs);
        row("relative", {u"dir/../b.kvd"_qs}, Kind::File, u"dir/../b.kvd"_qs, here + u"b.kvd"_qs);
        row("blanks name no file", {u"  "_qs}, Kind::File, u"  "_qs, u""_qs);
        row("Qt's options", {u"-platform"_qs, u"xcb"_qs, u"--style"_qs, u"fusion"_qs, u"-reverse"_qs, u"/a.kvd"_qs},
            Kind::File, u"/a.kvd"_qs, u"/a.kvd"_qs);
        row("Qt's option around the service", {u"STARTSERVICE"_qs, u"-platform"_qs, u"offscreen"_qs},
            Kind::StartService, u"STARTSERVICE"_qs);
        row("Qt's assigned option", {u"-style=fusion"_qs}, Kind::Nothing);
        row("Qt's option without its value", {u"/a.kvd"_qs, u"-platform"_qs}, Kind::File, u"/a.kvd"_qs, u"/a.kvd"_qs);
    }
    void parse() {
        QFETCH(QStringList, words);
        const CommandLine result = ParseCommandLine(words);
        QTEST(result.kind, "kind");
        QTEST(result.text, "text");
        QTEST(result.file, "file");
    }

    void platformOfTheCommandLine() {
        QCOMPARE(ParseCommandLine({u"--platform"_qs, u"vnc:size=9x9"_qs}).platform, u"vnc:size=9x9"_qs);
        QCOMPARE(ParseCommandLine({u"-plugin"_qs, u"x"_qs}).platform, QString());
    }

    void display_data() {
        QTest::addColumn<QString>("x11");
        QTest::addColumn<QString>("wayland");
        QTest::addColumn<QString>("plugin");
        QTest::addColumn<bool>("shows");
        QTest::newRow("no server") << u""_qs << u""_qs << u""_qs << false;
        QTest::newRow("X11") << u":0"_qs << u""_qs << u""_qs << true;
        QTest::newRow("Wayland") << u""_qs << u"wayland-0"_qs << u""_qs << true;
        QTest::newRow("memory only") << u":0"_qs << u""_qs << u"offscreen"_qs << false;
        QTest::newRow("memory only with options") << u":0"_qs << u""_qs << u"minimal:x=1"_qs << false;
        QTest::newRow("first of several") << u":0"_qs << u""_qs << u"xcb;offscreen"_qs << true;
        QTest::newRow("plug-in without its server") << u""_qs << u""_qs << u"xcb"_qs << false;
        QTest::newRow("brings its own screen") << u""_qs << u""_qs << u"vnc"_qs << true;
    }
    void display() {
        QFETCH(QString, x11);
        QFETCH(QString, wayland);
        QFETCH(QString, plugin);
        QTEST(ShowsWindows({x11, wayland, plugin}), "shows");
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "test_commandline.moc"
