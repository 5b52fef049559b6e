// Nobody in particular, from here to the end of the scope. No user of this system may read and write everything.
#pragma once

struct AsNobody final {
    AsNobody() {} // one is made and not looked at
};
