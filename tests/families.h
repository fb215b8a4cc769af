// What the generic tests need to know of each family: the stored shape of
// each operand group for given sizes, and sizes that make a valid call.
#pragma once

#include <map>
#include <string>

#include "harness.h"

namespace kt {

// Stored shape of a group of an element-wise member (Add, Sub): the result
// has `height` rows and `width` columns (or `len` elements); a transposed
// operand is stored with `height` columns.
Shape elementwiseShape(const Member& m, const GroupInfo& g, const std::map<std::string, int>& sizes);

// The shape function of a family; throws for a family without one.
ShapeFn shapeOf(const std::string& family);

// Small valid sizes for a member: 3 x 3 matrices or 3-vectors, the given count.
std::map<std::string, int> validSizes(const Member& m, int count);

// Evaluates a work estimate formula in wrapping 32-bit arithmetic.
int32_t evalEstimate(const std::string& formula, const std::map<std::string, int>& sizes);

}  // namespace kt
