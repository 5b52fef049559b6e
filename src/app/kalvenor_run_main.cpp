#include "HeadlessUser.h"
#include "Program.h"
#include "RunCommand.h"
#include "Session.h"
#include "TerminationSignal.h"
#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdlib>
#include <iostream>

namespace {

constexpr QLatin1String newDriveOption("new-drive");
constexpr QLatin1String dryRunOption("dry-run");
constexpr QLatin1String undoOption("undo");
constexpr QLatin1String runOption("run");
constexpr QLatin1String jsonOption("json");

void describe(QCommandLineParser& parser, const StringTable& texts) {
    parser.setApplicationDescription(texts[Text::RunPurpose]);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({QString(newDriveOption), texts[Text::RunNewDriveOption]});
    parser.addOption({QString(dryRunOption), texts[Text::RunDryRunOption]});
    parser.addOption({QString(undoOption), texts[Text::RunUndoOption]});
    parser.addOption({QString(runOption), texts[Text::RunRunOption], QStringLiteral("RUN")});
    parser.addOption({QString(jsonOption), texts[Text::RunJsonOption]});
    parser.addPositionalArgument(QStringLiteral("file"), texts[Text::RunFileArgument], QStringLiteral("FILE.kvd"));
    parser.addPositionalArgument(QStringLiteral("names"), texts[Text::RunNamesArgument], QStringLiteral("[NAME ...]"));
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kalvenor-run"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KALVENOR_VERSION));
    const StringTable texts(StringTable::PreferredLanguage());
    UseUtf8Console();
    HeadlessLog log(&WriteSystemLog);

    QCommandLineParser parser;
    describe(parser, texts);
    if (!parser.parse(QCoreApplication::arguments())) {
        log.Line(HeadlessLog::Priority::Error, parser.errorText());
        return RunCommand::Unusable;
    }
    // Not by the parser's own functions: on Windows they open a box where there is no console.
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"))) {
        std::cout << parser.helpText().toStdString();
        return EXIT_SUCCESS;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        std::cout << "kalvenor-run " << KALVENOR_VERSION << '\n';
        return EXIT_SUCCESS;
    }
    QStringList names = parser.positionalArguments();
    const bool isUndo = parser.isSet(QString(undoOption));
    const bool isPreview = parser.isSet(QString(dryRunOption));
    const bool isUsable = isUndo ? names.size() > 1 && !isPreview : !parser.isSet(QString(runOption));
    if (names.isEmpty() || !isUsable) {
        std::cerr << parser.helpText().toStdString();
        return RunCommand::Unusable;
    }
    const QString file = names.takeFirst();

    PlatformServices services = MakePlatformServices();
    HeadlessPrompter prompter(log);
    const NoKeys keys;
    Program program(services, prompter, keys, texts);
    const TerminationSignal termination;
    QObject::connect(&termination, &TerminationSignal::Raised, &application, [&program] { program.RequestEnd(); });
    return RunCommand(program, std::cout, log)
        .Execute({.file = file,
                  .names = names,
                  .newDrive = parser.isSet(QString(newDriveOption)) ? NewDrive::Ok : NewDrive::Hold,
                  .isPreview = isPreview,
                  .isUndo = isUndo,
                  .run = parser.value(QString(runOption)),
                  .asJson = parser.isSet(QString(jsonOption))});
}
