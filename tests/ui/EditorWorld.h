// What the activity editor needs around it: real files in a folder of its own, everything else steered by the test.
#pragma once

#include "DesktopMailClient.h"
#include "FakeFilePicker.h"
#include "ScratchStore.h"
#include "clsGetSystemDirectoryPaths.h"
#include "frmOptions.h"

struct EditorWorld {
    ScratchStore store;
    FakeFilePicker picker;
    MemorySettings settings;
    FakeClock clock;
    NoDesktopMailClient mail;
    clsGetSystemDirectoryPaths system{"/usr", "/etc", "/"};
    int writes = 0;
    QString writtenName;
    ActivityRecord written;

    EditorServices Services() {
        const QLocale locale(QLocale::English, QLocale::UnitedStates);
        return {{store.texts, store.prompter, picker, store.files, settings}, clock, mail, system, locale};
    }
    frmOptions::Request Request(const QString& name, const ActivityRecord& record) {
        return {name,
                record,
                {},
                [](const QString&) { return true; },
                [](const QString&) { return false; },
                [this](const QString& given, const ActivityRecord& value) {
                    ++writes;
                    writtenName = given;
                    written = value;
                    return true;
                }};
    }
    /// An activity that can be saved as it is.
    ActivityRecord Usable() {
        ActivityRecord record = frmOptions::NewActivity();
        record.SetText(ActivityField::SourceDir, store.Path("cwd"));
        record.SetText(ActivityField::TargetDir, store.Path("program"));
        return record;
    }
};
