#include "SyncRules.h"

FileAction SyncRules::ActionOf(const QString& field) {
    if (field == u"3")
        return FileAction::Mirror;
    if (field == u"2")
        return FileAction::None;
    return field == u"1" ? FileAction::Move : FileAction::Copy;
}

FileRules SyncRules::RulesOf(const QString& action, const QString& overwrite, const QString& onlyNew) {
    return {ActionOf(action), overwrite == u"N", onlyNew == u"Y"};
}

FileDecision SyncRules::DecideExisting(const FileRules& rules, int comparison) {
    if (rules.asksFirst && comparison < 0)
        return FileDecision::Ask;
    if (rules.action == FileAction::None)
        return FileDecision::ReportOnly;
    return rules.onlyNewer && comparison <= 0 ? FileDecision::LeaveAlone : FileDecision::Replace;
}

FileDecision SyncRules::DecideAfterYes(const FileRules& rules) {
    return rules.action == FileAction::None ? FileDecision::ReportOnly : FileDecision::Replace;
}
