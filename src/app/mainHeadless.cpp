#include "CommandLine.h"
#include "HeadlessHost.h"

int main(int argc, char* argv[]) {
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    return RunHeadless(argc, argv, ParseCommandLine(words));
}
