// What runs work with; everything outlives them.
#pragma once

#include "EngineServices.h"
#include "Interruptions.h"

class ActivityLogs;
class OwnPlaces;
class Reactions;
class SafeExit;
class SyncTexts;

struct RunTools {
    const EngineServices& services;
    ActivityLogs& logs;
    Reactions& reactions;
    SafeExit& safeExit;
    MonitoringSwitch& monitoring;
    const OwnPlaces& ownPlaces;
    const SyncTexts& texts;
    Interruptions& interruptions;
};
