#include "EditorDrives.h"

#include "ActivityRecord.h"
#include "DriveMark.h"
#include "FormParts.h"
#include "PathLook.h"
#include "Prompter.h"
#include "StringTable.h"
#include "modNativePath.h"
#include <array>

namespace {

struct Side {
    ActivityField directory;
    ActivityField drive;
};
constexpr std::array sides{Side{ActivityField::SourceDir, ActivityField::SourceDrive},
                           Side{ActivityField::TargetDir, ActivityField::TargetDrive}};

} // namespace

bool EditorDrives::Take(ActivityRecord& record, const ActivityRecord& former, Prompter& prompter,
                        const StringTable& texts) {
    ActivityRecord taken = record;
    const QString title = FormParts::Spoken(texts[Text::SafetyTab]);
    for (const Side& side : sides) {
        const QString& path = record.Text(side.directory);
        taken.SetText(side.drive, {});
        if (path.trimmed().isEmpty() || !record.IsOn(ActivityField::OnlyOnDrives))
            continue;
        const std::optional<modDrive::Named> drive = PathLook::DriveAtHand(modNativePath::Absolute(path));
        QString mark = drive ? DriveMark::Of(*drive) : QString();
        if (mark.isEmpty()) {
            prompter.Ask({texts[Text::DriveUntold].arg(path), title, MessageIcon::Exclamation, MessageButtons::Ok});
            return false;
        }
        const QString& known = former.Text(side.drive);
        const Message question{texts[Text::DriveDiffers].arg(path, DriveMark::Spoken(known), DriveMark::Spoken(mark)),
                               title, MessageIcon::Question, MessageButtons::YesNo};
        if (former.Text(side.directory) == path && !known.isEmpty() && !DriveMark::IsSame(known, mark) &&
            prompter.Ask(question) != MessageAnswer::Yes)
            mark = known;
        taken.SetText(side.drive, mark);
    }
    record = taken;
    return true;
}
