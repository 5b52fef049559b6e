#include "RunIdentity.h"
#include "ActivityFile.h"

RunIdentity RunIdentity::Of(const ActivityFile& file, const QString& name) {
    return {file.CurrentPath(), name, file.Read(name, "sourcedir"), file.Read(name, "targetdir"),
            file.Read(name, "action")};
}
