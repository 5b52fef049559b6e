#include "ActivityEditor.h"
#include "CommandLine.h"
#include "DesktopKeyState.h"
#include "DialogHost.h"
#include "FilePicker.h"
#include "HeadlessHost.h"
#include "Icons.h"
#include "MessageBoxPrompter.h"
#include "Program.h"
#include "Session.h"
#include "SingleInstance.h"
#include "TerminationSignal.h"
#include "frmMain.h"
#include <QApplication>
#include <QEvent>
#include <QSessionManager>
#include <QTranslator>
#include <functional>

namespace {

constexpr int noticeDeclined = 3;

/// The texts of Qt's own dialogs in the program's language, as long as this lives.
class QtTexts final {
  public:
    explicit QtTexts(Language language) {
        // English is what Qt speaks without a table.
        if (language == Language::German && m_translator.load(QStringLiteral(":/qttexts/qtbase_de.qm")))
            QCoreApplication::installTranslator(&m_translator);
    }
    ~QtTexts() { QCoreApplication::removeTranslator(&m_translator); }
    QtTexts(const QtTexts&) = delete;
    QtTexts& operator=(const QtTexts&) = delete;

  private:
    QTranslator m_translator;
};

/// Catches the desktop's request to quit, as it comes at the end of a session. Qt would drop it as soon as a window
/// asks the user something. Windows ends a process soon after it has agreed, so a run that is not over yet holds the
/// end of the session off: it goes on when this process has gone.
class SessionEnd final : public QObject {
  public:
    SessionEnd(QGuiApplication& application, const RunState& runState, std::function<void()> requested)
        : m_requested(std::move(requested)) {
        application.installEventFilter(this);
        const auto commit = [this, &runState](QSessionManager& manager) {
            m_requested();
            if (runState.Running())
                manager.cancel();
        };
        if (EndsSessionWithCommit())
            connect(&application, &QGuiApplication::commitDataRequest, this, commit, Qt::DirectConnection);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Quit || watched != QCoreApplication::instance())
            return QObject::eventFilter(watched, event);
        event->accept();
        m_requested();
        return true;
    }

  private:
    std::function<void()> m_requested;
};

void setUpApplication() {
    // With the window hidden in the tray, closing any message box would end the program.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(QStringLiteral("Kalvenor"));
    QApplication::setWindowIcon(Icons::Icon(Icons::Picture::Idle));
}

/// The whole process with a window: 0 after a close, 1 when another copy runs, 3 when the notice was declined.
int runWindow(int& argc, char** argv, const CommandLine& commandLine) {
    QApplication application(argc, argv);
    setUpApplication();
    PlatformServices services = MakePlatformServices();
    QApplication::setDesktopFileName(QString::fromStdString(services.places.desktopEntry));
    const StringTable texts(StringTable::PreferredLanguage());
    const QtTexts qtTexts(StringTable::PreferredLanguage());
    MessageBoxPrompter prompter(texts);
    const SingleInstance instance(*services.locks, commandLine, prompter, texts);
    if (!instance.MayRun())
        return 1;
    const auto keys = MakeDesktopKeyState(application);
    Program program(services, prompter, *keys, texts);
    DialogHost dialogs;
    const auto picker = MakeFilePicker();
    EditorDialog editor(program, dialogs, *picker);
    frmMain window(program, {dialogs, *picker, editor});
    prompter.SetWindow(&window);

    QObject::connect(&window, &frmMain::Closing, &window, [&prompter] { prompter.StopAsking(); });
    QObject::connect(&window, &frmMain::Closed, &application, [] { QCoreApplication::exit(0); });
    const TerminationSignal termination;
    QObject::connect(&termination, &TerminationSignal::Raised, &window, &frmMain::CloseWithoutQuestion);
    const SessionEnd sessionEnd(application, program.State(), [&window] { window.CloseWithoutQuestion(); });
    // From inside the event loop, so that a close that comes during the start is not lost.
    const auto start = [&] {
        if (window.Start(commandLine) == StartUpResult::Declined)
            services.process->EndNow(noticeDeclined);
    };
    QMetaObject::invokeMethod(&window, start, Qt::QueuedConnection);
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    const CommandLine commandLine = ParseCommandLine(CommandLineWords(argc, argv));
    DisplayFacts display = ReadDisplayFacts();
    if (!commandLine.platform.isEmpty())
        display.platformPlugin = commandLine.platform;
    if (commandLine.kind == CommandLine::Kind::StartService || !ShowsWindows(display))
        return RunHeadless(argc, argv, commandLine);
    return runWindow(argc, argv, commandLine);
}
