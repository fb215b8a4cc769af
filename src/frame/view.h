// Operand views: where the elements of an operand lie.
//
// Every address the library forms goes through this file.  A view is built
// by an export from its argument group and never touches memory until a
// kernel asks for an element.  Byte offsets are formed in 32-bit signed
// arithmetic (products and sums wrap as 32-bit values) and only then
// sign-extended and added to the pointer.
//
//   S  base pointer and strides         base + n*s0 + j*s1 + i*s2
//   L  table of object pointers         table[n] + roi + j*s1 + i*s2
//   P  table of element pointers        table[j*ld + i] + roi + n*s0
//
// A transposed operand reads stored element (i, j) for logical (j, i).  A
// vector is a matrix of one row.  A single object ignores n.
#pragma once

#include <cstdint>
#include <cstring>
#include <tuple>
#include <type_traits>

namespace kel {

enum class Desc : unsigned char { S, L, P };

// Loads and stores of one element at any byte address.  Callers may pass
// base pointers that are not multiples of the element size.
template <class T>
inline T load(const void* p)
{
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
template <class T>
inline void store(void* p, T v)
{
    std::memcpy(p, &v, sizeof v);
}

// 32-bit signed byte offset helpers: wrap like the 32-bit machine words the
// offsets are defined on.
inline int32_t mul32(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}
inline int32_t add32(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}
template <class T>
inline T* offset(T* p, int32_t bytes)
{
    using B = std::conditional_t<std::is_const<T>::value, const char, char>;
    return reinterpret_cast<T*>(reinterpret_cast<B*>(p) + static_cast<int64_t>(bytes));
}

template <class T>
constexpr int32_t kElem = static_cast<int32_t>(sizeof(std::remove_const_t<T>));

// Stride and shift rules shared by all operands.
template <class T>
inline bool badStride(int32_t s)
{
    return s <= 0 || s % kElem<T> != 0;
}
template <class T>
inline bool badShift(int32_t r)
{
    return r < 0 || r % kElem<T> != 0;
}

namespace detail {
// x, passed through a register: the compiler cannot merge its load with the
// loads of neighbouring fields into one wide move.
template <class X>
inline X inRegister(X x)
{
    asm("" : "+r"(x));
    return x;
}
}  // namespace detail

// Kinds of operand, used by the front ends to tell views apart.
enum class Kind : unsigned char { Matrix, Vector, Constant, Buffer };

// An object (matrix or vector), single or array, in one description.
//   T      element type, const for sources
//   D      description
//   Arr    array of objects (has a Stride0 or a table of objects)
//   Trans  logical (j, i) is stored (i, j)
//   IsVec  vector: no Stride1, one row
template <class T, Desc D, bool Arr, bool Trans = false, bool IsVec = false>
struct Obj {
    using Elem = std::remove_const_t<T>;
    static constexpr Desc desc = D;
    static constexpr bool array = Arr;
    static constexpr bool trans = Trans;
    static constexpr Kind kind = IsVec ? Kind::Vector : Kind::Matrix;
    static constexpr bool written = !std::is_const<T>::value;  // a destination
    static constexpr bool hasStride1 = !IsVec && D != Desc::P;
    static constexpr bool hasStride2 = D != Desc::P;
    static constexpr bool hasStride0 = D == Desc::P ? Arr : (D == Desc::S && Arr);
    static constexpr bool hasShift = D == Desc::P || (D == Desc::L && Arr);
    using Table = T* const*;

    T* base = nullptr;        // S, and single objects of an L call
    Table table = nullptr;    // L (objects) or P (element positions)
    int32_t roi = 0;          // L, P
    int32_t s0 = 0, s1 = 0, s2 = 0;
    int32_t ld = 0;           // P: table entries per stored row

    // Pointer arguments this operand received.
    bool null() const
    {
        if constexpr (D == Desc::S || (D == Desc::L && !Arr)) return base == nullptr;
        else return table == nullptr;
    }
    // Strides this operand received; Stride0 only when withStride0.
    bool badStrides(bool withStride0 = true) const
    {
        bool bad = false;
        if constexpr (hasStride0) bad |= withStride0 && badStride<T>(s0);
        if constexpr (hasStride1) bad |= badStride<T>(s1);
        if constexpr (hasStride2) bad |= badStride<T>(s2);
        return bad;
    }
    bool badStride0() const
    {
        if constexpr (hasStride0) return badStride<T>(s0);
        else return false;
    }
    bool badRoi() const
    {
        if constexpr (hasShift) return badShift<T>(roi);
        else return false;
    }
    // Elements of a stored row are adjacent (Stride2 is the element size).
    // P operands are never packed.
    bool packed() const { return hasStride2 && s2 == kElem<T>; }
    // Logical rows are contiguous runs of memory: packed and not transposed.
    bool rowsContiguous() const { return packed() && !Trans; }

    // Tell a P view how many table entries a stored row has.
    void setStoredWidth(int32_t w) { ld = w; }

    // Address of logical element (j, i) of object n.
    T* at(int32_t n, int32_t j, int32_t i) const
    {
        if constexpr (Trans) {
            int32_t t = j;
            j = i;
            i = t;
        }
        if constexpr (D == Desc::P) {
            int32_t off = roi;
            if constexpr (Arr) off = add32(off, mul32(n, s0));
            return offset(table[static_cast<int64_t>(j) * ld + i], off);
        } else {
            int32_t off = add32(mul32(j, s1), mul32(i, s2));
            return offset(object(n), off);
        }
    }
    // First element of object n (S and L).
    T* object(int32_t n) const
    {
        if constexpr (D == Desc::L && Arr) return offset(table[n], roi);
        else if constexpr (Arr) return offset(base, mul32(n, s0));
        else {
            (void)n;
            return base;
        }
    }
    // Start of logical row j of object n, for rowsContiguous() views.
    T* row(int32_t n, int32_t j) const { return offset(object(n), mul32(j, s1)); }

    Elem get(int32_t n, int32_t j, int32_t i) const { return load<Elem>(at(n, j, i)); }
    void put(int32_t n, int32_t j, int32_t i, Elem v) const { store<Elem>(at(n, j, i), v); }

    // A copy taken one field at a time, for kernels that keep a view of
    // their own.  A call builds its views a field at a time just before
    // the kernel copies them, and a copy in 16-byte moves would read across
    // several of those stores: the processor cannot forward such a read and
    // holds it until the stores reach the cache, which is to say until all
    // the work before the call has finished.
    Obj fieldwise() const
    {
        static_assert(sizeof(Obj) == 2 * sizeof(T*) + 6 * sizeof(int32_t), "every field is copied below");
        Obj v;
        v.base = detail::inRegister(base);
        v.table = detail::inRegister(table);
        v.roi = detail::inRegister(roi);
        v.s0 = detail::inRegister(s0);
        v.s1 = detail::inRegister(s1);
        v.s2 = detail::inRegister(s2);
        v.ld = detail::inRegister(ld);
        return v;
    }

    // The same operand starting at object f of the array.
    Obj slice(int32_t f) const
    {
        Obj v = *this;
        if constexpr (Arr) {
            if constexpr (D == Desc::S) v.base = offset(base, mul32(f, s0));
            else if constexpr (D == Desc::L) v.table = table + f;
            else v.roi = add32(roi, mul32(f, s0));
        }
        return v;
    }
};

// A constant passed by value.
template <class T>
struct Const {
    using Elem = T;
    static constexpr Kind kind = Kind::Constant;
    static constexpr bool written = false;
    static constexpr bool array = false;
    static constexpr bool hasShift = false;
    T value;
    bool null() const { return false; }
    bool badStrides(bool = true) const { return false; }
    bool badStride0() const { return false; }
    bool badRoi() const { return false; }
    bool packed() const { return true; }
    T get(int32_t, int32_t = 0, int32_t = 0) const { return value; }
    Const slice(int32_t) const { return *this; }
};

// An array of constants: S and P use a pointer and Stride0, L a table.
template <class T, Desc D>
struct ConstArr {
    using Elem = std::remove_const_t<T>;
    static constexpr Desc desc = D;
    static constexpr Kind kind = Kind::Constant;
    static constexpr bool written = false;
    static constexpr bool array = true;
    static constexpr bool hasShift = D == Desc::L;
    T* base = nullptr;
    T* const* table = nullptr;
    int32_t roi = 0, s0 = 0;

    bool null() const { return D == Desc::L ? table == nullptr : base == nullptr; }
    bool badStrides(bool withStride0 = true) const
    {
        return D != Desc::L && withStride0 && badStride<T>(s0);
    }
    bool badStride0() const { return D != Desc::L && badStride<T>(s0); }
    bool badRoi() const { return D == Desc::L && badShift<T>(roi); }
    bool packed() const { return true; }
    T* at(int32_t n) const
    {
        if constexpr (D == Desc::L) return offset(table[n], roi);
        else return offset(base, mul32(n, s0));
    }
    Elem get(int32_t n, int32_t = 0, int32_t = 0) const { return load<Elem>(at(n)); }
    ConstArr slice(int32_t f) const
    {
        ConstArr v = *this;
        if constexpr (D == Desc::L) v.table = table + f;
        else v.base = offset(base, mul32(f, s0));
        return v;
    }
};

// A plain pointer argument with no description: the caller's scratch.
// Takes part in the null-pointer step only and stays put in a team.
template <class T>
struct Plain {
    static constexpr bool array = false;
    static constexpr Kind kind = Kind::Buffer;
    static constexpr bool written = !std::is_const<T>::value;
    T* ptr;
    bool null() const { return ptr == nullptr; }
    bool badStrides(bool = true) const { return false; }
    bool badStride0() const { return false; }
    bool badRoi() const { return false; }
    bool packed() const { return true; }
    Plain slice(int32_t) const { return *this; }
};

// A dense run of `per` elements for each object, objects one after the
// other: pivot tables, results of reductions, gathered copies.  The front
// end sets `per` once the sizes are known; a team's slice starts at its
// first object's run.
template <class T>
struct Dense {
    static constexpr bool array = true;
    static constexpr Kind kind = Kind::Buffer;
    static constexpr bool written = !std::is_const<T>::value;
    T* ptr;
    int32_t per = 1;
    bool null() const { return ptr == nullptr; }
    bool badStrides(bool = true) const { return false; }
    bool badStride0() const { return false; }
    bool badRoi() const { return false; }
    bool packed() const { return true; }
    void setPerObject(int32_t n) { per = n; }
    T* at(int32_t n, int32_t k = 0) const { return ptr + static_cast<int64_t>(n) * per + k; }
    Dense slice(int32_t f) const
    {
        Dense v = *this;
        v.ptr = at(f);
        return v;
    }
};

// A dense run of `count` packed objects of h x w elements as the S array it
// is, when all of it lies within 32-bit byte offsets.
template <class T>
bool packedObjects(const Dense<T>& d, int32_t count, int32_t w, int32_t h, Obj<T, Desc::S, true>& out)
{
    const int64_t row = static_cast<int64_t>(w) * kElem<T>, object = row * h;
    if (w < 1 || h < 1 || object * count > INT32_MAX) return false;
    out.base = d.ptr;
    out.s0 = static_cast<int32_t>(object);
    out.s1 = static_cast<int32_t>(row);
    out.s2 = kElem<T>;
    return true;
}

// ---- objects one after another ------------------------------------------------------
// Are all these views S arrays, whose strides alone say where every object
// lies?
template <class... V>
constexpr bool sArrays()
{
    return ((V::desc == Desc::S && V::array) && ...);
}

// Does an S array hold its objects of h rows of w elements one right after
// another, with no gap within a row, between rows or between objects (so
// that any run of its objects is one run of memory)?  Other views: no.
template <class V>
bool gaplessObjects(const V& v, int32_t h, int32_t w)
{
    constexpr int32_t e = kElem<typename V::Elem>;
    if constexpr (sArrays<V>()) return v.s2 == e && (h == 1 || v.s1 == w * e) && v.s0 == h * w * e;
    else return (void)v, (void)h, (void)w, false;
}

// ---- element tables that are grids ---------------------------------------------------
// A P operand whose table is a grid (entry (r, c) is entry 0 plus r*s1 + c*s2
// bytes, both strides positive multiples of the element size) names the same
// elements as the S operand at entry 0 plus the shift, with those strides and
// its own Stride0, as long as no byte offset of the call needs more than 32
// bits (then both form every address the same way).  Fields of an array of
// structures given by pointers are such tables.  Kernels whose S and P paths
// give the same results can take them as S operands.
template <class V>
constexpr bool isTable()
{
    if constexpr (V::kind == Kind::Constant || V::kind == Kind::Buffer) return false;
    else return V::desc == Desc::P;
}
template <class V>
struct GridOf {
    using type = V;
};
template <class T, bool Arr, bool Trans, bool IsVec>
struct GridOf<Obj<T, Desc::P, Arr, Trans, IsVec>> {
    using type = Obj<T, Desc::S, Arr, Trans, IsVec>;
};

// The S operand of a grid table for `count` objects of h x w logical
// elements; other views as they are.  False when the table is no grid.
template <class V>
bool gridOf(const V& v, int32_t count, int32_t w, int32_t h, typename GridOf<V>::type& g)
{
    if constexpr (!isTable<V>()) {
        (void)count, (void)w, (void)h;
        g = v;
        return true;
    } else {
        constexpr int64_t e = kElem<typename V::Elem>;
        const int32_t rows = V::kind == Kind::Vector ? 1 : (V::trans ? w : h), cols = v.ld;
        const auto entry = [&](int64_t q) { return reinterpret_cast<uintptr_t>(v.table[q]); };
        const uintptr_t first = entry(0);
        const int64_t s2 = cols > 1 ? static_cast<int64_t>(entry(1) - first) : e;
        const int64_t s1 = rows > 1 ? static_cast<int64_t>(entry(cols) - first) : s2 * cols;
        if (s1 <= 0 || s2 <= 0 || s1 > INT32_MAX || s2 > INT32_MAX || s1 % e || s2 % e) return false;
        for (int32_t r = 0; r < rows; ++r)
            for (int32_t c = 0; c < cols; ++c)
                if (static_cast<int64_t>(entry(int64_t(r) * cols + c) - first) != r * s1 + c * s2) return false;
        int64_t reach = v.roi + (rows - 1) * s1 + (cols - 1) * s2;
        if constexpr (V::array) {
            if (v.s0 <= 0) return false;
            reach += static_cast<int64_t>(count - 1) * v.s0;
            g.s0 = v.s0;
        }
        if (reach > INT32_MAX) return false;
        g.base = offset(v.table[0], v.roi);
        g.s1 = static_cast<int32_t>(s1);
        g.s2 = static_cast<int32_t>(s2);
        return true;
    }
}

// When some of these views are tables and all tables are grids, calls f
// with the S operands of the tables (other views as they are) and returns
// true; else returns false.  Every view has `count` objects of h x w
// logical elements.
template <class F, class... V>
bool withGrids(int32_t count, int32_t w, int32_t h, F&& f, const V&... v)
{
    if constexpr (!(isTable<V>() || ...)) {
        (void)count, (void)w, (void)h, (void)f, ((void)v, ...);
        return false;
    } else {
        std::tuple<typename GridOf<V>::type...> g;
        const bool grids = std::apply([&](auto&... s) { return (gridOf(v, count, w, h, s) && ...); }, g);
        if (grids) std::apply(f, g);
        return grids;
    }
}

// ---- objects side by side ----------------------------------------------------------
// An array operand whose objects lie one element apart (S with Stride0 the
// element size, or P over planes) holds element (j, i) of consecutive
// objects side by side, so a kernel may run several objects at once, one
// per lane.  Single objects and constants qualify: they are the same for
// every lane.  L arrays never do (their objects lie anywhere).
template <class V>
bool sideBySide(const V& v)
{
    if constexpr (!V::array) return true;
    else if constexpr (V::kind == Kind::Buffer) return v.per == 1;
    else if constexpr (V::desc == Desc::L) return false;
    else return v.s0 == kElem<typename V::Elem>;
}

// The bytes from the lowest to the highest element of objects 0..count-1
// (w x h logical elements each) of an S or P operand, a single object, or
// an S or P array of constants.  Strides are positive, so object 0 holds
// the lowest address of each position and object count-1 the highest.
struct Span {
    const char* lo = nullptr;
    const char* hi = nullptr;
    bool meets(const Span& o) const { return lo < o.hi && o.lo < hi; }
};
template <class V>
Span spanOf(const V& v, int32_t count, int32_t w, int32_t h)
{
    Span s;
    if constexpr (V::kind == Kind::Constant && !V::array) {
        (void)v, (void)count, (void)w, (void)h;  // passed by value
    } else if constexpr (V::kind == Kind::Constant) {
        static_assert(V::desc != Desc::L, "L arrays have no span of their own");
        (void)w, (void)h;
        s.lo = reinterpret_cast<const char*>(v.at(0));
        s.hi = reinterpret_cast<const char*>(v.at(count - 1)) + kElem<typename V::Elem>;
    } else {
        static_assert(!(V::desc == Desc::L && V::array), "L arrays have no span of their own");
        for (int32_t j = 0; j < h; ++j)
            for (int32_t i = 0; i < w; ++i) {
                const char* lo = reinterpret_cast<const char*>(v.at(0, j, i));
                const char* hi = reinterpret_cast<const char*>(v.at(count - 1, j, i)) + kElem<typename V::Elem>;
                if (!s.lo || lo < s.lo) s.lo = lo;
                if (!s.hi || hi > s.hi) s.hi = hi;
            }
    }
    return s;
}

// Source and destination are one operand in one description: the exact
// in-place use that every kernel supports.
template <class A, class D>
bool samePlace(const A& a, const D& d)
{
    if constexpr (A::kind == Kind::Constant || A::kind == Kind::Buffer || A::kind != D::kind) {
        (void)a, (void)d;
        return false;
    } else if constexpr (A::desc != D::desc || A::trans != D::trans || A::array != D::array) {
        (void)a, (void)d;
        return false;
    } else {
        return static_cast<const void*>(a.base) == static_cast<const void*>(d.base) &&
               static_cast<const void*>(a.table) == static_cast<const void*>(d.table) && a.roi == d.roi &&
               a.s0 == d.s0 && a.s1 == d.s1 && a.s2 == d.s2;
    }
}

// Does the destination share memory with a source other than in place?
// Kernels that reorder work across objects take their object-by-object
// form then, whose result such overlaps define.
template <class D, class... V>
bool overlapsSources(const D& d, int32_t count, int32_t w, int32_t h, const V&... src)
{
    const Span out = spanOf(d, count, w, h);
    return ((!samePlace(src, d) && spanOf(src, count, w, h).meets(out)) || ...);
}

// Factories used by the generated exports.  Argument order follows the
// argument groups of the exported names.
template <class T, bool Trans = false>
inline Obj<T, Desc::S, true, Trans> matArrS(T* p, int32_t s0, int32_t s1, int32_t s2)
{
    Obj<T, Desc::S, true, Trans> v;
    v.base = p, v.s0 = s0, v.s1 = s1, v.s2 = s2;
    return v;
}
template <class T, bool Trans = false>
inline Obj<T, Desc::L, true, Trans> matArrL(T* const* pp, int32_t roi, int32_t s1, int32_t s2)
{
    Obj<T, Desc::L, true, Trans> v;
    v.table = pp, v.roi = roi, v.s1 = s1, v.s2 = s2;
    return v;
}
template <class T, bool Trans = false>
inline Obj<T, Desc::P, true, Trans> matArrP(T* const* pp, int32_t roi, int32_t s0)
{
    Obj<T, Desc::P, true, Trans> v;
    v.table = pp, v.roi = roi, v.s0 = s0;
    return v;
}
// A single matrix of an S or L call (L has no form of its own for one object).
template <class T, bool Trans = false, Desc D = Desc::S>
inline Obj<T, D, false, Trans> matS(T* p, int32_t s1, int32_t s2)
{
    Obj<T, D, false, Trans> v;
    v.base = p, v.s1 = s1, v.s2 = s2;
    return v;
}
template <class T, bool Trans = false>
inline Obj<T, Desc::P, false, Trans> matP(T* const* pp, int32_t roi)
{
    Obj<T, Desc::P, false, Trans> v;
    v.table = pp, v.roi = roi;
    return v;
}
template <class T>
inline Obj<T, Desc::S, true, false, true> vecArrS(T* p, int32_t s0, int32_t s2)
{
    Obj<T, Desc::S, true, false, true> v;
    v.base = p, v.s0 = s0, v.s2 = s2;
    return v;
}
template <class T>
inline Obj<T, Desc::L, true, false, true> vecArrL(T* const* pp, int32_t roi, int32_t s2)
{
    Obj<T, Desc::L, true, false, true> v;
    v.table = pp, v.roi = roi, v.s2 = s2;
    return v;
}
template <class T>
inline Obj<T, Desc::P, true, false, true> vecArrP(T* const* pp, int32_t roi, int32_t s0)
{
    Obj<T, Desc::P, true, false, true> v;
    v.table = pp, v.roi = roi, v.s0 = s0;
    return v;
}
template <class T, Desc D = Desc::S>
inline Obj<T, D, false, false, true> vecS(T* p, int32_t s2)
{
    Obj<T, D, false, false, true> v;
    v.base = p, v.s2 = s2;
    return v;
}
template <class T>
inline Obj<T, Desc::P, false, false, true> vecP(T* const* pp, int32_t roi)
{
    Obj<T, Desc::P, false, false, true> v;
    v.table = pp, v.roi = roi;
    return v;
}
template <class T>
inline Const<T> cst(T v)
{
    return Const<T>{v};
}
template <class T>
inline ConstArr<T, Desc::S> cstArrS(T* p, int32_t s0)
{
    ConstArr<T, Desc::S> v;
    v.base = p, v.s0 = s0;
    return v;
}
template <class T>
inline ConstArr<T, Desc::L> cstArrL(T* const* pp, int32_t roi)
{
    ConstArr<T, Desc::L> v;
    v.table = pp, v.roi = roi;
    return v;
}
template <class T>
inline ConstArr<T, Desc::P> cstArrP(T* p, int32_t s0)
{
    ConstArr<T, Desc::P> v;
    v.base = p, v.s0 = s0;
    return v;
}
template <class T>
inline Plain<T> plain(T* p)
{
    return Plain<T>{p};
}
template <class T>
inline Dense<T> dense(T* p)
{
    return Dense<T>{p, 1};
}

}  // namespace kel
