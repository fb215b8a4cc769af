// The member registry of the tests, generated from the member tables.
#include "harness.h"
#include "kelm.h"

#include "registry.inc"
