// Saxpy: the combination kernels of combine.h with one scale.
#pragma once

#include "vector/combine.h"
