#include "RunFacts.h"
#include "ActivityFile.h"

RunIdentity RunIdentity::Of(const ActivityFile& file, const QString& name) {
    return {file.CurrentPath(), name, file.Read(name, ActivityField::SourceDir),
            file.Read(name, ActivityField::TargetDir), file.Read(name, ActivityField::Action)};
}

bool IsFailure(RunEnd reason) {
    switch (reason) {
    case RunEnd::RecordChanged:
    case RunEnd::RootGone:
    case RunEnd::Unreadable:
    case RunEnd::FolderExchanged:
    case RunEnd::NotAsApproved:
    case RunEnd::TooMany:
        return true;
    case RunEnd::None:
    case RunEnd::Closing:
    case RunEnd::Stopped:
    case RunEnd::StoppedByUser:
    case RunEnd::SafeExit:
        break;
    }
    return false;
}
