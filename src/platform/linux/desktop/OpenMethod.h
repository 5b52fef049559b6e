// How a file is opened on Linux. A pure decision, so that no file is run that its owner never meant to be a program.
#pragma once

#include <string_view>

enum class OpenMethod {
    Start,   ///< the kernel can run it
    Shell,   ///< a script without an interpreter line, for /bin/sh
    Desktop, ///< a document
};

/// What is known of the file.
struct OpenFacts {
    bool executable = false;    ///< this user may execute it
    bool bitsMeanIt = true;     ///< false on file systems without permission bits, where every file looks executable
    std::string_view name;      ///< last component
    std::string_view firstPart; ///< the first bytes, up to 512
};

[[nodiscard]] OpenMethod ChooseOpenMethod(const OpenFacts& facts);
