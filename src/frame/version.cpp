// The version record of this build.
#include "kelm.h"

namespace {
const KelLibraryVersion kVersion = {
    7, 0, 205, 1012, {'q', '4', 0, 0}, "kelmq4-7.0.dll", "7.0 build 205.85", "Nov 27 2011",
};
}  // namespace

extern "C" KELM_API const KelLibraryVersion* kelmGetLibVersion(void) { return &kVersion; }
