// What only Windows has: the registry's failures, the class keys, Ctrl+Break, the mail client that is not there.
#include "DesktopMailClient.h"
#include "MachineSettings.h"
#include "RegistryKey.h"
#include "ScratchFolder.h"
#include "TerminationSignal.h"
#include "WindowsServices.h"

#include <QSignalSpy>
#include <QTest>

namespace {

const QString app = u"Kalvenor"_qs;
const QString section = u"Options"_qs;
const std::wstring ownKey = L"Software\\Kalvenor tests of the registry";

QString textAt(const std::wstring& path, const std::wstring& value = {}) {
    const auto text = RegistryKey::Open(HKEY_CURRENT_USER, path).Text(value);
    return text ? QString::fromStdWString(*text) : u"<none>"_qs;
}

/// Fails like a process without the right to set the time.
BOOL WINAPI refuse(const SYSTEMTIME*) {
    SetLastError(ERROR_PRIVILEGE_NOT_HELD);
    return FALSE;
}

SYSTEMTIME taken{};
BOOL WINAPI take(const SYSTEMTIME* time) {
    taken = *time;
    return TRUE;
}

} // namespace

class TestWindowsSeams final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() {
        for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
            RegDeleteTreeW(root, ownKey.c_str());
    }

    void settingsAreTextsOfTheRegistry() {
        const auto store = MakeRegistrySettingsStore(ownKey);
        QVERIFY(!store->Write(app, section, u"Key"_qs, u"old"_qs));
        QCOMPARE(textAt(ownKey + L"\\Kalvenor\\Options", L"Key"), u"old"_qs);
        QVERIFY(store->Write(u"a\\b"_qs, section, u"Key"_qs, u"x"_qs) == std::errc::invalid_argument);
        // The registry refuses so long a name; what was written before it is taken back.
        const QString tooLong(20000, u'x');
        QVERIFY(store->WriteAll(app, section, {{u"Key"_qs, u"new"_qs}, {u"Other"_qs, u"x"_qs}, {tooLong, u"x"_qs}}));
        QCOMPARE(store->Read(app, section, u"Key"_qs), u"old"_qs);
        QVERIFY(!store->Read(app, section, u"Other"_qs));
        RegistryKey key = RegistryKey::Make(HKEY_CURRENT_USER, ownKey + L"\\Kalvenor\\Options");
        QVERIFY(!key.Remove(L"Key") && !key.Remove(L"Key"));
        QVERIFY(!store->Read(app, section, u"Key"_qs));
    }

    void aServiceReadsTheOptionsOfItsInstaller() {
        const auto user = MakeRegistrySettingsStore(ownKey);
        const auto service = MakeRegistrySettingsStore(ownKey, true);
        const MachineSettings machine(ownKey);
        QVERIFY(!user->WriteAll(app, section, {{u"Accepted"_qs, u"Yes"_qs}, {u"StartUp"_qs, u"1"_qs}}));
        QVERIFY(!user->Write(app, SettingsStore::SummarySection, u"InLog"_qs, u"1"_qs));
        QVERIFY(!machine.Store(L"C:\\\u00e4 b"));
        QCOMPARE(QString::fromStdWString(machine.UserDataFolder()), u"C:\\\u00e4 b"_qs);
        RegDeleteTreeW(HKEY_CURRENT_USER, ownKey.c_str()); // the account of the service has nothing
        QVERIFY(!user->Read(app, section, u"Accepted"_qs));
        QCOMPARE(service->Read(app, section, u"Accepted"_qs), u"Yes"_qs);
        QCOMPARE(service->Read(app, SettingsStore::SummarySection, u"InLog"_qs), u"1"_qs);
        QVERIFY(!service->Write(app, section, u"StartUp"_qs, u"0"_qs)); // its own goes first
        QCOMPARE(service->Read(app, section, u"StartUp"_qs), u"0"_qs);
        // What the user has no longer must not stay.
        QVERIFY(!machine.Store(L"C:\\other"));
        QVERIFY(!service->Read(app, section, u"Accepted"_qs));
        QVERIFY(!machine.Remove() && !machine.Remove() && machine.UserDataFolder().empty());
    }

    void registersAFileType() {
        const ScratchFolder folder;
        QVERIFY(folder.Write(u"a b/Kalvenor.exe"_qs, "program"));
        const auto program = std::filesystem::path(folder.Path("a b/Kalvenor").toStdWString()).make_preferred();
        QVERIFY(!MakeFileTypes()->Register({program, u".kalvenortest"_qs, {}, u"A <list>"_qs}));
        const std::wstring classes = L"Software\\Classes\\";
        QCOMPARE(textAt(classes + L".kalvenortest"), u"kalvenortestfile"_qs);
        const std::wstring ours = classes + L"kalvenortestfile";
        QCOMPARE(textAt(ours), u"A <list>"_qs);
        const QString command = textAt(ours + L"\\Shell\\open\\Command");
        QVERIFY2(command.endsWith(u".exe %1"_qs, Qt::CaseInsensitive), qPrintable(command));
        QVERIFY2(command.count(u' ') == 1, qPrintable(command)); // the short path, for the command is not quoted
        RegDeleteTreeW(HKEY_CURRENT_USER, ours.c_str());
        RegDeleteTreeW(HKEY_CURRENT_USER, (classes + L".kalvenortest").c_str());
    }

    void setsTheClock() {
        QStringList outcomes;
        const auto outcome = [&](const QString& reason) { outcomes.append(reason); };
        MakeSystemClock(&take)->Set(std::chrono::sys_days(std::chrono::year(2024) / 2 / 29) + std::chrono::hours(13),
                                    outcome);
        QCOMPARE(QStringList{QString()}, outcomes);
        QVERIFY(taken.wYear == 2024 && taken.wMonth == 2 && taken.wDay == 29 && taken.wHour == 13);
        MakeSystemClock(&refuse)->Set({}, outcome);
        QVERIFY(outcomes.size() == 2 && !outcomes.last().isEmpty());
    }

    void ctrlBreakIsAnEvent() {
        TerminationSignal termination;
        QSignalSpy raised(&termination, &TerminationSignal::Raised);
        AllocConsole(); // fails where there is one
        if (GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, 0) == FALSE)
            QSKIP("this process has no console");
        QTRY_COMPARE(raised.count(), 1);
    }

    void withoutAMailClientNothingHappens() {
        const auto client = MakeDesktopMailClient();
        client->Send({});
        QVERIFY(!client->IsMailHandler() && !client->Contacts());
    }

    void noDialUpLine() { QVERIFY(!MakeDialUp()->IsActive()); }
};

QTEST_GUILESS_MAIN(TestWindowsSeams)
#include "test_windowsseams.moc"
