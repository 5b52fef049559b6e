// The world a whole program lives in: real files in a temporary folder, everything else steered by the test.
#pragma once

#include "Fakes.h"
#include "Program.h"
#include "ScratchFolder.h"

class FakeWorld : public ScratchFolder {
  public:
    FakeWorld() {
        services = MakePlatformServices();
        services.clock = own(clock);
        services.eventPump = own(pump);
        services.settings = own(settings);
        services.locks = own(locks);
        services.process = own(process);
        services.power = own(power);
        services.nameService = own(names);
        services.autostart = own(autostart);
        services.serviceManager = own(serviceManager);
        services.systemClock = own(systemClock);
        services.dialUp = own(dialUp);
        services.fileTypes = own(fileTypes);
        services.places.programFolder = Native();
        services.places.userDataFolder = Native(QStringLiteral("data"));
    }

    FakeClock* clock = nullptr;
    FakeEventPump* pump = nullptr;
    MemorySettings* settings = nullptr;
    FakeLocks* locks = nullptr;
    FakeProcess* process = nullptr;
    FakePowerControl* power = nullptr;
    FakeNameService* names = nullptr;
    FakeAutostart* autostart = nullptr;
    FakeServiceManager* serviceManager = nullptr;
    FakeSystemClock* systemClock = nullptr;
    FakeDialUp* dialUp = nullptr;
    FakeFileTypes* fileTypes = nullptr;
    PlatformServices services;
    FakePrompter prompter;
    FakeKeyState keys;
    StringTable texts{Language::English};

  private:
    template <typename Fake>
    static std::unique_ptr<Fake> own(Fake*& pointer) {
        auto fake = std::make_unique<Fake>();
        pointer = fake.get();
        return fake;
    }
};
