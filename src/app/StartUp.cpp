#include "StartUp.h"

#include "CommandGuard.h"
#include "CommandLine.h"
#include "Program.h"
#include "clsAssocFile.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <tuple>

namespace {

void openArgument(Program& program, const CommandLine& commandLine) {
    if (commandLine.kind != CommandLine::Kind::File)
        return;
    if (!commandLine.file.isEmpty() &&
        program.Services().ownFiles->Stamp(modNativePath::FromText(commandLine.file)).has_value()) {
        program.File().SetCurrentPath(commandLine.file);
        return;
    }
    const StringTable& texts = program.Texts();
    program.Prompts().Ask({texts[Text::FileQuote] + commandLine.text + texts[Text::CouldNotBeStarted],
                           texts[Text::InvalidFile], MessageIcon::Critical, MessageButtons::Ok});
}

/// True when the word ends the program; EndNow returns in tests only.
bool obeys(Program& program, const QString& word) {
    const std::optional<int> code = program.Service().ServiceConfiguration(word, ServiceCaller::CommandLine);
    if (code)
        program.Services().process->EndNow(*code);
    return code.has_value();
}

bool passNotice(Program& program, StartUpFace& face) {
    if (program.IsNoticeAccepted())
        return true;
    if (!face.AcceptsNotice())
        return false;
    if (const std::error_code error = program.AcceptNotice())
        TellError(program, modForeignText::OfError(error));
    return true;
}

} // namespace

StartUpResult RunStartUp(Program& program, const CommandLine& commandLine, StartUpFace& face) {
    const auto ended = [&] { return program.State().Closing(); };

    PlatformServices& services = program.Services();
    clsAssocFile(*services.fileTypes, *services.settings, program.Texts()).RegisterOnce(services.places);
    program.File().EnsureDefaultExists();
    if (commandLine.kind == CommandLine::Kind::ServiceWord && obeys(program, commandLine.text))
        return StartUpResult::Ended;
    openArgument(program, commandLine);
    face.Appear();
    program.Options().ReadRegistry();
    Guarded(program, [&] { program.List().Refill(); });
    if (ended())
        return StartUpResult::Ended;
    face.ShowState();

    if (program.Options().StartUp == 1)
        program.Monitoring().ToggleMonitoring();
    if (ended())
        return StartUpResult::Ended;
    if (program.Options().ActivateWhileWindowsStarting == 1)
        face.Minimise();

    const bool accepted = passNotice(program, face);
    if (ended())
        return StartUpResult::Ended;
    if (!accepted)
        return StartUpResult::Declined;
    program.AllowTicks();
    std::ignore = program.Service().ServiceConfiguration(QStringLiteral("initialize"), ServiceCaller::CommandLine);
    return StartUpResult::Running;
}
