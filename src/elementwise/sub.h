// Sub: element-wise differences, left operand minus right operand.
#pragma once

#include "elementwise/elementwise.h"
