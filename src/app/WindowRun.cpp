#include "WindowRun.h"

#include "DesktopKeyState.h"
#include "DialogFilePicker.h"
#include "DialogHost.h"
#include "EditorDialog.h"
#include "Icons.h"
#include "MessageBoxPrompter.h"
#include "Program.h"
#include "QtTexts.h"
#include "SessionEnd.h"
#include "SingleInstance.h"
#include "TerminationSignal.h"
#include "frmMain.h"
#include <QApplication>

namespace {

constexpr int NoticeDeclined = 3;

void setUpApplication() {
    // With the window hidden in the tray the end of any message box would end the program.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(QStringLiteral("Kalvenor"));
    QApplication::setDesktopFileName(QStringLiteral("Kalvenor"));
    QApplication::setWindowIcon(Icons::Icon(Icons::Picture::Idle));
}

} // namespace

int RunWindow(int& argc, char** argv, const CommandLine& commandLine) {
    QApplication application(argc, argv);
    setUpApplication();
    PlatformServices services = MakePlatformServices();
    const StringTable texts(StringTable::PreferredLanguage());
    const QtTexts qtTexts(StringTable::PreferredLanguage());
    MessageBoxPrompter prompter(texts);
    const SingleInstance instance(*services.locks, commandLine, prompter, texts);
    if (!instance.MayRun())
        return 1;
    const auto keys = MakeDesktopKeyState(application);
    Program program(services, prompter, *keys, texts);
    DialogHost dialogs;
    DialogFilePicker picker;
    EditorDialog editor(program, dialogs, picker);
    frmMain window(program, {dialogs, picker, editor});
    prompter.SetWindow(&window);

    QObject::connect(&window, &frmMain::Closing, &window, [&prompter] { prompter.StopAsking(); });
    QObject::connect(&window, &frmMain::Closed, &application, [] { QCoreApplication::exit(0); });
    const TerminationSignal termination;
    QObject::connect(&termination, &TerminationSignal::Raised, &window, &frmMain::CloseWithoutQuestion);
    const SessionEnd sessionEnd(application);
    QObject::connect(&sessionEnd, &SessionEnd::Requested, &window, &frmMain::CloseWithoutQuestion);
    // From inside the event loop, so that a close that comes during the start is not lost.
    const auto start = [&] {
        if (window.Start(commandLine) == StartUpResult::Declined)
            services.process->EndNow(NoticeDeclined);
    };
    QMetaObject::invokeMethod(&window, start, Qt::QueuedConnection);
    return QApplication::exec();
}
