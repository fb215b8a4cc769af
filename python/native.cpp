// kelm._native: the library's members as a table, and one entry point that
// calls a member by its place in the table with a tuple of arguments.
//
// The table is generated from the member tables (tools/kelgen.py python),
// so a family that joins the library is callable from Python without any
// code here.  Arguments are converted by the kind of their slot: a pointer
// slot takes an ndarray (its data pointer), an int (an address) or None;
// an integer slot an int; a floating slot a float.  The GIL is released
// while the member runs.
#define PY_SSIZE_T_CLEAN
#include <Python.h>
#define NPY_NO_DEPRECATED_API NPY_1_7_API_VERSION
#include <numpy/arrayobject.h>

#include <cstdint>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "kelcore.h"
#include "kelm.h"

namespace kp {
union Slot {
    void* p;
    long long i;
    double d;
};
struct Member {
    const char* name;
    const char* family;
    const char* code;
    const char* type;
    const char* desc;
    const char* groups;
    const char* args;
    const char* kinds;
    KelStatus (*call)(const Slot*);
};
extern const Member kMembers[];
extern const int kMemberCount;
}  // namespace kp

#include "python_members.inc"

namespace {

constexpr Py_ssize_t kMaxArgs = 32;

PyObject* members(PyObject*, PyObject*)
{
    PyObject* out = PyTuple_New(kp::kMemberCount);
    if (!out) return nullptr;
    for (int k = 0; k < kp::kMemberCount; ++k) {
        const kp::Member& m = kp::kMembers[k];
        PyObject* row = Py_BuildValue("(ssssssss)", m.name, m.family, m.code, m.type, m.desc, m.groups, m.args,
                                      m.kinds);
        if (!row) {
            Py_DECREF(out);
            return nullptr;
        }
        PyTuple_SET_ITEM(out, k, row);
    }
    return out;
}

bool toPointer(PyObject* o, void** p)
{
    if (o == Py_None) {
        *p = nullptr;
        return true;
    }
    if (PyArray_Check(o)) {
        *p = PyArray_DATA(reinterpret_cast<PyArrayObject*>(o));
        return true;
    }
    *p = PyLong_AsVoidPtr(o);
    return !PyErr_Occurred();
}

// call(index, args) -> status
PyObject* call(PyObject*, PyObject* const* argv, Py_ssize_t argc)
{
    if (argc != 2 || !PyTuple_Check(argv[1])) {
        PyErr_SetString(PyExc_TypeError, "call(index, args: tuple)");
        return nullptr;
    }
    const long k = PyLong_AsLong(argv[0]);
    if (PyErr_Occurred()) return nullptr;
    if (k < 0 || k >= kp::kMemberCount) {
        PyErr_SetString(PyExc_IndexError, "no member at this index");
        return nullptr;
    }
    const kp::Member& m = kp::kMembers[k];
    PyObject* args = argv[1];
    const Py_ssize_t n = PyTuple_GET_SIZE(args);
    if (n > kMaxArgs || m.kinds[n] != '\0' || (n > 0 && m.kinds[n - 1] == '\0')) {
        PyErr_Format(PyExc_TypeError, "%s takes %d arguments (%s), got %zd", m.name,
                     static_cast<int>(std::strlen(m.kinds)), m.args, n);
        return nullptr;
    }
    kp::Slot slots[kMaxArgs];
    for (Py_ssize_t i = 0; i < n; ++i) {
        PyObject* o = PyTuple_GET_ITEM(args, i);
        switch (m.kinds[i]) {
        case 'p':
            if (!toPointer(o, &slots[i].p)) return nullptr;
            break;
        case 'f':
            slots[i].d = PyFloat_AsDouble(o);
            break;
        default:
            slots[i].i = PyLong_AsLongLong(o);
            if (!PyErr_Occurred() && (slots[i].i < INT32_MIN || slots[i].i > INT32_MAX))
                PyErr_Format(PyExc_OverflowError, "%s: argument %zd does not fit 32 bits", m.name, i);
        }
        if (PyErr_Occurred()) return nullptr;
    }
    KelStatus st;
    Py_BEGIN_ALLOW_THREADS
    st = m.call(slots);
    Py_END_ALLOW_THREADS
    return PyLong_FromLong(st);
}

PyObject* address(PyObject*, PyObject* o)
{
    if (!PyArray_Check(o)) {
        PyErr_SetString(PyExc_TypeError, "address(ndarray)");
        return nullptr;
    }
    return PyLong_FromVoidPtr(PyArray_DATA(reinterpret_cast<PyArrayObject*>(o)));
}

PyObject* setNumThreads(PyObject*, PyObject* o)
{
    const long n = PyLong_AsLong(o);
    if (PyErr_Occurred()) return nullptr;
    kelSetNumThreads(static_cast<int>(n));
    Py_RETURN_NONE;
}

PyObject* getNumThreads(PyObject*, PyObject*) { return PyLong_FromLong(kelGetNumThreads()); }

PyObject* version(PyObject*, PyObject*)
{
    const KelLibraryVersion* v = kelmGetLibVersion();
    return Py_BuildValue("(iiiisss)", v->major, v->minor, v->majorBuild, v->build, v->name, v->version,
                         v->buildDate);
}

// -- Recipes: the common call without the Python engine ---------------------
//
// A recipe is one numpy-level operation as a few member calls over operands
// whose object shapes are named by letters ("nk", "km" -> "nm").  Calling it
// with the input arrays runs the members straight from here when the call is
// the plain case: exact ndarrays of one native float type; inputs that are
// stacks of one shape, or single objects against them (numpy.broadcast_to
// included); stack axes that merge into one array axis, walked forwards by
// every input or backwards by every input; object strides of positive whole
// elements; no empty axis; every byte offset within 31 bits; and every
// member returning status 0 (a masked recipe answers refused objects with
// NaN and a mask instead).  Otherwise it returns None and the Python engine
// does the call (and raises what it must), so a recipe changes how fast a
// result comes, never which result: it picks the members the engine picks
// (by which inputs move along the stack) and allocates results as the
// engine does, C-contiguous in the order the members walk them.

enum GroupKind { kMatrix, kMatrixArray, kVector, kVectorArray, kRun, kBuffer, kSize, kCount };

struct GroupArg {
    GroupKind kind;
    int operand;  // index into the recipe's operands, or the dimension letter of a size
};

struct Operand {
    char role;             // 'i' input, 'L'/'U' symmetric input read by its lower/upper triangle,
                           // 'o' result, 'z' result that starts as zeros, 't' temporary,
                           // 'b' scratch
    bool int32;            // a table of int32 (pivots) instead of the call's floats
    char dims[4];          // letters of the object's axes
    int core;              // number of object axes
    long long buf[3];      // scratch: elements = buf[0]*n*n + buf[1]*n + buf[2]
    char bufLetter;
    bool run;              // some member takes it as a plain run
};

// Members by which inputs move along the stack: bit i of the mask is input
// i; mask 0 is a single object (every operand a single one).
constexpr int kMaxInputs = 3;
constexpr int kMasks = 1 << kMaxInputs;

struct Step {
    int member[2][kMasks];                  // [float, double][mask], -1 when absent
    std::vector<GroupArg> args[2][kMasks];  // the member's arguments, group by group
};

struct Recipe {
    PyObject_HEAD
    vectorcallfunc vectorcall;
    std::vector<Operand>* ops;
    std::vector<Step>* steps;
    int inputs;
    int orderValues, orderVectors;   // results put in ascending order of values, or -1
    bool masked;                     // refused objects give NaN and a mask, not None
};

constexpr int kMaxOps = 8;
bool recipesOn = true;   // off: every recipe returns None (tests compare both roads)

// Parses one member's group string against the step's operand map.
bool parseGroups(const kp::Member& m, PyObject* opmap, PyObject* sizes, std::vector<Operand>& ops,
                 std::vector<GroupArg>& out)
{
    const char* g = m.groups;
    Py_ssize_t k = 0;
    while (*g) {
        while (*g == ' ') ++g;
        if (!*g) break;
        const char* end = g;
        while (*end && *end != ' ') ++end;
        std::string word(g, end);
        g = end;
        const auto colon = word.find(':');
        if (colon == std::string::npos) {
            if (word == "count") {
                out.push_back({kCount, 0});
                continue;
            }
            PyObject* letter = PyDict_GetItemString(sizes, word.c_str());
            if (!letter || !PyUnicode_Check(letter) || PyUnicode_GET_LENGTH(letter) != 1) {
                PyErr_Format(PyExc_ValueError, "%s: no dimension letter for the size %s", m.name, word.c_str());
                return false;
            }
            out.push_back({kSize, static_cast<int>(PyUnicode_READ_CHAR(letter, 0))});
            continue;
        }
        const std::string kind = word.substr(0, colon);
        if (k >= PyTuple_GET_SIZE(opmap)) {
            PyErr_Format(PyExc_ValueError, "%s: more operand groups than the recipe maps", m.name);
            return false;
        }
        const long op = PyLong_AsLong(PyTuple_GET_ITEM(opmap, k++));
        if (op < 0 || op >= static_cast<long>(ops.size())) {
            PyErr_Format(PyExc_ValueError, "%s: the recipe maps a group to no operand", m.name);
            return false;
        }
        GroupKind gk;
        if (kind == "m" || kind == "t") gk = kMatrix;
        else if (kind == "ma" || kind == "ta") gk = kMatrixArray;
        else if (kind == "v") gk = kVector;
        else if (kind == "va") gk = kVectorArray;
        else if (kind == "out" || kind == "piv" || kind == "cpiv") {
            gk = kRun;
            ops[op].run = true;
        }
        else if (kind == "buf") gk = kBuffer;
        else {
            PyErr_Format(PyExc_ValueError, "%s: a recipe cannot pass a group of kind %s", m.name, kind.c_str());
            return false;
        }
        out.push_back({gk, static_cast<int>(op)});
    }
    return true;
}

void recipeDealloc(Recipe* r)
{
    delete r->ops;
    delete r->steps;
    Py_TYPE(r)->tp_free(reinterpret_cast<PyObject*>(r));
}

// One operand as the members see it.
struct Bound {
    char* base = nullptr;
    long long s0 = 0, s1 = 0, s2 = 0;
};

// The stack axes of length > 1 must step evenly, each outer stride the
// inner one times the inner length, so that object i lies at i * s0.  s0
// may be negative (a stack walked backwards) or zero (one object repeated,
// numpy.broadcast_to).
bool evenStack(PyArrayObject* a, int stackNd, long long* s0)
{
    int last = -1;
    for (int k = stackNd - 1; k >= 0 && last < 0; --k)
        if (PyArray_DIM(a, k) != 1) last = k;
    long long inner = 0, span = 0;
    for (int k = last; k >= 0; --k) {
        const npy_intp n = PyArray_DIM(a, k);
        if (n == 1) continue;
        const npy_intp st = PyArray_STRIDE(a, k);
        if (k == last) {
            inner = st;
            span = st * n;
        } else {
            if (st != span) return false;
            span *= n;
        }
    }
    *s0 = inner;
    return true;
}

// Strides of the object axes as the library takes them: a length-1 axis
// gets a stride it accepts.  False when an axis steps backwards, repeats or
// is not whole elements.
bool objectStrides(PyArrayObject* a, int core, long long item, long long* s1, long long* s2, long long* extent)
{
    const int nd = PyArray_NDIM(a);
    long long n[2] = {1, 1}, s[2] = {item, item};
    for (int c = 0; c < core; ++c) {
        n[2 - core + c] = PyArray_DIM(a, nd - core + c);
        s[2 - core + c] = PyArray_STRIDE(a, nd - core + c);
    }
    *extent = item;
    for (int c = 0; c < 2; ++c) {
        if (n[c] == 1) continue;
        if (s[c] <= 0 || s[c] % item) return false;
        *extent += (n[c] - 1) * s[c];
    }
    if (n[1] <= 1) s[1] = item;
    if (n[0] <= 1) s[0] = std::max(s[1] * std::max<long long>(n[1], 1), item);
    *s1 = s[0];
    *s2 = s[1];
    return true;
}

// A symmetric matrix given by one triangle, as the full square the members
// read: object i of the input (at i * s0, any strides) into a packed n x n.
template <class T>
void mirror(const char* src, long long s0, long long s1, long long s2, long long count, long long n, bool lower,
            T* dst)
{
    for (long long i = 0; i < count; ++i, dst += n * n)
        for (long long r = 0; r < n; ++r)
            for (long long c = 0; c < n; ++c) {
                const long long hi = r > c ? r : c, lo = r > c ? c : r;
                const long long at = lower ? hi * s1 + lo * s2 : lo * s1 + hi * s2;
                dst[r * n + c] = *reinterpret_cast<const T*>(src + i * s0 + at);
            }
}

// Values of each object into ascending order, stable, NaN last (numpy's
// argsort), with the columns of the vectors (packed n x n, or none) in step.
template <class T>
void ascending(T* values, T* vectors, long long count, long long n)
{
    std::vector<long long> order(n);
    std::vector<T> tmp(n * (vectors ? n : 1));
    const auto before = [](T a, T b) { return a < b || (b != b && a == a); };
    for (long long i = 0; i < count; ++i, values += n, vectors += vectors ? n * n : 0) {
        for (long long k = 0; k < n; ++k) {
            long long j = k;
            while (j > 0 && before(values[k], values[order[j - 1]])) {
                order[j] = order[j - 1];
                --j;
            }
            order[j] = k;
        }
        for (long long k = 0; k < n; ++k) tmp[k] = values[order[k]];
        std::copy(tmp.begin(), tmp.begin() + n, values);
        if (!vectors) continue;
        for (long long r = 0; r < n; ++r)
            for (long long k = 0; k < n; ++k) tmp[r * n + k] = vectors[r * n + order[k]];
        std::copy(tmp.begin(), tmp.end(), vectors);
    }
}

bool isInput(char role) { return role == 'i' || role == 'L' || role == 'U'; }
bool isResult(char role) { return role == 'o' || role == 'z'; }

// The statuses that refuse one object of an array (the others concern the
// whole call).
bool isRefusal(KelStatus st)
{
    return st == kelStsSingular || st == kelStsNoConvergence || st == kelStsNotPositiveDefinite ||
           st == kelStsDivideByZero;
}

// A result in the caller's order: the library wrote it from the other end
// when every input walked its stack backwards.  One object's result is a
// numpy scalar (scalar), the mask of refused objects stays an array.
PyObject* callersView(PyArrayObject* a, int stackNd, bool flipped, bool scalar = true)
{
    if (!flipped) {
        Py_INCREF(a);
        return scalar ? PyArray_Return(a) : reinterpret_cast<PyObject*>(a);
    }
    npy_intp strides[NPY_MAXDIMS];
    char* data = static_cast<char*>(PyArray_DATA(a));
    for (int k = 0; k < PyArray_NDIM(a); ++k) {
        strides[k] = PyArray_STRIDE(a, k);
        if (k < stackNd && PyArray_DIM(a, k) > 1) {
            data += (PyArray_DIM(a, k) - 1) * strides[k];
            strides[k] = -strides[k];
        }
    }
    PyArray_Descr* d = PyArray_DESCR(a);
    Py_INCREF(d);
    PyObject* v = PyArray_NewFromDescr(&PyArray_Type, d, PyArray_NDIM(a), PyArray_DIMS(a), strides, data,
                                       NPY_ARRAY_ALIGNED | NPY_ARRAY_WRITEABLE, nullptr);
    if (!v) return nullptr;
    Py_INCREF(a);
    if (PyArray_SetBaseObject(reinterpret_cast<PyArrayObject*>(v), reinterpret_cast<PyObject*>(a)) < 0) {
        Py_DECREF(v);
        return nullptr;
    }
    return v;
}

PyObject* recipeCall(Recipe* r, PyObject* const* argv, size_t nargsf, PyObject* kwnames)
{
    const Py_ssize_t argc = PyVectorcall_NARGS(nargsf);
    if (!recipesOn || kwnames || argc != r->inputs) Py_RETURN_NONE;
    const std::vector<Operand>& ops = *r->ops;
    const int nops = static_cast<int>(ops.size());
    // Inputs: one native float type.  Those of more than one object (the
    // stack) have one stack shape; the others are single objects, with no
    // more stack axes than the stack.
    int type = -1, stackNd = 0;
    PyArrayObject* first = nullptr;   // the input whose stack is the call's
    long long dim[128] = {0};
    long long count = 1;
    bool single[kMaxOps] = {false};
    for (Py_ssize_t i = 0; i < argc; ++i) {
        if (!PyArray_CheckExact(argv[i])) Py_RETURN_NONE;
        PyArrayObject* a = reinterpret_cast<PyArrayObject*>(argv[i]);
        const int t = PyArray_TYPE(a);
        if ((t != NPY_FLOAT && t != NPY_DOUBLE) || (type >= 0 && t != type) || !PyArray_ISNOTSWAPPED(a) ||
            !PyArray_ISALIGNED(a))
            Py_RETURN_NONE;
        type = t;
        const Operand& op = ops[i];
        const int nd = PyArray_NDIM(a) - op.core;
        if (nd < 0) Py_RETURN_NONE;
        long long objects = 1;
        for (int k = 0; k < nd; ++k) objects *= PyArray_DIM(a, k);
        single[i] = objects == 1;
        if (!single[i]) {
            if (count > 1 && (nd != stackNd || !PyArray_CompareLists(PyArray_DIMS(a), PyArray_DIMS(first), nd)))
                Py_RETURN_NONE;
            count = objects;
            stackNd = nd;
            first = a;
        } else if (count == 1 && (!first || nd > stackNd)) {
            stackNd = nd;
            first = a;
        }
        for (int c = 0; c < op.core; ++c) {
            const long long n = PyArray_DIM(a, nd + c);
            long long& d = dim[static_cast<unsigned char>(op.dims[c])];
            if (n == 0 || (d && d != n)) Py_RETURN_NONE;
            d = n;
        }
    }
    for (Py_ssize_t i = 0; i < argc; ++i)
        if (PyArray_NDIM(reinterpret_cast<PyArrayObject*>(argv[i])) - ops[i].core > stackNd) Py_RETURN_NONE;
    if (count == 0 || count > INT32_MAX) Py_RETURN_NONE;
    const int arrays = count > 1;
    const int isDouble = type == NPY_DOUBLE;
    const long long item = isDouble ? 8 : 4;
    Bound bound[kMaxOps];
    PyArrayObject* owned[kMaxOps] = {nullptr};   // results, temporaries, mirrored copies
    void* scratch[kMaxOps] = {nullptr};
    const char* source[kMaxOps] = {nullptr};      // a mirrored input as the caller gave it
    long long sourceStrides[kMaxOps][3] = {{0}};
    PyObject* result = nullptr;
    auto release = [&]() {
        for (int i = 0; i < nops; ++i) {
            Py_XDECREF(owned[i]);
            PyMem_Free(scratch[i]);
        }
    };
    auto fresh = [&](int i, int core, const char* dims, int dtype, bool zeros) {
        npy_intp shape[NPY_MAXDIMS];
        for (int k = 0; k < stackNd; ++k) shape[k] = PyArray_DIM(first, k);
        for (int c = 0; c < core; ++c) shape[stackNd + c] = dim[static_cast<unsigned char>(dims[c])];
        owned[i] = reinterpret_cast<PyArrayObject*>(
            zeros ? PyArray_ZEROS(stackNd + core, shape, dtype, 0) : PyArray_SimpleNew(stackNd + core, shape, dtype));
        return owned[i];
    };
    // Every input that moves along the stack must walk it the same way; a
    // stack walked backwards is passed from its last object.
    bool plain = true;
    int backwards = 0, forwards = 0, mask = 0;
    for (int i = 0; i < nops && plain; ++i) {
        const Operand& op = ops[i];
        Bound& b = bound[i];
        if (op.role == 'b') {
            const long long n = dim[static_cast<unsigned char>(op.bufLetter)];
            scratch[i] = PyMem_Malloc(static_cast<size_t>((op.buf[0] * n * n + op.buf[1] * n + op.buf[2]) * item));
            if (!scratch[i]) {
                release();
                return PyErr_NoMemory();
            }
            b.base = static_cast<char*>(scratch[i]);
            continue;
        }
        PyArrayObject* a;
        if (op.role == 'i') {
            a = reinterpret_cast<PyArrayObject*>(argv[i]);
        } else {
            if (!fresh(i, op.core, op.dims, op.int32 ? NPY_INT32 : type, op.role == 'z')) {
                release();
                return nullptr;
            }
            a = owned[i];
            if (isInput(op.role)) {   // mirrored: read from the caller's array
                PyArrayObject* in = reinterpret_cast<PyArrayObject*>(argv[i]);
                plain = (!arrays || !single[i]) && evenStack(in, PyArray_NDIM(in) - 2, &sourceStrides[i][0]) &&
                        (!arrays || sourceStrides[i][0] != 0);
                source[i] = static_cast<const char*>(PyArray_DATA(in));
                sourceStrides[i][1] = PyArray_STRIDE(in, PyArray_NDIM(in) - 2);
                sourceStrides[i][2] = PyArray_STRIDE(in, PyArray_NDIM(in) - 1);
            }
        }
        const long long e = op.int32 ? 4 : item;
        long long extent = 0;
        plain = plain && objectStrides(a, op.core, e, &b.s1, &b.s2, &extent) &&
                (single[i] || evenStack(a, stackNd, &b.s0));
        b.base = static_cast<char*>(PyArray_DATA(a));
        if (op.role != 'i' && isInput(op.role) && arrays) mask |= 1 << i;   // mirrored: a stack of its own
        if (op.role == 'i' && arrays) {
            if (b.s0 != 0) mask |= 1 << i;   // a stack of zero stride is one object, repeated
            backwards += b.s0 < 0;
            forwards += b.s0 > 0;
            if (b.s0 < 0) {
                b.base += (count - 1) * b.s0;
                b.s0 = -b.s0;
            }
        }
        plain = plain && (count - 1) * b.s0 + extent <= INT32_MAX;
        if (op.run && op.role == 'i')   // passed as a plain run of objects
            plain = plain && PyArray_IS_C_CONTIGUOUS(a);
    }
    // A mirrored input is copied in the caller's order: the results must be
    // in that order too.
    bool mirrored = false;
    for (int i = 0; i < nops; ++i) mirrored = mirrored || source[i] != nullptr;
    const bool flipped = backwards > 0;
    plain = plain && !(flipped && mirrored);
    // The members' calls for objects from .. from + n - 1.
    auto runSteps = [&](long long from, long long n) -> KelStatus {
        for (const Step& step : *r->steps) {
            const kp::Member& m = kp::kMembers[step.member[isDouble][mask]];
            kp::Slot slots[kMaxArgs];
            int k = 0;
            for (const GroupArg& g : step.args[isDouble][mask]) {
                const Bound& b = bound[g.operand];
                char* base = b.base + from * b.s0;
                switch (g.kind) {
                case kMatrix: slots[k++].p = base; slots[k++].i = b.s1; slots[k++].i = b.s2; break;
                case kMatrixArray:
                    slots[k++].p = base; slots[k++].i = b.s0; slots[k++].i = b.s1; slots[k++].i = b.s2; break;
                case kVector: slots[k++].p = base; slots[k++].i = b.s2; break;
                case kVectorArray: slots[k++].p = base; slots[k++].i = b.s0; slots[k++].i = b.s2; break;
                case kRun:
                case kBuffer: slots[k++].p = base; break;
                case kSize: slots[k++].i = dim[g.operand]; break;
                case kCount: slots[k++].i = n; break;
                }
            }
            const KelStatus st = m.call(slots);
            if (st != 0) return st;
        }
        return 0;
    };
    // Every input one object along a stack: the engine computes it once.
    plain = plain && !(backwards && forwards) && (mask || !arrays);
    for (const Step& step : *r->steps) plain = plain && step.member[isDouble][mask] >= 0;
    KelStatus st = 0;
    // A masked recipe answers refused objects with a mask instead of None.
    PyArrayObject* refusedArr = nullptr;
    char* refused = nullptr;
    if (plain && r->masked) {
        npy_intp shape[NPY_MAXDIMS];
        for (int k = 0; k < stackNd; ++k) shape[k] = PyArray_DIM(first, k);
        refusedArr = reinterpret_cast<PyArrayObject*>(PyArray_ZEROS(stackNd, shape, NPY_BOOL, 0));
        if (!refusedArr) {
            release();
            return nullptr;
        }
        refused = static_cast<char*>(PyArray_DATA(refusedArr));
    }
    if (plain) {
        Py_BEGIN_ALLOW_THREADS
        for (int i = 0; i < nops; ++i)
            if (source[i]) {
                const long long n = dim[static_cast<unsigned char>(ops[i].dims[0])];
                const long long* ss = sourceStrides[i];
                if (isDouble)
                    mirror(source[i], ss[0], ss[1], ss[2], count, n, ops[i].role == 'L',
                           reinterpret_cast<double*>(bound[i].base));
                else
                    mirror(source[i], ss[0], ss[1], ss[2], count, n, ops[i].role == 'L',
                           reinterpret_cast<float*>(bound[i].base));
            }
        if (!refused) {
            st = runSteps(0, count);
        } else {
            // The library stops each thread's block at its first refused
            // object, so a block that refuses one goes again one object at a
            // time, its refused objects filled with NaN (pivots -1) and
            // marked.  Blocks of a 64th of the stack keep that second pass
            // short and every call long enough for a team.
            const long long block = std::max(64LL, count / 64);
            for (long long at = 0; at < count && st == 0; at += block) {
                const long long end = std::min(count, at + block);
                st = runSteps(at, end - at);
                if (!isRefusal(st)) continue;
                st = 0;
                for (long long k = at; k < end && st == 0; ++k) {
                    const KelStatus one = runSteps(k, 1);
                    if (one == 0) continue;
                    if (!isRefusal(one)) {
                        st = one;
                        break;
                    }
                    refused[k] = 1;
                    for (int i = 0; i < nops; ++i) {
                        if (!isResult(ops[i].role)) continue;
                        long long per = 1;
                        for (int c = 0; c < ops[i].core; ++c) per *= dim[static_cast<unsigned char>(ops[i].dims[c])];
                        char* out = bound[i].base + k * bound[i].s0;
                        for (long long e = 0; e < per; ++e) {
                            if (ops[i].int32) reinterpret_cast<int32_t*>(out)[e] = -1;
                            else if (isDouble) reinterpret_cast<double*>(out)[e] = NAN;
                            else reinterpret_cast<float*>(out)[e] = NAN;
                        }
                    }
                }
            }
        }
        if (st == 0 && r->orderValues >= 0) {
            const Bound& w = bound[r->orderValues];
            const long long n = dim[static_cast<unsigned char>(ops[r->orderValues].dims[0])];
            char* v = r->orderVectors >= 0 ? bound[r->orderVectors].base : nullptr;
            if (isDouble)
                ascending(reinterpret_cast<double*>(w.base), reinterpret_cast<double*>(v), count, n);
            else
                ascending(reinterpret_cast<float*>(w.base), reinterpret_cast<float*>(v), count, n);
        }
        Py_END_ALLOW_THREADS
    }
    if (plain && st == 0) {
        int results = refusedArr != nullptr;
        for (const Operand& op : ops) results += isResult(op.role);
        if (results == 1) {
            for (int i = 0; i < nops; ++i)
                if (isResult(ops[i].role)) result = callersView(owned[i], stackNd, flipped);
        } else {
            result = PyTuple_New(results);
            for (int i = 0, k = 0; result && i < nops; ++i)
                if (isResult(ops[i].role)) {
                    PyObject* v = callersView(owned[i], stackNd, flipped);
                    if (!v) {
                        Py_CLEAR(result);
                        break;
                    }
                    PyTuple_SET_ITEM(result, k++, v);
                }
            if (result && refusedArr) {
                PyObject* v = callersView(refusedArr, stackNd, flipped, false);
                if (v) PyTuple_SET_ITEM(result, results - 1, v);
                else Py_CLEAR(result);
            }
        }
    }
    Py_XDECREF(refusedArr);
    release();
    if (result || PyErr_Occurred()) return result;
    Py_RETURN_NONE;
}

PyObject* recipeVectorcall(PyObject* self, PyObject* const* argv, size_t nargsf, PyObject* kwnames)
{
    return recipeCall(reinterpret_cast<Recipe*>(self), argv, nargsf, kwnames);
}

// The type's slots are filled in PyInit__native, by name.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
PyTypeObject kRecipeType = {PyVarObject_HEAD_INIT(nullptr, 0)};
#pragma GCC diagnostic pop

// recipe(operands, steps) -> a callable
//   operands: (role, dims, int32, buf) per operand, inputs first; role 'i',
//             'L', 'U', 'o', 'z', 't' or 'b'; buf (a, b, c, letter) for scratch of a*n*n + b*n + c
//             elements, n the letter's dimension
//   steps:    (member indices, operand index per group, {size: letter});
//             the members of floats then doubles, by mask of the inputs
//             that move (0: a single object)
//   order:    (values, vectors or -1): results put in ascending order of
//             the values afterwards
//   masked:   refused objects come back as NaN (pivots -1), and a boolean
//             array of them is the last result
PyObject* recipe(PyObject*, PyObject* args)
{
    PyObject *opsIn, *stepsIn;
    int orderValues = -1, orderVectors = -1, masked = 0;
    if (!PyArg_ParseTuple(args, "O!O!|(ii)p", &PyTuple_Type, &opsIn, &PyTuple_Type, &stepsIn, &orderValues,
                          &orderVectors, &masked))
        return nullptr;
    if (PyTuple_GET_SIZE(opsIn) > kMaxOps) {
        PyErr_SetString(PyExc_ValueError, "too many operands for a recipe");
        return nullptr;
    }
    auto ops = std::make_unique<std::vector<Operand>>();
    auto steps = std::make_unique<std::vector<Step>>();
    int inputs = 0;
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(opsIn); ++i) {
        const char *role, *dims;
        int int32;
        long long a = 0, b = 0, c = 0;
        const char* letter = "n";
        if (!PyArg_ParseTuple(PyTuple_GET_ITEM(opsIn, i), "ssp|(LLLs)", &role, &dims, &int32, &a, &b, &c, &letter))
            return nullptr;
        Operand op{};
        op.role = role[0];
        op.int32 = int32;
        op.core = static_cast<int>(std::strlen(dims));
        if (op.core > 2 || std::strchr("iLUoztb", op.role) == nullptr || (isInput(op.role) && i != inputs) ||
            (op.role != 'i' && isInput(op.role) && (op.core != 2 || dims[0] != dims[1]))) {
            PyErr_SetString(PyExc_ValueError, "recipe operands: inputs first, roles i/L/U/o/z/t/b, at most two axes, "
                                              "a symmetric input square");
            return nullptr;
        }
        std::memcpy(op.dims, dims, op.core);
        op.buf[0] = a, op.buf[1] = b, op.buf[2] = c;
        op.bufLetter = letter[0];
        inputs += isInput(op.role);
        ops->push_back(op);
    }
    for (Py_ssize_t s = 0; s < PyTuple_GET_SIZE(stepsIn); ++s) {
        PyObject *members, *opmap, *sizes;
        if (!PyArg_ParseTuple(PyTuple_GET_ITEM(stepsIn, s), "O!O!O!", &PyTuple_Type, &members, &PyTuple_Type,
                              &opmap, &PyDict_Type, &sizes))
            return nullptr;
        if (PyTuple_GET_SIZE(members) != 2 * kMasks || inputs > kMaxInputs) {
            PyErr_Format(PyExc_ValueError, "a recipe step names %d members, and a recipe takes at most %d inputs",
                         2 * kMasks, kMaxInputs);
            return nullptr;
        }
        Step step;
        for (int t = 0; t < 2; ++t)
            for (int a = 0; a < kMasks; ++a) {
                const long k = PyLong_AsLong(PyTuple_GET_ITEM(members, kMasks * t + a));
                if (PyErr_Occurred()) return nullptr;
                step.member[t][a] = (k >= 0 && k < kp::kMemberCount) ? static_cast<int>(k) : -1;
                if (step.member[t][a] >= 0 && !parseGroups(kp::kMembers[k], opmap, sizes, *ops, step.args[t][a]))
                    return nullptr;
            }
        steps->push_back(std::move(step));
    }
    const int nops = static_cast<int>(ops->size());
    for (const int k : {orderValues, orderVectors})
        if (k >= nops || (k >= 0 && !isResult((*ops)[k].role))) {
            PyErr_SetString(PyExc_ValueError, "a recipe orders results only");
            return nullptr;
        }
    Recipe* r = PyObject_New(Recipe, &kRecipeType);
    if (!r) return nullptr;
    r->ops = ops.release();
    r->steps = steps.release();
    r->inputs = inputs;
    r->orderValues = orderValues;
    r->orderVectors = orderVectors;
    r->masked = masked;
    r->vectorcall = recipeVectorcall;
    return reinterpret_cast<PyObject*>(r);
}

PyObject* useRecipes(PyObject*, PyObject* o)
{
    const int on = PyObject_IsTrue(o);
    if (on < 0) return nullptr;
    const bool was = recipesOn;
    recipesOn = on;
    return PyBool_FromLong(was);
}

PyMethodDef kMethods[] = {
    {"members", members, METH_NOARGS, "members() -> rows (name, family, code, type, description, groups, "
                                      "argument names, argument kinds)"},
    {"call", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(call)), METH_FASTCALL,
     "call(index, args) -> status of the member at that index"},
    {"address", address, METH_O, "address(ndarray) -> address of its first element"},
    {"set_num_threads", setNumThreads, METH_O, "set_num_threads(n): n > 0 fixes it, n <= 0 the default"},
    {"get_num_threads", getNumThreads, METH_NOARGS, "get_num_threads() -> threads a call may use"},
    {"version", version, METH_NOARGS, "version() -> the library's version record"},
    {"recipe", recipe, METH_VARARGS, "recipe(operands, steps) -> a callable that runs the plain case of an "
                                     "operation, or returns None"},
    {"use_recipes", useRecipes, METH_O, "use_recipes(on) -> whether they were used: off sends every call "
                                        "through the Python engine"},
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef kModule = {PyModuleDef_HEAD_INIT, "kelm._native", "The library's members, generated from its tables.",
                       -1, kMethods, nullptr, nullptr, nullptr, nullptr};

}  // namespace

PyMODINIT_FUNC PyInit__native(void)
{
    import_array();
    kRecipeType.tp_name = "kelm._native.Recipe";
    kRecipeType.tp_basicsize = sizeof(Recipe);
    kRecipeType.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_VECTORCALL;
    kRecipeType.tp_dealloc = reinterpret_cast<destructor>(recipeDealloc);
    kRecipeType.tp_call = PyVectorcall_Call;
    kRecipeType.tp_vectorcall_offset = offsetof(Recipe, vectorcall);
    kRecipeType.tp_doc = "The plain case of one operation, run without the Python engine.";
    if (PyType_Ready(&kRecipeType) < 0) return nullptr;
    return PyModule_Create(&kModule);
}
