// Lets the user edit one activity. Implemented by the editor's dialog; tests answer in its place.
#pragma once

#include "ActivityRecord.h"
#include <functional>

class ActivityEditor {
  public:
    virtual ~ActivityEditor() = default;

    /// Takes the edited activity; false keeps the editor open (the user has been told why).
    using Writer = std::function<bool(const QString& name, const ActivityRecord& record)>;

    /// Shows the activity ("" and an empty record for a new one) until it has been written or the user gives up. True
    /// when it was written.
    [[nodiscard]] virtual bool Edit(const QString& name, const ActivityRecord& record, const Writer& write) = 0;
};
