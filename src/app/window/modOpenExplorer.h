// Shows an activity's folders in the desktop's file manager. A folder that cannot be shown is reported in a box.
#pragma once

class Program;
class QString;

namespace modOpenExplorer {

/// mnuOpenSourceDir, mnuOpenTargetDir. Do nothing for a name that no activity has.
void OpenSource(Program& program, const QString& name);
void OpenTarget(Program& program, const QString& name);

} // namespace modOpenExplorer
