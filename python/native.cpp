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
#include <cstring>

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

PyMethodDef kMethods[] = {
    {"members", members, METH_NOARGS, "members() -> rows (name, family, code, type, description, groups, "
                                      "argument names, argument kinds)"},
    {"call", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(call)), METH_FASTCALL,
     "call(index, args) -> status of the member at that index"},
    {"address", address, METH_O, "address(ndarray) -> address of its first element"},
    {"set_num_threads", setNumThreads, METH_O, "set_num_threads(n): n > 0 fixes it, n <= 0 the default"},
    {"get_num_threads", getNumThreads, METH_NOARGS, "get_num_threads() -> threads a call may use"},
    {"version", version, METH_NOARGS, "version() -> the library's version record"},
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef kModule = {PyModuleDef_HEAD_INIT, "kelm._native", "The library's members, generated from its tables.",
                       -1, kMethods, nullptr, nullptr, nullptr, nullptr};

}  // namespace

PyMODINIT_FUNC PyInit__native(void)
{
    import_array();
    return PyModule_Create(&kModule);
}
