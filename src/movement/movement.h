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
#include "frame/lanes.h"
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

// Objects side by side (interleaved S, P over planes): a pack of objects'
// element (j, i) a step, moved as whole registers (loads and stores carry
// the bits as they are).  Result element (j, i), or (i, j) when Swap, gets
// source element (j, i); w x h are the source's.  Taken only where it gives
// the bytes of the object-by-object loop: no byte both read and written,
// and the result's positions apart.  Returns whether it ran.
template <bool Swap, class S, class D>
bool movedSideBySide(int32_t count, const S& src, const D& dst, int32_t w, int32_t h)
{
    if constexpr (!D::array || !lanesPossible<S>() || !lanesPossible<D>()) {
        (void)count, (void)src, (void)dst, (void)w, (void)h;
        return false;
    } else {
        const int32_t dw = Swap ? h : w, dh = Swap ? w : h;
        if (w > kLaneMaxSide || h > kLaneMaxSide || !sideBySide(src) || !sideBySide(dst) ||
            spanOf(src, count, w, h).meets(spanOf(dst, count, dw, dh)) || !positionsApart(dst, count, dw, dh))
            return false;
        const LaneOperand<simd::Sse, S> x(src, h, w);
        const LaneOperand<simd::Sse, D> y(dst, dh, dw);
        forLanes<typename D::Elem>(count, [&](int32_t first, int k) {
            for (int32_t j = 0; j < h; ++j)
                for (int32_t i = 0; i < w; ++i) y.store(Swap ? i : j, Swap ? j : i, first, x.load(j, i, first, k), k);
        });
        return true;
    }
}

}  // namespace kel::movement
