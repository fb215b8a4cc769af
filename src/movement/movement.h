// Pieces shared by the families that move elements without arithmetic
// (Copy, Extract, LoadIdentity, Transpose).
//
// An element is moved as raw bits (one 32-bit or 64-bit word, or a part of a
// 128-bit move), never through arithmetic, so NaN payloads (signalling ones
// included) and signed zeros arrive exactly as they left.
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

// Moves k elements from a run of memory to another in 128-bit moves, the
// last one partial.
template <class T>
[[gnu::always_inline]] inline void moveRun(const T* from, T* to, int64_t k)
{
    using P = simd::Pack<simd::Sse, T>;
    constexpr int L = simd::kLanes<T>;
    int64_t i = 0;
    for (; i + L <= k; i += L) P::load(from + i).store(to + i);
    if (i < k) P::loadPart(from + i, static_cast<int>(k - i)).storePart(to + i, static_cast<int>(k - i));
}

// Do the source and the result share no byte?  S operands by their spans;
// an L array object by object against the span of an S operand (between
// two L tables it is not known cheaply, so no).  Rows are runs of memory.
template <class S, class D>
bool apart(int32_t count, int32_t w, int32_t h, const S& src, const D& dst)
{
    constexpr bool fromL = S::desc == Desc::L && S::array, toL = D::desc == Desc::L && D::array;
    if constexpr (fromL && toL) {
        (void)count, (void)w, (void)h, (void)src, (void)dst;
        return false;
    } else if constexpr (!fromL && !toL) {
        return !spanOf(src, count, w, h).meets(spanOf(dst, count, w, h));
    } else {
        const auto& l = [&]() -> const auto& {
            if constexpr (fromL) return src;
            else return dst;
        }();
        const auto& other = [&]() -> const auto& {
            if constexpr (fromL) return dst;
            else return src;
        }();
        const Span span = spanOf(other, count, w, h);
        for (int32_t n = 0; n < count; ++n) {
            const char* first = reinterpret_cast<const char*>(l.at(n, 0, 0));
            const char* last = reinterpret_cast<const char*>(l.at(n, h - 1, w - 1));
            if (Span{first, last + kElem<typename D::Elem>}.meets(span)) return false;
        }
        return true;
    }
}

// S and L operands whose logical rows are runs of memory (not transposed),
// no byte of the source written: objects and rows ascending, in 128-bit
// moves, so that a result whose objects or rows overlap one another ends as
// the element loop leaves it.  Rows that follow one another in both
// operands move as one run an object, and gapless arrays as one run in all.
// Returns whether it ran.
template <class S, class D>
bool movedByRows(int32_t count, const S& src, const D& dst, int32_t w, int32_t h)
{
    if constexpr (S::desc == Desc::P || D::desc == Desc::P || S::trans || D::trans) {
        (void)count, (void)src, (void)dst, (void)w, (void)h;
        return false;
    } else {
        constexpr int32_t e = kElem<typename D::Elem>;
        if (!src.rowsContiguous() || !dst.rowsContiguous() || !apart(count, w, h, src, dst)) return false;
        // Copies of the views: the stores below cannot make them be read again.
        const S a = src.fieldwise();
        const D d = dst.fieldwise();
        const int64_t elements = static_cast<int64_t>(w) * h;
        if (gaplessObjects(a, h, w) && gaplessObjects(d, h, w)) {
            moveRun(a.object(0), d.object(0), elements * count);
        } else if (h == 1 || (a.s1 == w * e && d.s1 == w * e)) {
            for (int32_t n = 0; n < count; ++n) moveRun(a.object(n), d.object(n), elements);
        } else {
            for (int32_t n = 0; n < count; ++n)
                for (int32_t j = 0; j < h; ++j) moveRun(a.row(n, j), d.row(n, j), w);
        }
        return true;
    }
}

}  // namespace kel::movement
