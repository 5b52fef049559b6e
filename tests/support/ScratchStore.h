// An activity file in a folder of its own, with everything that works on it. Real files, a prompter that answers.
#pragma once

#include "ActivityFile.h"
#include "Fakes.h"
#include "PlatformServices.h"
#include "ScratchFolder.h"
#include "StringTable.h"
#include "clsXML.h"

struct ScratchStore : ScratchFolder {
    ScratchStore() = default;
    /// The current file is "a.kvd" with these bytes.
    explicit ScratchStore(const QByteArray& bytes) {
        Write(u"a.kvd"_qs, bytes);
        file.SetCurrentPath(Path(u"a.kvd"_qs));
    }

    const std::unique_ptr<OwnFiles> ownFiles = MakePlatformServices().ownFiles;
    OwnFiles& files = *ownFiles;
    clsXML document{files};
    FakePrompter prompter;
    StringTable texts{Language::English};
    ProgramPlaces places = makePlaces();
    ActivityFile file{document, files, prompter, texts, places};

  private:
    [[nodiscard]] ProgramPlaces makePlaces() const {
        QDir(Path()).mkdir(u"program"_qs);
        QDir(Path()).mkdir(u"cwd"_qs);
        return {.programFolder = Native(u"program"_qs),
                .dataFolder = Native(u"program"_qs),
                .userDataFolder = Native(u"data"_qs)};
    }
};
