// What opening a file starts, observed through the marks the started programs leave.
#include "LinuxProcess.h"
#include "ScratchFolder.h"

#include <QRegularExpression>
#include <QTest>

#include <memory>

using namespace std::string_view_literals;

class ProcessTest final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<ScratchFolder>();
        qputenv("MARK", QFile::encodeName(m_folder->Path(u"mark"_qs)));
        // Stands in for the desktop: writes down what it was asked to open.
        QVERIFY(putProgram(u"bin/xdg-open"_qs, "#!/bin/sh\nprintf 'desktop %s' \"$*\" > \"$MARK\"\n"));
        qputenv("PATH", QFile::encodeName(m_folder->Path(u"bin"_qs)) + ":" + m_path);
        qputenv("DISPLAY", ":none");
        qunsetenv("WAYLAND_DISPLAY");
    }
    void cleanupTestCase() { qputenv("PATH", m_path); }

    void Opens() {
        for (const char* name : {"a b; touch c $(d) 'e\".sh", "-c"}) // one path, no option, no shell line
            for (const char* firstLine : {"#!/bin/sh\n", ""}) {
                init();
                QVERIFY(
                    putProgram(QString::fromLatin1(name), QByteArray(firstLine) + "printf 'ran %s' $# > \"$MARK\"\n"));
                QVERIFY(LinuxProcess().Open(m_folder->Path(QString::fromLatin1(name))));
                QTRY_COMPARE(mark(), QByteArray("ran 0"));
            }
    }

    void OnAStickNotEveryFileIsAProgram() {
        using enum OpenMethod;
        const std::pair<OpenFacts, OpenMethod> rows[] = {{{true, true, "a.exe"sv, "MZ\0\1"sv}, Start},
                                                         {{true, false, "notes.txt"sv, "rm -r old"sv}, Desktop},
                                                         {{true, false, "a.sh"sv, "echo"sv}, Shell},
                                                         {{true, false, "a"sv, "#!/bin/sh"sv}, Start}};
        for (const auto& [facts, method] : rows)
            QVERIFY2(ChooseOpenMethod(facts) == method, facts.name.data());
    }

    void TheRestGoesToTheDesktop() {
        QVERIFY(m_folder->Write(u"a.txt"_qs, "printf 'ran' > \"$MARK\"\n"));
        const QString document = m_folder->Path(u"a.txt"_qs);
        QVERIFY(LinuxProcess().Open(document));
        QTRY_COMPARE(mark(), "desktop " + QFile::encodeName(document));
        QVERIFY(LinuxProcess().OpenFolder(m_folder->Path()));
        QTRY_COMPARE(mark(), "desktop " + QFile::encodeName(m_folder->Path()));
        // Left to the system: behind a link ".." leads elsewhere than the text says.
        QVERIFY(QDir().mkpath(m_folder->Path(u"far/inner"_qs)));
        QVERIFY(QFile::link(u"far/inner"_qs, m_folder->Path(u"link"_qs)));
        QVERIFY(LinuxProcess().OpenFolder(m_folder->Path(u"link/.."_qs)));
        QTRY_COMPARE(mark(), "desktop " + QFile::encodeName(m_folder->Path()) + "/link/..");
        QVERIFY(LinuxProcess().OpenWebPage(u"https://example.org/a?b=c"_qs));
        QTRY_COMPARE(mark(), QByteArray("desktop https://example.org/a?b=c"));
    }

    void ADocumentThatNothingTakesIsTold() {
        QTest::failOnWarning(QRegularExpression(u"."_qs)); // a user would read it in the terminal
        for (const char* exitCode : {"0", "4"}) {
            QVERIFY(putProgram(u"bin/xdg-open"_qs,
                               "#!/bin/sh\nprintf 'desktop %s' \"$*\" > \"$MARK\"\nexit " + QByteArray(exitCode)));
            LinuxProcess process;
            bool failed = false;
            process.ShowDocument(u"/a b.html"_qs, [&] { failed = true; });
            QTRY_COMPARE(failed, *exitCode == '4');
            QTRY_COMPARE(mark(), QByteArray("desktop /a b.html"));
        }
        QVERIFY(QFile::remove(m_folder->Path(u"bin/xdg-open"_qs)));
        qputenv("PATH", QFile::encodeName(m_folder->Path(u"bin"_qs)));
        LinuxProcess process;
        bool failed = false;
        process.ShowDocument(u"/a"_qs, [&] { failed = true; });
        QTRY_VERIFY(failed);
    }

    void Refuses() {
        QVERIFY(putProgram(u"broken"_qs, "#!/nonexistent/interpreter\n"));
        QVERIFY(putProgram(u"good"_qs, "#!/bin/sh\n"));
        QVERIFY(m_folder->Write(u"a.txt"_qs, "text"));
        QVERIFY(QFile::link(u"nowhere"_qs, m_folder->Path(u"link"_qs)));
        for (const auto& name : {u"broken"_qs, u"link"_qs, u"good 1"_qs})
            QVERIFY2(!LinuxProcess().Open(m_folder->Path(name)), qPrintable(name));
        qunsetenv("DISPLAY");
        QVERIFY(!LinuxProcess().Open(m_folder->Path(u"a.txt"_qs)));
    }

  private:
    [[nodiscard]] QByteArray mark() const { return m_folder->Read(u"mark"_qs); }
    [[nodiscard]] bool putProgram(const QString& name, const QByteArray& content) const {
        return m_folder->Write(name, content) &&
               QFile::setPermissions(m_folder->Path(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    std::unique_ptr<ScratchFolder> m_folder;
    const QByteArray m_path = qgetenv("PATH");
};

QTEST_GUILESS_MAIN(ProcessTest)
#include "test_process.moc"
