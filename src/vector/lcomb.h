// LComb: the combination kernels of combine.h with two scales.
#pragma once

#include "vector/combine.h"
