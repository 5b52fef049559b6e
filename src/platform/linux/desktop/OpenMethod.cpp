#include "OpenMethod.h"

using namespace std::string_view_literals;

OpenMethod ChooseOpenMethod(const OpenFacts& facts) {
    if (!facts.executable)
        return OpenMethod::Desktop;
    if (facts.firstPart.starts_with("#!"sv) || facts.firstPart.starts_with("\177ELF"sv))
        return OpenMethod::Start;
    // A text file on a FAT stick has the executable bit too; run line by line it could do anything.
    if (!facts.bitsMeanIt && !facts.name.ends_with(".sh"sv))
        return OpenMethod::Desktop;
    // Other binary formats may have their own loader in the kernel (binfmt_misc).
    const bool binary = facts.firstPart.find('\0') != std::string_view::npos;
    return binary ? OpenMethod::Start : OpenMethod::Shell;
}
