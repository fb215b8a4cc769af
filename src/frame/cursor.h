// Cursors: one object of a view, for kernels that work object by object.
//
// A kernel picks a path once per call (pathOf) and then asks for a cursor on
// each object: whole rows when every operand has contiguous rows, any
// strides otherwise, element tables for P.  The address arithmetic is that
// of view.h.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/view.h"

namespace kel {

// Which way a kernel reaches elements: whole rows (packed S and L), any
// strides (S and L), or element tables (P).
enum class Path { Rows, Strided, Table };

template <class T>
struct RowsCursor {
    using Elem = std::remove_const_t<T>;
    T* base;
    int32_t s1;
    T* row(int32_t j) const { return offset(base, mul32(j, s1)); }
    Elem get(int32_t j, int32_t i) const { return load<Elem>(row(j) + i); }
    void put(int32_t j, int32_t i, Elem v) const { store<Elem>(row(j) + i, v); }
};

template <class T>
struct StridedCursor {
    using Elem = std::remove_const_t<T>;
    T* base;
    int32_t s1, s2;
    T* at(int32_t j, int32_t i) const { return offset(base, add32(mul32(j, s1), mul32(i, s2))); }
    Elem get(int32_t j, int32_t i) const { return load<Elem>(at(j, i)); }
    void put(int32_t j, int32_t i, Elem v) const { store<Elem>(at(j, i), v); }
};

template <class T>
struct TableCursor {
    using Elem = std::remove_const_t<T>;
    T* const* table;
    int32_t off, ld;
    T* at(int32_t j, int32_t i) const { return offset(table[static_cast<int64_t>(j) * ld + i], off); }
    Elem get(int32_t j, int32_t i) const { return load<Elem>(at(j, i)); }
    void put(int32_t j, int32_t i, Elem v) const { store<Elem>(at(j, i), v); }
};

// Object n of a matrix or vector view (a vector is one row: get(0, i)).
template <Path W, class V>
inline auto cursor(const V& v, int32_t n)
{
    using T = std::remove_pointer_t<decltype(v.base)>;
    if constexpr (W == Path::Table) {
        int32_t off = v.roi;
        if constexpr (V::array) off = add32(off, mul32(n, v.s0));
        return TableCursor<T>{v.table, off, v.ld};
    } else if constexpr (W == Path::Rows) {
        return RowsCursor<T>{v.object(n), v.s1};
    } else {
        return StridedCursor<T>{v.object(n), v.s1, v.s2};
    }
}

// The path of a call: P views use their tables, S and L views whole rows
// when every one of them has contiguous rows.
template <class V0, class... V>
inline Path pathOf(const V0& v0, const V&... v)
{
    if constexpr (V0::desc == Desc::P) return Path::Table;
    else return (v0.rowsContiguous() && ... && v.rowsContiguous()) ? Path::Rows : Path::Strided;
}

}  // namespace kel
