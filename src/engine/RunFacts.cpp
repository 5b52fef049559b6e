#include "RunFacts.h"
#include "ActivityFile.h"

RunIdentity RunIdentity::Of(const ActivityFile& file, const QString& name) {
    return {file.CurrentPath(), name, file.Read(name, ActivityField::SourceDir),
            file.Read(name, ActivityField::TargetDir), file.Read(name, ActivityField::Action)};
}
