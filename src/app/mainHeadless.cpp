#include "CommandLine.h"
#include "HeadlessHost.h"
#include "Session.h"

int main(int argc, char* argv[]) {
    return RunHeadless(argc, argv, ParseCommandLine(CommandLineWords(argc, argv)));
}
