#include "ExampleCommand.h"

#include "ActivityCommands.h"
#include "ActivityListView.h"
#include "CommandGuard.h"
#include "FilePicker.h"
#include "frmOptions.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include <QFileInfo>
#include <QStandardPaths>
#include <array>

namespace {

struct ExampleFile {
    Text name;
    Text content;
};
constexpr std::array files{ExampleFile{Text::ExampleFirstFile, Text::ExampleFirstContent},
                           ExampleFile{Text::ExampleSecondFile, Text::ExampleSecondContent}};

QString folderToBeginIn() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

} // namespace

std::error_code ExampleCommand::make(const Places& places) {
    const StringTable& texts = m_program.Texts();
    OwnFiles& disk = *m_program.Services().ownFiles;
    const auto create = [&](const std::filesystem::path& file, const QByteArray& bytes) {
        const std::error_code error = disk.CreateNew(file, bytes);
        return error == std::errc::file_exists ? std::error_code() : error;
    };
    for (const ExampleFile& file : files)
        if (const auto error = create(places.source / modNativePath::FromText(texts[file.name]),
                                      (texts[file.content] + u'\n').toUtf8()))
            return error;
    if (const auto error = create(places.log, {}))
        return error;
    std::error_code error;
    std::filesystem::create_directories(places.destination, error);
    return error;
}

void ExampleCommand::Create() {
    const StringTable& texts = m_program.Texts();
    ActivityFile& activities = m_program.File();
    if (!activities.IsLoaded())
        return TellError(m_program, texts[Text::FileNotLoaded]);
    const QString name = texts[Text::ExampleName];
    if (activities.Has(name)) {
        m_view.Select(name);
        m_program.Prompts().Ask({texts[Text::ExampleIsThere].arg(name), texts[Text::ExampleTitle],
                                 MessageIcon::Information, MessageButtons::Ok});
        return;
    }
    const QString file = activities.CurrentPath();
    const auto chosen = m_picker.PickFolder({texts[Text::ExampleTitle], {}, folderToBeginIn(), {}});
    if (!chosen || activities.CurrentPath() != file) // events ran: the example was for another file
        return;
    const auto folder = modNativePath::Absolute(*chosen) / modNativePath::FromText(texts[Text::ExampleFolder]);
    const Places places{folder / modNativePath::FromText(texts[Text::ExampleSource]),
                        folder / modNativePath::FromText(texts[Text::ExampleDestination]),
                        folder / modNativePath::FromText(name + QStringLiteral(".log"))};
    if (const auto error = make(places))
        return TellError(m_program, texts[Text::ExampleNotCreated].arg(modForeignText::OfError(error)));

    ActivityRecord record = frmOptions::NewActivity();
    record.SetNumber(ActivityField::Type, 0); // seconds
    record.SetText(ActivityField::SourceDir, modNativePath::ToText(places.source));
    record.SetText(ActivityField::TargetDir, modNativePath::ToText(places.destination));
    record.SetText(ActivityField::LogFile, modNativePath::ToText(places.log));
    record.SetText(ActivityField::Comment, texts[Text::ExampleComment]);
    for (const ActivityField field : {ActivityField::Overwrite, ActivityField::OnlyNew, ActivityField::IncludeSubdirs})
        record.SetOn(field, true);
    m_activities.AddReady(name, record);
}
