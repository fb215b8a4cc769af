// Cursors: one object of a view, for kernels that work object by object.
//
// A kernel picks a path once per call and walks the objects of each
// operand with a Walk, which hands out a cursor per object:
//   Rows     S and L with Stride2 the element size: stored rows are runs of
//            memory (logical rows too, unless the operand is transposed);
//            the row distance may be fixed when compiling (RowBytes);
//   Strided  S and L with any strides;
//   Table    P: element positions from the table, the object's shift added.
// A cursor reads logical element (j, i), which is stored (i, j) when the
// operand is transposed.  The address arithmetic is that of view.h: 32-bit
// products of indices and strides, sign-extended onto the pointer.  A Walk
// copies the view into itself, so a kernel's stores (which may alias any
// memory) never make the compiler read the view's fields again.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "frame/view.h"

namespace kel {

enum class Path { Rows, Strided, Table };

// f(i) for i = 0 .. Count-1, each i a compile-time constant: straight-line
// code over the elements of a small object.
template <class F, int... I>
inline void unrolled(F&& f, std::integer_sequence<int, I...>)
{
    (f(std::integral_constant<int, I>{}), ...);
}
template <int Count, class F>
inline void unrolled(F&& f)
{
    unrolled(f, std::make_integer_sequence<int, Count>{});
}

// What every cursor derives from its stored(j, i): logical elements.
template <class C, class T, bool Trans>
struct CursorAccess {
    using Elem = std::remove_const_t<T>;
    T* at(int32_t j, int32_t i) const
    {
        const C& c = static_cast<const C&>(*this);
        return Trans ? c.stored(i, j) : c.stored(j, i);
    }
    Elem get(int32_t j, int32_t i) const { return load<Elem>(at(j, i)); }
    void put(int32_t j, int32_t i, Elem v) const { store<Elem>(at(j, i), v); }
};

template <class T, bool Trans, int RowBytes = 0>
struct RowsCursor : CursorAccess<RowsCursor<T, Trans, RowBytes>, T, Trans> {
    static constexpr bool kRows = !Trans;  // logical rows lie in memory
    T* base;
    int32_t s1;
    RowsCursor(T* b, int32_t stride1) : base(b), s1(stride1) {}
    T* stored(int32_t j, int32_t i) const { return offset(base, mul32(j, RowBytes ? RowBytes : s1)) + i; }
    // Start of stored row j: logical row j, or logical column j of a
    // transposed operand.
    T* row(int32_t j) const { return stored(j, 0); }
};

template <class T, bool Trans>
struct StridedCursor : CursorAccess<StridedCursor<T, Trans>, T, Trans> {
    static constexpr bool kRows = false;
    T* base;
    int32_t s1, s2;
    StridedCursor(T* b, int32_t stride1, int32_t stride2) : base(b), s1(stride1), s2(stride2) {}
    T* stored(int32_t j, int32_t i) const { return offset(base, add32(mul32(j, s1), mul32(i, s2))); }
};

template <class T, bool Trans>
struct TableCursor : CursorAccess<TableCursor<T, Trans>, T, Trans> {
    static constexpr bool kRows = false;
    T* const* table;
    int32_t off, ld;
    TableCursor(T* const* t, int32_t shift, int32_t perRow) : table(t), off(shift), ld(perRow) {}
    T* stored(int32_t j, int32_t i) const { return offset(table[static_cast<int64_t>(j) * ld + i], off); }
};

// The objects of one operand on path W (Table for every P view).
template <Path W, class V, int RowBytes = 0>
struct Walk {
    using T = std::remove_pointer_t<decltype(std::declval<const V&>().at(0, 0, 0))>;
    static constexpr Path path = V::desc == Desc::P ? Path::Table : W;
    using Cursor = std::conditional_t<path == Path::Table, TableCursor<T, V::trans>,
                                      std::conditional_t<path == Path::Rows, RowsCursor<T, V::trans, RowBytes>,
                                                         StridedCursor<T, V::trans>>>;
    const V v;

    explicit Walk(const V& view) : v(view.fieldwise()) {}
    Cursor operator[](int32_t n) const
    {
        if constexpr (path == Path::Table) {
            int32_t off = v.roi;
            if constexpr (V::array) off = add32(off, mul32(n, v.s0));
            return Cursor{v.table, off, v.ld};
        } else if constexpr (path == Path::Rows) {
            return Cursor{v.object(n), v.s1};
        } else {
            return Cursor{v.object(n), v.s1, v.s2};
        }
    }
    Cursor first() const { return (*this)[0]; }
};

// Object n of a view on path W.
template <Path W, class V>
inline auto cursor(const V& v, int32_t n)
{
    return Walk<W, V>(v)[n];
}

// The path of a call: P views use their tables, S and L views whole rows
// when every one of them has contiguous logical rows.
template <class V0, class... V>
inline Path pathOf(const V0& v0, const V&... v)
{
    if constexpr (V0::desc == Desc::P) return Path::Table;
    else return (v0.rowsContiguous() && ... && v.rowsContiguous()) ? Path::Rows : Path::Strided;
}

}  // namespace kel
