// Has the next sub-folders of one level read while the present one is worked on. Owns what is under way; what was not
// ready in time is read by whoever needs it.
#pragma once

#include "FolderPair.h"
#include "ReadAhead.h"

#include <deque>

class FileSystem;

class FoldersAhead final {
  public:
    /// All of them outlive it. `listsDestination`: the destination is wanted wholly.
    FoldersAhead(FileSystem& fileSystem, Interruptions& interruptions, const FolderPair& level, bool listsDestination)
        : m_fileSystem(fileSystem), m_interruptions(interruptions), m_level(level),
          m_listsDestination(listsDestination) {}

    /// The sub-folders of this entry of the source; without folders where they have to be opened. Events may run.
    /// Begins with those behind it: a sub-folder that is taken is one that both sides have, and then its neighbours
    /// mostly are, too.
    [[nodiscard]] SeenPair Take(const FolderEntry& entry);

  private:
    struct Ahead {
        const FolderEntry* entry;
        std::unique_ptr<ReadAhead> work;
        Interruptions::Look look;
    };
    void begin(const FolderEntry& entry);

    FileSystem& m_fileSystem;
    Interruptions& m_interruptions;
    const FolderPair& m_level;
    bool m_listsDestination;
    std::deque<Ahead> m_ahead;
};
