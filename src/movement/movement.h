// Pieces shared by the families that move elements without arithmetic
// (Copy, Extract, LoadIdentity, Transpose).
//
// An element is moved as one 32-bit or 64-bit word, never as a float or a
// double, so NaN payloads (signalling ones included) and signed zeros arrive
// exactly as they left.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/frame.h"
#include "frame/view.h"

namespace kel::movement {

// The machine word that carries one element of type T.
template <class T>
using Word = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;

// Copies one element's bits from `from` to `to` (any alignment).
template <class T>
inline void moveWord(const T* from, std::remove_const_t<T>* to)
{
    using W = Word<std::remove_const_t<T>>;
    store<W>(to, load<W>(from));
}

// Stores the bit pattern of the element value v (0 or 1) at `to`.
template <class T>
inline void putValue(T* to, T v)
{
    store<Word<T>>(to, load<Word<T>>(&v));
}

// Logical rows and columns of an operand: a vector is one row of `len`.
template <class V>
inline int32_t widthOf(const Sizes& s)
{
    return V::kind == Kind::Vector ? s.L : s.W;
}
template <class V>
inline int32_t heightOf(const Sizes& s)
{
    return V::kind == Kind::Vector ? 1 : s.H;
}

}  // namespace kel::movement
