// What a fuzz target demands of the code it feeds.
#pragma once

#include <cstdlib>

inline void Require(bool holds) {
    if (!holds)
        std::abort();
}
