"""Operand rules shared by every function, and kelm's operations beyond
numpy.linalg: sums, differences, products, Gaxpy, transposition, identity
matrices, LU factors, and the vector families.

Every function takes stacks of objects as numpy arrays of shape
``(..., m, n)`` (matrices) or ``(..., n)`` (vectors) with any strides:
float32 and float64 run as they are; integers, booleans and Python lists
become float64 and float16 becomes float32; complex input raises
TypeError.  Stacks broadcast against each other as in numpy.  ``out=``
receives the result in place, with any strides.
"""
import numpy as np

from . import _lib
from ._engine import Call, Op, recipe
from ._errors import ShapeError

__all__ = ["add", "subtract", "matmul", "matvec", "scale", "gaxpy", "transpose", "identity", "lu_factor",
           "lu_solve", "dot", "cross", "trace", "lcomb", "saxpy"]


# -- operand rules ------------------------------------------------------------
def as_real(a, name="a"):
    """a as an ndarray of float32 or float64, by numpy.linalg's rules."""
    a = np.asarray(a)
    dt = a.dtype
    if dt.kind == "f":
        if dt.itemsize == 2:
            return a.astype(np.float32)
        if dt.itemsize > 8:
            raise TypeError(f"array type {dt} is unsupported in linalg")
        return a if dt.isnative else a.astype(dt.newbyteorder("="))
    if dt.kind in "biu":
        return a.astype(np.float64)
    if dt.kind == "c":
        raise TypeError(f"{name}: kelm computes on real numbers only; got complex input of type {dt}")
    raise TypeError(f"{name}: array type {dt} is unsupported in linalg")


def common_type(*arrays):
    """float64 if any operand is float64, else float32."""
    return np.float64 if any(a.dtype.itemsize == 8 for a in arrays) else np.float32


def cast(a, dtype):
    return a if a.dtype == dtype else a.astype(dtype)


def stack_of(arrays_cores, names):
    """The broadcast stack shape of operands with the given object ranks."""
    stacks = [a.shape[:a.ndim - c] for a, c in arrays_cores]
    if all(st == stacks[0] for st in stacks):
        return stacks[0]
    try:
        return np.broadcast_shapes(*stacks)
    except ValueError:
        raise ShapeError(f"{' and '.join(names)}: stacks of shapes {' and '.join(map(str, stacks))} "
                         "do not broadcast") from None


def spread(a, stack, core):
    """a broadcast to stack + its object shape (a view, no copy)."""
    shape = tuple(stack) + (a.shape[a.ndim - core:] if core else ())
    return a if a.shape == shape else np.broadcast_to(a, shape)


def check_out(out, shape, dtype, name="out"):
    """out must be a writeable ndarray of the result's shape; its dtype may
    differ only when the result can be cast to it safely."""
    if out is None:
        return None
    if not isinstance(out, np.ndarray):
        raise TypeError(f"{name} must be a numpy array")
    if out.shape != tuple(shape):
        raise ValueError(f"{name} has shape {out.shape}, the result has shape {tuple(shape)}")
    if not out.flags.writeable:
        raise ValueError(f"{name} is read-only")
    if not np.can_cast(dtype, out.dtype, casting="same_kind"):
        raise TypeError(f"{name}: cannot write a result of type {np.dtype(dtype)} into {out.dtype}")
    return out


def out_op(out, dtype, core, shape, **kw):
    """The result operand: the caller's array when it has the element type
    of the call, else a fresh one copied into out afterwards."""
    if out is not None and out.dtype == dtype:
        return Op(out, core=core, out=True, **kw)
    return Op(None, core=core, out=True, shape=shape, dtype=np.dtype(dtype), **kw)


def finish(result, out):
    """The caller's out, filled with result when they differ."""
    if out is None or result is out:
        return result
    np.copyto(out, result, casting="same_kind")
    return out


def check_errors(errors):
    if errors not in ("raise", "mask"):
        raise ValueError(f'errors must be "raise" or "mask", not {errors!r}')


def scalar_result(r, ndim_stack):
    """numpy gives a scalar, not a 0-d array, for one object."""
    return r[()] if ndim_stack == 0 and isinstance(r, np.ndarray) and r.ndim == 0 else r


# -- element-wise ---------------------------------------------------------------
def _elementwise(family, a, b, out, commutes):
    a = as_real(a, "a")
    b = as_real(b, "b")
    dt = common_type(a, b)
    if b.ndim == 0 or a.ndim == 0:
        if family == "Add" and a.ndim == 0:
            a, b = b, a
        if a.ndim == 0:
            # constant - array: negate the difference of array - constant is
            # not the same rounding; the Sub members with the constant first
            # take it.
            return _sub_from_constant(a, b, out, dt)
        core = 2 if a.ndim >= 2 else 1
        if core == 2:
            return _elementwise_matrices(family, a, np.broadcast_to(b, a.shape[-2:]), out, dt, commutes)
        a = cast(a, dt)
        stack = a.shape[:-1]
        check_out(out, a.shape, dt)
        res = Call(family, [Op(a, core=1, letter="v"), Op(float(b), core=0, letter="c", fixed=True),
                            out_op(out, dt, 1, a.shape[-1:])], {"len": a.shape[-1]}, stack, dt).run()[0]
        return finish(res, out)
    if a.ndim >= 2 or b.ndim >= 2:
        return _elementwise_matrices(family, a, b, out, dt, commutes)
    return _elementwise_vectors(family, a, b, out, dt, commutes)


def _sub_from_constant(c, v, out, dt):
    v = cast(v, dt)
    if v.ndim >= 2:
        return _elementwise_matrices("Sub", np.broadcast_to(c, v.shape[-2:]), v, out, dt, False)
    check_out(out, v.shape, dt)
    # cv / cva: the constant is the left operand, its group after the vector's.
    res = Call("Sub", [Op(v, core=1, letter="v"), Op(float(c), core=0, letter="c", fixed=True),
                       out_op(out, dt, 1, v.shape[-1:])], {"len": v.shape[-1]}, v.shape[:-1], dt,
               code_order=(1, 0)).run()[0]
    return finish(res, out)


def _elementwise_matrices(family, a, b, out, dt, commutes):
    a = cast(a, dt)
    b = cast(b, dt)
    if a.ndim < 2 or b.ndim < 2:
        # a row broadcast into every row of the other operand, as numpy does
        shape = np.broadcast_shapes(a.shape, b.shape)
        a = np.broadcast_to(a, shape)
        b = np.broadcast_to(b, shape)
    h, w = np.broadcast_shapes(a.shape[-2:], b.shape[-2:])
    a = np.broadcast_to(a, a.shape[:-2] + (h, w))
    b = np.broadcast_to(b, b.shape[:-2] + (h, w))
    stack = stack_of([(a, 2), (b, 2)], ["a", "b"])
    check_out(out, stack + (h, w), dt)
    if h == 0 or w == 0:
        return finish(np.empty(stack + (h, w), dt), out)
    ops = [Op(spread(a, stack, 2), letter="m"), Op(spread(b, stack, 2), letter="m"), out_op(out, dt, 2, (h, w))]
    res = Call(family, ops, {"width": w, "height": h}, stack, dt, swap=(0, 1) if commutes else None).run()[0]
    return finish(res, out)


def _elementwise_vectors(family, a, b, out, dt, commutes):
    a = cast(a, dt)
    b = cast(b, dt)
    n = np.broadcast_shapes(a.shape[-1:], b.shape[-1:])[0]
    a = np.broadcast_to(a, a.shape[:-1] + (n,))
    b = np.broadcast_to(b, b.shape[:-1] + (n,))
    stack = stack_of([(a, 1), (b, 1)], ["a", "b"])
    check_out(out, stack + (n,), dt)
    if n == 0:
        return finish(np.empty(stack + (n,), dt), out)
    ops = [Op(spread(a, stack, 1), core=1, letter="v"), Op(spread(b, stack, 1), core=1, letter="v"),
           out_op(out, dt, 1, (n,))]
    res = Call(family, ops, {"len": n}, stack, dt, swap=(0, 1) if commutes else None).run()[0]
    return finish(res, out)


_ADD = recipe([("i", "hw"), ("i", "hw"), ("o", "hw")], [("Add", "m0m1", (0, 1, 2), {"width": "w", "height": "h"})])
_SUB = recipe([("i", "hw"), ("i", "hw"), ("o", "hw")], [("Sub", "m0m1", (0, 1, 2), {"width": "w", "height": "h"})])


def add(a, b, out=None):
    """a + b on stacks of matrices (..., m, n) or vectors (..., n), or with
    a scalar; stacks broadcast as in numpy.  One rounded addition per
    element: equal to numpy's ``a + b`` bit for bit.

    >>> kelm.add(np.ones((2, 3, 3)), np.eye(3))[1, 0, 0]
    2.0
    """
    if out is None:
        # One matrix on the left of a stack: Add has only the member with
        # the single operand second, so the operands trade places.
        r = _ADD(a, b)
        if r is None:
            r = _ADD(b, a)
        if r is not None:
            return r
    return _elementwise("Add", a, b, out, True)


def subtract(a, b, out=None):
    """a - b on stacks of matrices or vectors, or with a scalar on either
    side; equal to numpy's ``a - b`` bit for bit.

    >>> kelm.subtract(np.eye(2), 1.0)
    array([[ 0., -1.],
           [-1.,  0.]])
    """
    if out is None:
        r = _SUB(a, b)
        if r is not None:
            return r
    return _elementwise("Sub", a, b, out, False)


# -- products -------------------------------------------------------------------
def _mismatch(name, k1, k2):
    return ShapeError(f"{name}: Input operand 1 has a mismatch in its core dimension 0, with gufunc signature "
                      f"(n?,k),(k,m?)->(n?,m?) (size {k2} is different from {k1})")


_MUL_SIZES = {"src1Width": "k", "src1Height": "n", "src2Width": "m", "src2Height": "k"}
_MATMUL = recipe([("i", "nk"), ("i", "km"), ("o", "nm")], [("Mul", "m0m1", (0, 1, 2), _MUL_SIZES)])
_MATVEC = recipe([("i", "nk"), ("i", "k"), ("o", "n")],
                 [("Mul", "m0v1", (0, 1, 2), {"src1Width": "k", "src1Height": "n", "src2Len": "k"})])


def matmul(a, b, out=None, *, transpose_a=False, transpose_b=False):
    """Matrix product of stacks, numpy.matmul's shapes: a (..., n, k) by
    b (..., k, m) gives (..., n, m); a 1-D operand is a row (a) or a column
    (b) that is removed from the result.  ``transpose_a``/``transpose_b``
    use the transposed matrices without copying them.

    Each element is the sum over k ascending of a(r, k) * b(k, c), every
    product and sum rounded in the element type; numpy (BLAS) may sum in
    another order, so results agree with numpy.matmul within
    k * eps * sum(|a||b|) (eps of the element type), and exactly with a
    plain ascending loop.

    >>> kelm.matmul(np.eye(3), np.arange(9.).reshape(3, 3))[2]
    array([6., 7., 8.])
    """
    if out is None and not transpose_a and not transpose_b:
        r = _MATMUL(a, b)
        if r is not None:
            return r
    a = as_real(a, "a")
    b = as_real(b, "b")
    if a.ndim == 0 or b.ndim == 0:
        raise ValueError("matmul: Input operand does not have enough dimensions (has 0, gufunc core with "
                         "signature (n?,k),(k,m?)->(n?,m?) requires 1)")
    dt = common_type(a, b)
    a = cast(a, dt)
    b = cast(b, dt)
    if transpose_a and a.ndim >= 2:
        a = np.swapaxes(a, -1, -2)
    if transpose_b and b.ndim >= 2:
        b = np.swapaxes(b, -1, -2)
    if b.ndim == 1:
        if a.ndim == 1:
            if a.shape[0] != b.shape[0]:
                raise _mismatch("matmul", a.shape[0], b.shape[0])
            return _vector_dot_via_matmul(a, b, out, dt)
        return matvec(a, b, out=out)
    squeeze_row = a.ndim == 1
    if squeeze_row:
        a = a[np.newaxis, :]
    n, k = a.shape[-2:]
    k2, m = b.shape[-2:]
    if k != k2:
        raise _mismatch("matmul", k, k2)
    stack = stack_of([(a, 2), (b, 2)], ["a", "b"])
    shape = stack + ((m,) if squeeze_row else (n, m))
    check_out(out, shape, dt)
    target = out if out is None else (out[..., np.newaxis, :] if squeeze_row else out)
    if n == 0 or m == 0 or k == 0:
        res = np.zeros(stack + (n, m), dt)
    else:
        ops = [Op(spread(a, stack, 2), letter="m"), Op(spread(b, stack, 2), letter="m"),
               out_op(target, dt, 2, (n, m))]
        res = Call("Mul", ops, {"src1Width": k, "src1Height": n, "src2Width": m, "src2Height": k}, stack, dt).run()[0]
    if squeeze_row:
        res = res[..., 0, :]
    return finish(res, out)


def _vector_dot_via_matmul(a, b, out, dt):
    r = matvec(a[np.newaxis, :], b)[0]
    if out is not None:
        raise ValueError("matmul: out is not supported for a scalar result")
    return dt(r)


def matvec(a, x, out=None):
    """Matrix-vector products of stacks: a (..., n, k) times x (..., k)
    gives (..., n); each element summed over k ascending.

    >>> kelm.matvec(np.eye(2), [1., 2.])
    array([1., 2.])
    """
    if out is None:
        r = _MATVEC(a, x)
        if r is not None:
            return r
    a = as_real(a, "a")
    x = as_real(x, "x")
    if a.ndim < 2 or x.ndim < 1:
        raise ValueError("matvec: a must be at least 2-D and x at least 1-D")
    dt = common_type(a, x)
    a = cast(a, dt)
    x = cast(x, dt)
    n, k = a.shape[-2:]
    if x.shape[-1] != k:
        raise _mismatch("matvec", k, x.shape[-1])
    stack = stack_of([(a, 2), (x, 1)], ["a", "x"])
    check_out(out, stack + (n,), dt)
    if n == 0 or k == 0:
        return finish(np.zeros(stack + (n,), dt), out)
    ops = [Op(spread(a, stack, 2), letter="m"), Op(spread(x, stack, 1), core=1, letter="v"),
           out_op(out, dt, 1, (n,))]
    res = Call("Mul", ops, {"src1Width": k, "src1Height": n, "src2Len": k}, stack, dt).run()[0]
    return finish(res, out)


def scale(a, c, out=None):
    """c * a for stacks of matrices (..., m, n) or vectors (..., n); c is a
    scalar or one constant per object (shape of the stack, broadcast).  One
    rounded product per element: equal to numpy's ``c * a`` bit for bit.

    >>> kelm.scale(np.ones((2, 2)), 3.0)
    array([[3., 3.],
           [3., 3.]])
    """
    a = as_real(a, "a")
    if a.ndim == 0:
        raise ValueError("scale: a must be at least 1-D")
    return _scale(a, as_real(c, "c"), 2 if a.ndim >= 2 else 1, out)


def _scale(a, c, core, out):
    dt = common_type(a, c) if c.ndim else a.dtype
    a = cast(a, dt)
    if c.ndim == 0:
        stack = a.shape[:a.ndim - core]
        cop = Op(float(c), core=0, letter="c", fixed=True)
    else:
        c = cast(c, dt)
        stack = stack_of([(a, core), (c, 0)], ["a", "c"])
        cop = Op(spread(c, stack, 0), core=0, letter="c")
    obj = a.shape[a.ndim - core:]
    check_out(out, stack + obj, dt)
    if 0 in obj:
        return finish(np.empty(stack + obj, dt), out)
    if core == 2 and c.ndim:
        # One constant per matrix: the library scales arrays of vectors by
        # arrays of constants, so each matrix is read as one vector of its
        # elements (the same single product per element).
        flat = spread(a, stack, 2).reshape(stack + (obj[0] * obj[1],))
        return finish(_scale(flat, c, 1, None).reshape(stack + obj), out)
    letter = "m" if core == 2 else "v"
    sizes = {"width": obj[-1], "height": obj[0]} if core == 2 else {"len": obj[0]}
    ops = [Op(spread(a, stack, core), core=core, letter=letter), cop, out_op(out, dt, core, obj)]
    res = Call("Mul", ops, sizes, stack, dt).run()[0]
    return finish(res, out)


def gaxpy(a, x, y, out=None):
    """a @ x + y for stacks: a (..., n, k), x (..., k), y (..., n).  The
    product is summed over k ascending and y added to the complete sum.

    >>> kelm.gaxpy(np.eye(2), [1., 2.], [10., 20.])
    array([11., 22.])
    """
    a = as_real(a, "a")
    x = as_real(x, "x")
    y = as_real(y, "y")
    dt = common_type(a, x, y)
    a, x, y = cast(a, dt), cast(x, dt), cast(y, dt)
    if a.ndim < 2 or x.ndim < 1 or y.ndim < 1:
        raise ValueError("gaxpy: a must be at least 2-D, x and y at least 1-D")
    n, k = a.shape[-2:]
    if x.shape[-1] != k or y.shape[-1] != n:
        raise ShapeError(f"gaxpy: a is {n}x{k}, x has {x.shape[-1]} elements and y {y.shape[-1]}")
    stack = stack_of([(a, 2), (x, 1), (y, 1)], ["a", "x", "y"])
    check_out(out, stack + (n,), dt)
    if n == 0 or k == 0:
        return finish(np.broadcast_to(y, stack + (n,)).astype(dt), out)
    a_stack = a.shape[:-2]
    if any(d != 1 for d in a_stack):
        # One matrix per object: the product, then the sum, with the same
        # roundings as Gaxpy itself.
        return add(matvec(a, x), y, out=out)
    ops = [Op(a.reshape(n, k), letter="m"), Op(spread(x, stack, 1), core=1, letter="v"),
           Op(spread(y, stack, 1), core=1, letter="v"), out_op(out, dt, 1, (n,))]
    sizes = {"src1Width": k, "src1Height": n, "src2Len": k, "src3Len": n}
    ops[0] = Op(np.broadcast_to(a.reshape(n, k), stack + (n, k)), letter="m")
    res = Call("Gaxpy", ops, sizes, stack, dt).run()[0]
    return finish(res, out)


# -- movement -------------------------------------------------------------------
def transpose(a, out=None):
    """The transposition of every matrix of a stack (..., m, n) -> (..., n, m),
    as a new array (numpy's ``np.swapaxes(a, -1, -2).copy()``).  out may
    not overlap a; if it does, the result goes through a temporary.

    >>> kelm.transpose(np.arange(6.).reshape(2, 3)).shape
    (3, 2)
    """
    a = as_real(a, "a")
    if a.ndim < 2:
        raise ValueError("transpose: a must be at least 2-D")
    h, w = a.shape[-2:]
    stack = a.shape[:-2]
    check_out(out, stack + (w, h), a.dtype)
    if h == 0 or w == 0:
        return finish(np.empty(stack + (w, h), a.dtype), out)
    ops = [Op(a, letter="m"), out_op(out, a.dtype, 2, (w, h))]
    res = Call("Transpose", ops, {"width": w, "height": h}, stack, a.dtype, no_alias=True).run()[0]
    return finish(res, out)


def identity(n, dtype=None, *, shape=(), out=None):
    """A stack of n x n identity matrices of the stack shape ``shape``
    (numpy.identity for ``shape=()``), float64 unless dtype says float32.

    >>> kelm.identity(2, shape=(3,)).shape
    (3, 2, 2)
    """
    dt = np.dtype(np.float64 if dtype is None else dtype)
    if dt not in (np.float32, np.float64):
        dt = np.dtype(as_real(np.zeros(0, dt)).dtype)
    stack = tuple(shape) if np.iterable(shape) else (int(shape),)
    check_out(out, stack + (n, n), dt)
    if n == 0:
        return finish(np.empty(stack + (0, 0), dt), out)
    res = Call("LoadIdentity", [out_op(out, dt, 2, (n, n), letter="m")], {"width": n, "height": n}, stack, dt).run()[0]
    return finish(res, out)


# -- LU -------------------------------------------------------------------------
def lu_factor(a, *, errors="raise"):
    """LU factors of a stack of square matrices with kelm's pivot table.

    Returns ``(lu, piv)``: ``lu`` (..., n, n) in the input's float type and
    ``piv`` (..., n) int32.  Rows are never exchanged: entry k of ``piv``
    names the row of ``lu`` chosen at elimination step k; that row holds the
    multipliers L(k, j) in columns j < k and U(k, j) in columns j >= k.
    This is not scipy's LAPACK layout; :func:`lu_solve` takes it as it is.

    A matrix whose pivot is too small is refused: ``SingularMatrixError``
    (a ``LinAlgError``) naming the first refused object, or with
    ``errors="mask"`` ``((lu, piv), mask)`` where refused objects are NaN
    (pivots -1) and ``mask`` marks them.

    >>> lu, piv = kelm.lu_factor([[0., 1.], [2., 3.]]); piv
    array([1, 0], dtype=int32)
    """
    check_errors(errors)
    a = square(as_real(a, "a"), "a")
    n = a.shape[-1]
    stack = a.shape[:-2]
    if n == 0:
        r = (np.empty(a.shape, a.dtype), np.empty(stack + (0,), np.int32))
        return (r, np.zeros(stack, bool)) if errors == "mask" else r
    ops = [Op(a, letter="m"), Op(None, core=1, out=True, dense=True, shape=(n,), dtype=np.dtype(np.int32)),
           Op(None, out=True, shape=(n, n), dtype=a.dtype)]
    call = Call("LUDecomp", ops, {"size": n}, stack, a.dtype, errors=errors)
    piv, lu = call.run()
    return ((lu, piv), call.mask()) if errors == "mask" else (lu, piv)


def lu_solve(lu_and_piv, b, out=None):
    """Solves a x = b from :func:`lu_factor`'s ``(lu, piv)``; b is a stack
    of vectors (..., n) or of matrices (..., n, k) by numpy.linalg.solve's
    rule.  The factors are not checked.

    >>> kelm.lu_solve(kelm.lu_factor([[2., 0.], [0., 4.]]), [2., 4.])
    array([1., 1.])
    """
    lu, piv = lu_and_piv
    lu = square(as_real(lu, "lu"), "lu")
    b = as_real(b, "b")
    dt = common_type(lu, b)
    return _lu_solve(cast(lu, dt), np.asarray(piv, dtype=np.int32), cast(b, dt), out, dt)


def _lu_solve(lu, piv, b, out, dt, one_chain=False):
    n = lu.shape[-1]
    if piv.shape[-1:] != (n,) or (piv.size and (piv.min() < 0 or piv.max() >= n)):
        # The library trusts the table: a row outside the matrix (a refused
        # object's -1) would be read from outside it.
        raise ValueError(f"piv must hold rows 0 to {n - 1} for each matrix (a refused object's table cannot be used)")
    vectors, stack, shape, bv, over = right_hand_sides(lu, b, n, n)
    lv, pv = over(lu, 2), over(piv, 1)
    check_out(out, shape, dt)
    if 0 in shape:
        return finish(np.empty(shape, dt), out)
    if out is not None and out.dtype == dt:
        target = out if vectors else np.swapaxes(out, -1, -2)
        xop = Op(target, core=1, out=True)
    else:
        xop = Op(None, core=1, out=True, shape=(n,), dtype=np.dtype(dt))
    ops = [Op(lv, letter="m"), Op(pv, core=1, dense=True), Op(bv, core=1, letter="v"), xop]
    # one_chain: every vector solved by the same chain of arithmetic as a
    # matrix of its own (mava), also when one matrix serves many vectors
    # (mva takes reciprocals of the pivots, which rounds differently).
    res = Call("LUBackSubst", ops, {"size": n}, bv.shape[:-1], dt,
               always_arrays=(0, 1) if one_chain else ()).run()[0]
    if not vectors and (out is None or out.dtype != dt):
        res = np.swapaxes(res, -1, -2)
    elif not vectors:
        res = out
    return finish(res, out)


def right_hand_sides(m, b, rows, cols):
    """numpy.linalg.solve's rule for b against a stack of rows x cols
    matrices m: a stack of vectors when b.ndim == m.ndim - 1 (or b is
    1-D), else of matrices (..., rows, k) whose columns join the stack.
    Returns (vectors, stack, result shape, b as a stack of vectors, over)
    where over(x, core) lays a per-matrix operand over that stack."""
    if b.ndim == 0:
        raise ShapeError("b must be at least 1-D")
    vectors = b.ndim == m.ndim - 1 or b.ndim == 1
    got = b.shape[-1 if vectors else -2]
    if got != rows:
        sig = "(m,m),(m)->(m)" if vectors else "(m,m),(m,n)->(m,n)"
        raise ShapeError(f"solve: Input operand 1 has a mismatch in its core dimension 0, with gufunc signature "
                         f"{sig} (size {got} is different from {rows})")
    if vectors:
        stack = stack_of([(m, 2), (b, 1)], ["a", "b"])
        return True, stack, stack + (cols,), spread(b, stack, 1), lambda x, core: spread(x, stack, core)
    stack = stack_of([(m, 2), (b, 2)], ["a", "b"])
    k = b.shape[-1]

    def over(x, core):
        x = spread(x, stack, core)
        obj = x.shape[x.ndim - core:]
        return np.broadcast_to(x.reshape(stack + (1,) + obj), stack + (k,) + obj)
    # The columns of b are the vectors: the column axis joins the stack.
    return False, stack, stack + (cols, k), np.swapaxes(spread(b, stack, 2), -1, -2), over


def square(a, name):
    """a must be a stack of square matrices, as numpy.linalg requires."""
    if a.ndim < 2:
        raise ShapeError(f"{a.ndim}-dimensional array given. Array must be at least two-dimensional")
    if a.shape[-1] != a.shape[-2]:
        raise ShapeError("Last 2 dimensions of the array must be square")
    return a


# -- vector families -----------------------------------------------------------
def _vectors(*named):
    arrs = [as_real(v, n) for v, n in named]
    dt = common_type(*arrs)
    arrs = [cast(v, dt) for v in arrs]
    for v, (_, n) in zip(arrs, named):
        if v.ndim < 1:
            raise ValueError(f"{n} must be at least 1-D")
    return arrs, dt


def dot(a, b, out=None):
    """Inner products of stacks of vectors: a (..., n), b (..., n) give
    (...,), summed over n ascending in the element type (numpy's
    ``np.einsum('...i,...i', a, b)``; within n * eps * sum|a b| of numpy's
    pairwise sum).  Not numpy.dot, which multiplies matrices.

    >>> kelm.dot([1., 2.], [3., 4.])
    11.0
    """
    (a, b), dt = _vectors((a, "a"), (b, "b"))
    n = a.shape[-1]
    if b.shape[-1] != n:
        raise ShapeError(f"dot: vectors of lengths {n} and {b.shape[-1]}")
    stack = stack_of([(a, 1), (b, 1)], ["a", "b"])
    check_out(out, stack, dt)
    if n == 0:
        return finish(np.zeros(stack, dt), out)
    ops = [Op(spread(a, stack, 1), core=1, letter="v"), Op(spread(b, stack, 1), core=1, letter="v"),
           out_op(out, dt, 0, (), dense=True)]
    res = Call("DotProduct", ops, {"len": n}, stack, dt, swap=(0, 1)).run()[0]
    return scalar_result(finish(res, out), len(stack))


def cross(a, b, out=None):
    """Cross products of stacks of 3-vectors (numpy.cross on the last axis,
    the same three rounded differences of products).

    >>> kelm.cross([1., 0., 0.], [0., 1., 0.])
    array([0., 0., 1.])
    """
    (a, b), dt = _vectors((a, "a"), (b, "b"))
    if a.shape[-1] != 3 or b.shape[-1] != 3:
        raise ValueError("cross: incompatible dimensions for cross product (dimension must be 3)")
    stack = stack_of([(a, 1), (b, 1)], ["a", "b"])
    check_out(out, stack + (3,), dt)
    ops = [Op(spread(a, stack, 1), core=1, letter="v"), Op(spread(b, stack, 1), core=1, letter="v"),
           out_op(out, dt, 1, (3,))]
    return finish(Call("CrossProduct", ops, {}, stack, dt).run()[0], out)


def trace(a, out=None):
    """Traces of a stack of square matrices (..., n, n) -> (...,), summed
    along the diagonal ascending (numpy.trace(a, axis1=-2, axis2=-1)).

    >>> kelm.trace(np.eye(3))
    3.0
    """
    a = square(as_real(a, "a"), "a")
    n = a.shape[-1]
    stack = a.shape[:-2]
    check_out(out, stack, a.dtype)
    if n == 0:
        return scalar_result(finish(np.zeros(stack, a.dtype), out), len(stack))
    ops = [Op(a, letter="m"), out_op(out, a.dtype, 0, (), dense=True)]
    res = Call("Trace", ops, {"width": n}, stack, a.dtype).run()[0]
    return scalar_result(finish(res, out), len(stack))


def lcomb(a, alpha, b, beta, out=None):
    """alpha * a + beta * b for stacks of vectors: two rounded products and
    one rounded sum per element, numpy's ``alpha * a + beta * b`` bit for
    bit.

    >>> kelm.lcomb([1., 2.], 2.0, [1., 1.], 3.0)
    array([5., 7.])
    """
    return _scaled_pair("LComb", a, [float(alpha)], b, [float(beta)], out, swap_fixed=(1, 3))


def _scaled_pair(family, a, after_a, b, after_b, out, **kw):
    """A family on two stacks of vectors, each followed by its scalars."""
    (a, b), dt = _vectors((a, "a"), (b, "b"))
    n = a.shape[-1]
    stack = stack_of([(a, 1), (b, 1)], ["a", "b"])
    check_out(out, stack + (n,), dt)
    if n == 0:
        return finish(np.empty(stack + (n,), dt), out)
    scalars = lambda values: [Op(v, core=0, fixed=True) for v in values]  # noqa: E731
    ops = ([Op(spread(a, stack, 1), core=1, letter="v")] + scalars(after_a) +
           [Op(spread(b, stack, 1), core=1, letter="v")] + scalars(after_b) + [out_op(out, dt, 1, (n,))])
    swap = (0, 1 + len(after_a)) if len(after_a) == len(after_b) else None
    return finish(Call(family, ops, {"len": n}, stack, dt, swap=swap, **kw).run()[0], out)


def saxpy(a, alpha, b, out=None):
    """alpha * a + b for stacks of vectors: one rounded product and one
    rounded sum per element, numpy's ``alpha * a + b`` bit for bit.

    >>> kelm.saxpy([1., 2.], 2.0, [1., 1.])
    array([3., 5.])
    """
    return _scaled_pair("Saxpy", a, [float(alpha)], b, [], out)


def has(member):
    return _lib.has_member(member)
