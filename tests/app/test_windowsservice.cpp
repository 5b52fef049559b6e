// The service as Windows runs it: the real program is installed, moves files, is paused, stopped and removed. It
// changes the settings of the user it runs as, and puts them back.
#include "RegistryKey.h"
#include "ScratchFolder.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <memory>

namespace {

const std::wstring options = L"Software\\Kalvenor\\Options";

struct ServiceCloser {
    using pointer = SC_HANDLE;
    void operator()(SC_HANDLE handle) const { CloseServiceHandle(handle); }
};
using ServiceHandle = std::unique_ptr<SC_HANDLE, ServiceCloser>;

ServiceHandle service(DWORD access) {
    const ServiceHandle manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT));
    return ServiceHandle(OpenServiceW(manager.get(), L"KalvenorPro", access));
}

SERVICE_STATUS status() {
    SERVICE_STATUS found{};
    QueryServiceStatus(service(SERVICE_QUERY_STATUS).get(), &found);
    return found;
}

bool reaches(DWORD state) {
    return QTest::qWaitFor([state] { return status().dwCurrentState == state; }, 30000);
}

bool start() {
    return StartServiceW(service(SERVICE_START).get(), 0, nullptr) != FALSE;
}

bool control(DWORD number) {
    SERVICE_STATUS ignored{};
    return ControlService(service(SERVICE_ALL_ACCESS).get(), number, &ignored) != FALSE;
}

QString program() {
    return QCoreApplication::applicationDirPath() + u"/Kalvenor.exe"_qs;
}

int say(const QString& word) {
    return QProcess::execute(program(), {word});
}

bool setOption(const wchar_t* name, const wchar_t* value) {
    return !RegistryKey::Make(HKEY_CURRENT_USER, options).SetText(name, value);
}

bool isWritten(HKEY root) {
    return RegistryKey::Open(root, options).Text(L"Accepted").has_value();
}

} // namespace

class TestWindowsService final : public QObject {
    Q_OBJECT

    ScratchFolder m_folder;
    QString m_file = QCoreApplication::applicationDirPath() + u"/Kalvenor.kvd"_qs;

    [[nodiscard]] bool moves(const QString& name) {
        return m_folder.Write(u"in/"_qs + name, "moved") &&
               QTest::qWaitFor([&] { return m_folder.Read(u"out/"_qs + name) == "moved"; }, 20000);
    }

  private Q_SLOTS:
    void initTestCase() {
        if (isWritten(HKEY_CURRENT_USER) || isWritten(HKEY_LOCAL_MACHINE) || service(SERVICE_QUERY_STATUS))
            QSKIP("Kalvenor is in use here");
        QVERIFY(setOption(L"Accepted", L"Yes") && setOption(L"StartUp", L"1"));
        QVERIFY(m_folder.Write(u"in/first"_qs, "moved") && QDir(m_folder.Path()).mkdir(u"out"_qs));
        const QString record =
            u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<items>\n<Move><sourcedir>%1</sourcedir>"_qs +
            u"<targetdir>%2</targetdir><type>0</type><intervall>2</intervall><action>1</action><overwrite>N</overwrite>"
            u"<onlynew>N</onlynew><alert>N</alert><includesubdirs>Y</includesubdirs><allfiles>1</allfiles>"
            u"<logfile>%3</logfile><exceedtime></exceedtime><activ>1</activ></Move>\n</items>\n"_qs;
        const auto native = [this](const char* name) { return QDir::toNativeSeparators(m_folder.Path(name)); };
        QVERIFY(m_folder.Write(m_file, record.arg(native("in"), native("out"), native("log.txt")).toLatin1()));
    }

    void cleanupTestCase() {
        setOption(L"Accepted", L"Yes");
        control(SERVICE_CONTROL_STOP);
        say(u"uninstall"_qs);
        RegDeleteTreeW(HKEY_CURRENT_USER, options.c_str());
        QFile::remove(m_file);
    }

    void takesTheOptionsOfTheUser() {
        QCOMPARE(say(u"install"_qs), 0);
        QVERIFY(service(SERVICE_QUERY_STATUS) && isWritten(HKEY_LOCAL_MACHINE));
        QCOMPARE(say(u"install"_qs), 1);
        RegDeleteTreeW(HKEY_CURRENT_USER, options.c_str()); // the system's account has none
    }

    void obeys() {
        QVERIFY(start() && reaches(SERVICE_RUNNING));
        QVERIFY(moves(u"first"_qs));
        QVERIFY(control(SERVICE_CONTROL_PAUSE) && reaches(SERVICE_PAUSED));
        QVERIFY(control(SERVICE_CONTROL_CONTINUE) && reaches(SERVICE_RUNNING));
        QVERIFY(moves(u"second"_qs));
        QVERIFY(control(SERVICE_CONTROL_STOP) && reaches(SERVICE_STOPPED));
        QCOMPARE(status().dwWin32ExitCode, DWORD{NO_ERROR});
        QVERIFY(m_folder.Read(u"log.txt"_qs).contains("second"));
    }

    void saysWhyItDoesNotStart() {
        QVERIFY(!RegistryKey::Open(HKEY_LOCAL_MACHINE, options, KEY_WRITE).Remove(L"Accepted"));
        std::ignore = start(); // it may have ended before this call does
        QVERIFY(reaches(SERVICE_STOPPED));
        QTRY_COMPARE(status().dwServiceSpecificExitCode, DWORD{3});
        QCOMPARE(status().dwWin32ExitCode, DWORD{ERROR_SERVICE_SPECIFIC_ERROR});
    }

    void leavesNothing() {
        QVERIFY(setOption(L"Accepted", L"Yes"));
        QCOMPARE(say(u"uninstall"_qs), 0);
        QVERIFY(!service(SERVICE_QUERY_STATUS) && GetLastError() == ERROR_SERVICE_DOES_NOT_EXIST);
        QVERIFY(RegistryKey::Open(HKEY_LOCAL_MACHINE, options).Error());
        QCOMPARE(say(u"uninstall"_qs), 1);
    }
};

QTEST_GUILESS_MAIN(TestWindowsService)
#include "test_windowsservice.moc"
