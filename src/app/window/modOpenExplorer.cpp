#include "modOpenExplorer.h"

#include "Program.h"
#include "Prompter.h"
#include "modNativePath.h"

namespace {

void open(Program& program, const QString& name, ActivityField field, Text missing) {
    if (!program.File().Has(name))
        return;
    const QString path = program.File().Read(name, field);
    if (program.Services().process->OpenFolder(path))
        return;
    const StringTable& texts = program.Texts();
    const bool exists = program.Services().ownFiles->FolderExists(modNativePath::FromText(path));
    const QString text =
        exists ? texts[Text::FolderNotOpened].arg(path) : QString(texts[missing] + path + texts[Text::DoesNotExist]);
    program.Prompts().Ask({text, texts[exists ? Text::Error : Text::DirectoryNotFoundTitle], MessageIcon::Exclamation,
                           MessageButtons::Ok});
}

} // namespace

void modOpenExplorer::OpenSource(Program& program, const QString& name) {
    open(program, name, ActivityField::SourceDir, Text::SelectedSource);
}

void modOpenExplorer::OpenTarget(Program& program, const QString& name) {
    open(program, name, ActivityField::TargetDir, Text::SelectedDestination);
}
