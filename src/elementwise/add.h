// Add: element-wise sums.
#pragma once

#include "elementwise/elementwise.h"
