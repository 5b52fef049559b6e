#include "modOpenExplorer.h"

#include "Program.h"
#include "Prompter.h"
#include "modNativePath.h"

namespace {

void open(Program& program, const QString& name, const char* field, int missingId) {
    if (!program.File().Has(name))
        return;
    const QString path = program.File().Read(name, field);
    if (program.Services().process->OpenFolder(path))
        return;
    const StringTable& texts = program.Texts();
    const bool exists = program.Services().ownFiles->FolderExists(modNativePath::FromText(path));
    const QString text = exists ? texts.Text(545).arg(path) : QString(texts.Text(missingId) + path + texts.Text(133));
    program.Prompts().Ask({text, texts.Text(exists ? 107 : 135), MessageIcon::Exclamation, MessageButtons::Ok});
}

} // namespace

void modOpenExplorer::OpenSource(Program& program, const QString& name) {
    open(program, name, "sourcedir", 281);
}

void modOpenExplorer::OpenTarget(Program& program, const QString& name) {
    open(program, name, "targetdir", 282);
}
