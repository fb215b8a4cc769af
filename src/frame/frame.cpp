// Pieces of the call frame that live in one place for the whole library.
#include <cstdlib>

#include "frame.h"

namespace kel {

void storeTeamStatus(KelStatus* shared, KelStatus st)
{
    // One lock for the whole library, held for one load and one store.
#pragma omp critical(kelm_status)
    {
        if (*shared == kelStsNoErr) *shared = st;
    }
}

void* teamScratchAlloc(std::size_t bytes) { return std::malloc(bytes); }

void teamScratchFree(void* p) { std::free(p); }

}  // namespace kel
