// The program's own temporary files in one folder: which names were seen there, and which of them killed processes have
// left. Owns names only; the folder says whether one is a leftover and how it is removed.
#pragma once

#include "Folder.h"

#include <string>

class Leftovers final {
  public:
    using Names = std::vector<std::string>;
    using Remove = std::function<void(const std::string& name)>;

    void SetSeen(Names names) { m_seen = std::move(names); }
    [[nodiscard]] bool AreSeen() const { return m_seen.has_value(); }

    /// Removes the files among those seen, which have to be looked for again then. Keeps the marks and says what they
    /// tell.
    UnfinishedWork RemoveFiles(const std::function<bool(const std::string& name)>& isLeftover, const Remove& remove);

    /// Removes the marks that RemoveFiles has kept.
    void RemoveMarks(const Remove& remove);

  private:
    std::optional<Names> m_seen; ///< by the last listing
    Names m_marks;               ///< of processes that have gone
};
