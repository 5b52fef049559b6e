#include "CommandLine.h"
#include "DisplayChoice.h"
#include "HeadlessRun.h"
#include "WindowRun.h"

int main(int argc, char* argv[]) {
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    const CommandLine commandLine = ParseCommandLine(words);
    DisplayFacts display = ReadDisplayFacts();
    if (!commandLine.platform.isEmpty())
        display.platformPlugin = commandLine.platform;
    if (commandLine.kind == CommandLine::Kind::StartService || !ShowsWindows(display))
        return RunHeadless(argc, argv, commandLine);
    return RunWindow(argc, argv, commandLine);
}
