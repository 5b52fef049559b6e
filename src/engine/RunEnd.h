// Why a run ended early. A value.
#pragma once

enum class RunEnd {
    None,
    Closing,         ///< the program ends
    Stopped,         ///< monitoring was stopped
    RecordChanged,   ///< the activity is not the one the run began with, or another file is open
    RootGone,        ///< a root's path leads to another folder, or nowhere
    Unreadable,      ///< a folder of a mirror could not be read to its end
    FolderExchanged, ///< a folder is not the one that was listed
    SafeExit         ///< the emergency key
};
