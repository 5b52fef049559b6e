#include "NewActivity.h"

#include "ActivityRecord.h"

ActivityRecord NewActivity() {
    ActivityRecord record;
    record.SetNumber(ActivityField::Type, 1);
    record.SetNumber(ActivityField::Interval, 10);
    record.SetNumber(ActivityField::Action, 0);
    record.SetOn(ActivityField::Alert, false);
    record.SetOn(ActivityField::AllFiles, true);
    record.SetOn(ActivityField::Active, true);
    record.SetOn(ActivityField::UseSmtp, true);
    return record;
}
