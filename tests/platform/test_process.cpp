// What opening a file starts, observed through the marks the started programs leave, and how this process ends.
#include "LinuxProcess.h"
#include "OpenMethod.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <cstring>

Q_DECLARE_METATYPE(OpenFacts)

using namespace std::string_view_literals;

class ProcessTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { m_path = qgetenv("PATH"); }
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("MARK", QFile::encodeName(mark()));
        // Stands in for the desktop: writes down what it was asked to open.
        QVERIFY(write(QStringLiteral("bin/xdg-open"), "#!/bin/sh\nprintf 'desktop %s' \"$*\" > \"$MARK\"\n", true));
        qputenv("PATH", QFile::encodeName(m_folder->filePath(QStringLiteral("bin"))) + ":" + m_path);
        qputenv("DISPLAY", ":none");
        qunsetenv("WAYLAND_DISPLAY");
    }
    void cleanupTestCase() { qputenv("PATH", m_path); }

    void Opens_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("executable");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray leaveMark = "printf 'ran %s' \"$#\" > \"$MARK\"\n";
        QTest::newRow("script") << "a.sh" << QByteArray("#!/bin/sh\n" + leaveMark) << true << QByteArray("ran 0");
        QTest::newRow("no interpreter line") << "a.sh" << leaveMark << true << QByteArray("ran 0");
        QTest::newRow("one path, no shell line")
            << "a b; touch c $(d) 'e\".sh" << leaveMark << true << QByteArray("ran 0");
        QTest::newRow("option-like name") << "-c" << leaveMark << true << QByteArray("ran 0");
        QTest::newRow("document") << "a.txt" << leaveMark << false << QByteArray("desktop %1");
    }
    void Opens() {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(bool, executable);
        QFETCH(QByteArray, expected);
        QVERIFY(write(name, content, executable));
        const QString path = m_folder->filePath(name);
        QVERIFY(LinuxProcess().Open(path));
        QTRY_COMPARE(read(mark()), QByteArray(expected).replace("%1", QFile::encodeName(path)));
    }

    void FolderGoesToTheDesktop() {
        QVERIFY(LinuxProcess().OpenFolder(m_folder->path()));
        QTRY_COMPARE(read(mark()), QByteArray("desktop " + QFile::encodeName(m_folder->path())));
        QVERIFY(write(QStringLiteral("program"), "#!/bin/sh\n", true));
        QVERIFY(!LinuxProcess().OpenFolder(m_folder->filePath(QStringLiteral("program"))));
        QVERIFY(!LinuxProcess().OpenFolder(QString()));
    }

    void WebPage_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("taken");
        QTest::newRow("page") << "https://example.org/a?b=c" << true;
        QTest::newRow("file") << "file:///etc/passwd" << false;
        QTest::newRow("option") << "--help" << false;
        QTest::newRow("no host") << "https:///a" << false;
    }
    void WebPage() {
        QFETCH(QString, address);
        QFETCH(bool, taken);
        QCOMPARE(LinuxProcess().OpenWebPage(address), taken);
        if (taken)
            QTRY_COMPARE(read(mark()), QByteArray("desktop " + address.toLatin1()));
    }

    void Refuses_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("display");
        QTest::newRow("missing") << "nothing" << true;
        QTest::newRow("its interpreter is missing") << "broken" << true;
        QTest::newRow("document without a display") << "a.txt" << false;
        QTest::newRow("dangling link") << "link" << true;
        QTest::newRow("arguments are part of the path") << "good 1" << true;
    }
    void Refuses() {
        QFETCH(QString, name);
        QFETCH(bool, display);
        QVERIFY(write(QStringLiteral("broken"), "#!/nonexistent/interpreter\n", true));
        QVERIFY(write(QStringLiteral("good"), "#!/bin/sh\n", true));
        QVERIFY(write(QStringLiteral("a.txt"), "text", false));
        QVERIFY(QFile::link(QStringLiteral("nowhere"), m_folder->filePath(QStringLiteral("link"))));
        if (!display)
            qunsetenv("DISPLAY");
        QVERIFY(!LinuxProcess().Open(m_folder->filePath(name)));
    }

    void EmptyPathIsRefused() { QVERIFY(!LinuxProcess().Open(QString())); }

    void Method_data() {
        QTest::addColumn<OpenFacts>("facts");
        QTest::addColumn<int>("method");
        const auto row = [](const char* title, const OpenFacts& facts, OpenMethod method) {
            QTest::newRow(title) << facts << static_cast<int>(method);
        };
        row("plain text", {false, true, "a.sh"sv, "#!/bin/sh"sv}, OpenMethod::Desktop);
        row("program", {true, true, "a"sv, "\177ELF\2\1"sv}, OpenMethod::Start);
        row("foreign program", {true, true, "a.exe"sv, "MZ\0\1"sv}, OpenMethod::Start);
        row("script", {true, true, "a"sv, "echo"sv}, OpenMethod::Shell);
        row("text on a stick", {true, false, "notes.txt"sv, "rm -r old"sv}, OpenMethod::Desktop);
        row("picture on a stick", {true, false, "a.png"sv, "\x89PNG\0"sv}, OpenMethod::Desktop);
        row("script on a stick", {true, false, "a.sh"sv, "echo"sv}, OpenMethod::Shell);
        row("interpreter line on a stick", {true, false, "a"sv, "#!/bin/sh"sv}, OpenMethod::Start);
        row("program on a stick", {true, false, "a"sv, "\177ELF"sv}, OpenMethod::Start);
    }
    void Method() {
        QFETCH(OpenFacts, facts);
        QTEST(static_cast<int>(ChooseOpenMethod(facts)), "method");
    }

    void EndNowFlushesAndEnds() {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--end")});
        QVERIFY(child.waitForFinished(20000));
        QCOMPARE(child.exitCode(), 7);
        QCOMPARE(child.readAllStandardOutput(), QByteArray("last words"));
    }

  private:
    [[nodiscard]] QString mark() const { return m_folder->filePath(QStringLiteral("mark")); }

    [[nodiscard]] static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] bool write(const QString& name, const QByteArray& content, bool executable) const {
        QDir(m_folder->path()).mkpath(QStringLiteral("bin"));
        QFile file(m_folder->filePath(name));
        const auto plain = QFile::ReadOwner | QFile::WriteOwner;
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
               file.setPermissions(executable ? plain | QFile::ExeOwner : plain);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_path;
};

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--end") == 0) {
        std::printf("last words");
        LinuxProcess().EndNow(7);
    }
    QCoreApplication application(argc, argv);
    ProcessTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_process.moc"
