"""numpy.linalg's functions on kelm.

Each function keeps numpy 1.24's contract: argument names, order and
defaults, result shapes and dtypes, exceptions (``LinAlgError`` and its
kelm subclasses).  Functions that can refuse an object also take
``errors="mask"``: then they return ``(result, mask)``, refused objects
filled with NaN and ``mask`` True where they stand, instead of raising.

A function whose members are not in this build of the library raises
NotImplementedError naming the member.  svd, pinv, matrix_rank, cond,
tensorsolve, tensorinv and eigvals of complex input have no kelm kernel and
are numpy.linalg's own.
"""
import numpy as np
from numpy import linalg as _np_linalg

from . import _lib
from ._engine import Call, Op, recipe
from ._errors import LinAlgError, ShapeError
from ._ops import (as_real, cast, check_errors, check_out, common_type, finish, lu_factor, matmul, out_op,
                   scalar_result, square, right_hand_sides, _lu_solve, identity)

__all__ = ["det", "slogdet", "inv", "solve", "cholesky", "cho_factor", "cho_solve", "qr", "eigh", "eigvalsh",
           "eig", "eigvals", "norm", "lstsq", "matrix_power", "multi_dot", "svd", "pinv", "matrix_rank", "cond",
           "tensorsolve", "tensorinv"]

svd = _np_linalg.svd
pinv = _np_linalg.pinv
matrix_rank = _np_linalg.matrix_rank
cond = _np_linalg.cond
tensorsolve = _np_linalg.tensorsolve
tensorinv = _np_linalg.tensorinv


def _need(member):
    if not _lib.has_member(member):
        raise NotImplementedError(f"this build of kelm has no member {member}")


def _masked(result, call, errors):
    return (result, call.mask()) if errors == "mask" else result


def _with_mask(result, mask, errors):
    return (result, mask) if errors == "mask" else result


def _type(dt):
    return "32f" if np.dtype(dt) == np.float32 else "64f"


# -- determinants ---------------------------------------------------------------
def _lu_diagonal(a):
    """(mask, sign of the row order, pivots U(k, k)) of a stack from kelm's
    LU factors; refused objects are masked."""
    (lu, piv), mask = lu_factor(a, errors="mask")
    n = a.shape[-1]
    p = np.where(mask[..., None], np.arange(n, dtype=np.int32), piv) if mask.any() else piv
    # U(k, k) stands in row p[k], column k.
    flat = lu.reshape(lu.shape[:-2] + (n * n,))
    diag = np.take_along_axis(flat, p * n + np.arange(n, dtype=np.int32), axis=-1)
    # Parity of the row order: the number of inversions of the table.
    odd = np.zeros(p.shape[:-1], bool)
    for i in range(n - 1):
        for j in range(i + 1, n):
            odd ^= p[..., i] > p[..., j]
    sign = np.where(odd, lu.dtype.type(-1), lu.dtype.type(1))
    return mask, sign, diag


# Work matrix and row numbers of Invert and Det: n * (n + 1) + 2 elements.
_DET = recipe([("i", "nn"), ("b", "", (1, 1, 2, "n")), ("o", "")], [("Det", "m0", (0, 1, 2), {"size": "n"})])
_INV, _INV_MASKED = (recipe([("i", "nn"), ("b", "", (1, 1, 2, "n")), ("o", "nn")],
                             [("Invert", "m0", (0, 1, 2), {"size": "n"})], masked=m) for m in (False, True))
# LU factors and pivots in temporaries, then the solve.
_SOLVE, _SOLVE_MASKED = (recipe([("i", "nn"), ("i", "n"), ("t", "nn"), ("t", "n", True), ("o", "n")],
                                [("LUDecomp", "m0", (0, 3, 2), {"size": "n"}),
                                 ("LUBackSubst", "m2v1", (2, 3, 1, 4), {"size": "n"})], masked=m)
                         for m in (False, True))


def det(a):
    """Determinants of a stack of square matrices (..., n, n) -> (...,); a
    numpy scalar of the input's float type for one matrix; 1.0 for 0x0.

    Computed by kelm's Det where the build has it, else from kelm's LU
    factors (product of the pivots, sign of the row order); a matrix that
    LU refuses as singular has determinant 0.  Agrees with numpy.linalg.det
    within about n * eps * |det| for well-conditioned matrices.

    >>> kelm.det([[1., 2.], [3., 4.]])
    -2.0000000000000004
    """
    r = _DET(a)
    if r is not None:
        return r
    a = square(as_real(a, "a"), "a")
    n = a.shape[-1]
    stack = a.shape[:-2]
    if n == 0:
        return scalar_result(np.ones(stack, a.dtype), len(stack))
    member = f"kelmDet_ma_{_type(a.dtype)}"
    if _lib.has_member(member):
        buf = np.empty(n * (n + 1) + 2, a.dtype)   # work matrix, then n int32 row numbers
        ops = [Op(a, letter="m"), Op(buf, fixed=True), Op(None, core=0, out=True, dense=True)]
        r = Call("Det", ops, {"size": n}, stack, a.dtype).run()[0]
        return scalar_result(r, len(stack))
    mask, sign, diag = _lu_diagonal(a)
    r = sign * np.multiply.reduce(diag, axis=-1)
    r = np.where(mask, a.dtype.type(0), r).astype(a.dtype)
    return scalar_result(r, len(stack))


def slogdet(a):
    """(sign, logabsdet) of a stack of square matrices, from kelm's LU
    factors; singular matrices (refused by LU) give (0, -inf) as in numpy.
    logabsdet is the sum of log|pivot|, within about n * eps of numpy's.

    >>> kelm.slogdet(np.eye(2) * 2)
    (1.0, 1.3862943611198906)
    """
    a = square(as_real(a, "a"), "a")
    n = a.shape[-1]
    stack = a.shape[:-2]
    if n == 0:
        one = np.ones(stack, a.dtype)
        return scalar_result(one, len(stack)), scalar_result(np.zeros(stack, a.dtype), len(stack))
    mask, sign, diag = _lu_diagonal(a)
    sign = sign * np.multiply.reduce(np.sign(diag), axis=-1)
    with np.errstate(divide="ignore"):
        logdet = np.add.reduce(np.log(np.abs(diag)), axis=-1)
    sign = np.where(mask, 0, sign).astype(a.dtype)
    logdet = np.where(mask, -np.inf, logdet).astype(a.dtype)
    return scalar_result(sign, len(stack)), scalar_result(logdet, len(stack))


# -- inverse, solve ---------------------------------------------------------------
def inv(a, out=None, *, errors="raise"):
    """Inverses of a stack of square matrices (..., n, n); 0x0 gives 0x0.

    kelm's Invert where the build has it, else kelm's LU and its solve
    against the columns of the identity.  A matrix refused as singular
    raises SingularMatrixError (a LinAlgError, "Singular matrix", naming
    the first refused object), or with ``errors="mask"`` comes back as NaN
    with ``(inverse, mask)`` returned.  Within about n * cond(a) * eps of
    numpy.linalg.inv (relative).

    >>> kelm.inv([[2., 0.], [0., 4.]])
    array([[0.5 , 0.  ],
           [0.  , 0.25]])
    """
    if out is None:
        r = _INV(a) if errors == "raise" else _INV_MASKED(a) if errors == "mask" else None
        if r is not None:
            return r
    check_errors(errors)
    a = square(as_real(a, "a"), "a")
    n = a.shape[-1]
    stack = a.shape[:-2]
    check_out(out, a.shape, a.dtype)
    if n == 0:
        return _with_mask(finish(np.empty(a.shape, a.dtype), out), np.zeros(stack, bool), errors)
    member = f"kelmInvert_ma_{_type(a.dtype)}"
    if _lib.has_member(member):
        buf = np.empty(n * (n + 1) + 2, a.dtype)
        ops = [Op(a, letter="m"), Op(buf, fixed=True), out_op(out, a.dtype, 2, (n, n))]
        call = Call("Invert", ops, {"size": n}, stack, a.dtype, errors=errors)
        return _masked(finish(call.run()[0], out), call, errors)
    if errors == "mask":
        (lu, piv), mask = lu_factor(a, errors="mask")
        piv[mask] = np.arange(n, dtype=np.int32)
    else:
        (lu, piv), mask = lu_factor(a), None
    eye = np.broadcast_to(np.eye(n, dtype=a.dtype), a.shape)
    r = _lu_solve(lu, piv, eye, out, a.dtype, one_chain=True)
    if mask is not None:
        r[mask] = np.nan
    return _with_mask(r, mask, errors)


def solve(a, b, *, errors="raise"):
    """Solves a x = b for stacks: numpy 1.24's rule for b (a stack of
    vectors when b.ndim == a.ndim - 1, else of matrices (..., n, k)).
    kelm's LU and its solve; a singular matrix raises SingularMatrixError
    ("Singular matrix"), or with ``errors="mask"`` gives NaN and
    ``(x, mask)``.  Within about n * cond(a) * eps of numpy.linalg.solve.

    >>> kelm.solve([[2., 0.], [0., 4.]], [2., 4.])
    array([1., 1.])
    """
    r = _SOLVE(a, b) if errors == "raise" else _SOLVE_MASKED(a, b) if errors == "mask" else None
    if r is not None:
        return r
    check_errors(errors)
    a = square(as_real(a, "a"), "a")
    b = as_real(b, "b")
    dt = common_type(a, b)
    a, b = cast(a, dt), cast(b, dt)
    n = a.shape[-1]
    if n == 0:
        x = _lu_solve(a, np.zeros(a.shape[:-1], np.int32), b, None, dt)
        return _with_mask(x, np.zeros(a.shape[:-2], bool), errors)
    if errors == "mask":
        (lu, piv), mask = lu_factor(a, errors="mask")
        piv[mask] = np.arange(n, dtype=np.int32)     # refused objects: any valid table, NaN results below
    else:
        lu, piv = lu_factor(a)
        mask = None
    x = _lu_solve(lu, piv, b, None, dt)
    if mask is not None and mask.any():
        vectors = b.ndim == a.ndim - 1 or b.ndim == 1
        m = mask[..., None] if vectors else mask[..., None, None]
        x = np.where(np.broadcast_to(m, x.shape[:-1 if vectors else -2] + (1,) * (1 if vectors else 2)), np.nan, x)
        x = x.astype(dt)
        mask = np.broadcast_to(mask, x.shape[:-1 if vectors else -2])
    return _with_mask(x, mask, errors)


# -- Cholesky ---------------------------------------------------------------------
# The factor starts as zeros (its strict upper triangle is never written).
_CHO_FACTOR = recipe([("i", "nn"), ("z", "nn")], [("CholeskyDecomp", "m0", (0, 1), {"size": "n"})], masked=True)
_CHO_SOLVE = recipe([("i", "nn"), ("i", "n"), ("o", "n")], [("CholeskyBackSubst", "m0v1", (0, 1, 2), {"size": "n"})])


def cho_factor(a, *, errors="raise"):
    """kelm's Cholesky factor of a stack of symmetric positive definite
    matrices, as kelm stores it: the lower triangle holds L below the
    diagonal and 1 / L(i, i) on it; the strict upper triangle of a is never
    read and is zero here.  For :func:`cho_solve`.  A matrix with a pivot
    that is not positive raises NotPositiveDefiniteError ("Matrix is not
    positive definite"), or with ``errors="mask"`` gives NaN and
    ``(factor, mask)``.

    >>> kelm.cho_factor([[4., 2.], [2., 5.]])
    array([[0.5, 0. ],
           [1. , 0.5]])
    """
    check_errors(errors)
    fast = _CHO_FACTOR(a)
    if fast is not None and (errors == "mask" or not fast[1].any()):
        return fast if errors == "mask" else fast[0]
    a = square(as_real(a, "a"), "a")
    n = a.shape[-1]
    stack = a.shape[:-2]
    if n == 0:
        return _with_mask(np.zeros(a.shape, a.dtype), np.zeros(stack, bool), errors)
    _need(f"kelmCholeskyDecomp_ma_{_type(a.dtype)}")
    dst = np.zeros(a.shape, a.dtype)
    ops = [Op(a, letter="m"), Op(dst, out=True)]
    call = Call("CholeskyDecomp", ops, {"size": n}, stack, a.dtype, errors=errors)
    r = call.run()[0]
    return _masked(r, call, errors)


def cho_solve(c, b, out=None):
    """Solves a x = b from :func:`cho_factor`'s factor c; b a stack of
    vectors (..., n) or matrices (..., n, k) by numpy.linalg.solve's rule.

    >>> kelm.cho_solve(kelm.cho_factor([[4., 0.], [0., 1.]]), [4., 1.])
    array([1., 1.])
    """
    # b of one dimension less than c is a stack of vectors (numpy's rule); a
    # b with as many is a stack of matrices, which the engine takes.
    if out is None and np.ndim(b) == np.ndim(c) - 1:
        r = _CHO_SOLVE(c, b)
        if r is not None:
            return r
    c = square(as_real(c, "c"), "c")
    b = as_real(b, "b")
    dt = common_type(c, b)
    c, b = cast(c, dt), cast(b, dt)
    _need(f"kelmCholeskyBackSubst_mava_{_type(dt)}")
    n = c.shape[-1]
    return _solve_vectors("CholeskyBackSubst", c, [], b, out, dt, {"size": n})


def _solve_vectors(family, m, extra, b, out, dt, sizes, buf=None):
    """A solve family on a matrix stack and vectors b, by numpy.linalg.solve's
    rule for b; the columns of matrix right-hand sides join the stack."""
    vectors, stack, shape, bv, over = right_hand_sides(m, b, m.shape[-2], m.shape[-1])
    mv = over(m, 2)
    n_cols = m.shape[-1]
    check_out(out, shape, dt)
    if 0 in shape:
        return finish(np.empty(shape, dt), out)
    x = np.empty(bv.shape[:-1] + (n_cols,), dt)
    ops = [Op(mv, letter="m")] + ([Op(buf, fixed=True)] if buf is not None else []) + \
          [Op(bv, core=1, letter="v"), Op(x, core=1, out=True)]
    Call(family, ops, sizes, bv.shape[:-1], dt).run()
    res = x if vectors else np.swapaxes(x, -1, -2)
    return finish(res, out)


def cholesky(a, *, errors="raise"):
    """The lower Cholesky factor L of a stack of symmetric positive definite
    matrices (a = L L^T), numpy's form: zero strict upper triangle, L's own
    diagonal (kelm's factor stores its reciprocal; it is inverted here, one
    rounding).  Only the lower triangle of a is read.  NotPositiveDefiniteError
    (a LinAlgError, "Matrix is not positive definite") when a pivot is not
    positive, or ``errors="mask"``.  Within about n * eps * |a| of numpy.

    >>> kelm.cholesky([[4., 2.], [2., 5.]])
    array([[2., 0.],
           [1., 2.]])
    """
    r = cho_factor(a, errors=errors)
    f, mask = r if errors == "mask" else (r, None)
    d = np.diagonal(f, axis1=-2, axis2=-1)
    with np.errstate(divide="ignore", invalid="ignore"):
        np.einsum("...ii->...i", f)[...] = 1 / d
    return _with_mask(f, mask, errors)


# -- QR ---------------------------------------------------------------------------
def _qr_compact(a):
    """kelm's compact QR of a tall (or square) stack and the Householder
    scalars in LAPACK's convention (H = I - tau v v^T, v[k] = 1)."""
    m, n = a.shape[-2:]
    _need(f"kelmQRDecomp_ma_{_type(a.dtype)}")
    buf = np.empty(max(m, 1), a.dtype)
    ops = [Op(a, letter="m"), Op(buf, fixed=True), Op(None, out=True, shape=(m, n), dtype=a.dtype)]
    h = Call("QRDecomp", ops, {"width": n, "height": m}, a.shape[:-2], a.dtype).run()[0]
    s = n - 1 if m == n else n
    tau = np.zeros(a.shape[:-2] + (min(m, n),), a.dtype)
    for k in range(s):
        tail = h[..., k + 1:, k]
        tau[..., k] = 2 / (1 + np.einsum("...i,...i->...", tail, tail))
    return h, tau, s


def _q_from(h, tau, s, cols):
    """Q (m x cols) of the reflections H_0 ... H_{s-1} stored in h."""
    m = h.shape[-2]
    q = np.broadcast_to(np.eye(m, cols, dtype=h.dtype), h.shape[:-2] + (m, cols)).copy()
    for k in reversed(range(s)):
        v = np.zeros(h.shape[:-2] + (m,), h.dtype)
        v[..., k] = 1
        v[..., k + 1:] = h[..., k + 1:, k]
        w = np.einsum("...i,...ij->...j", v, q)
        q -= tau[..., k, None, None] * v[..., :, None] * w[..., None, :]
    return q


def qr(a, mode="reduced"):
    """QR factors of a stack (..., m, n) by kelm's Householder QR, numpy's
    modes and shapes: 'reduced' (Q (m, k), R (k, n), k = min(m, n)),
    'complete' (Q (m, m), R (m, n)), 'r' (R only), 'raw' ((h, tau), h of
    shape (..., n, m) and tau (..., k)).  'raw' gives kelm's own compact
    form: h transposed holds R on and above the diagonal and the reflector
    tails below it (a square matrix has n - 1 reflections, its last tau is
    0), tau in LAPACK's convention H = I - tau v v^T.  A wide matrix is
    factored on its leading square block, the rest of R is Q^T times the
    remaining columns.  Signs of R's rows may differ from numpy's; Q R
    equals a within about m * n * eps * |a|.

    >>> q, r = kelm.qr(np.eye(3)); bool(np.allclose(q @ r, np.eye(3)))
    True
    """
    if mode not in ("reduced", "complete", "r", "raw"):
        raise ValueError(f"Unrecognized mode '{mode}'")
    a = as_real(a, "a")
    if a.ndim < 2:
        raise ShapeError(f"{a.ndim}-dimensional array given. Array must be at least two-dimensional")
    m, n = a.shape[-2:]
    k = min(m, n)
    stack = a.shape[:-2]
    if k == 0:
        if mode == "raw":
            return np.empty(stack + (n, m), a.dtype), np.empty(stack + (0,), a.dtype)
        q = np.broadcast_to(np.eye(m, m if mode == "complete" else 0, dtype=a.dtype), stack + (m, m if mode == "complete" else 0)).copy()
        r = np.empty(stack + ((m if mode == "complete" else 0), n), a.dtype)
        return r if mode == "r" else (q, r)
    lead = a[..., :, :k]
    h, tau, s = _qr_compact(lead)
    if mode == "raw":
        full = np.concatenate([h, a[..., :, k:]], axis=-1) if n > k else h
        if n > k:
            q = _q_from(h, tau, s, m)
            full[..., :, k:] = matmul(q, a[..., :, k:], transpose_a=True)
        return np.swapaxes(full, -1, -2).copy(), tau
    rows = m if mode == "complete" else k
    r = np.zeros(stack + (rows, n), a.dtype)
    r[..., :k, :k] = np.triu(h[..., :k, :k])
    if mode == "r" and n <= k:
        return r
    q = _q_from(h, tau, s, m if mode == "complete" else k)
    if n > k:
        r[..., :k, k:] = matmul(q[..., :, :k], a[..., :, k:], transpose_a=True)
    return r if mode == "r" else (q, r)


# -- symmetric eigenproblem --------------------------------------------------------
def _symmetric(a, UPLO):
    if UPLO not in ("L", "U"):
        raise ValueError("UPLO argument must be 'L' or 'U'")
    a = square(as_real(a, "a"), "a")
    t = np.tril(a) if UPLO == "L" else np.triu(a)
    off = np.tril(a, -1) if UPLO == "L" else np.triu(a, 1)
    return t + np.swapaxes(off, -1, -2)


def _eigh_recipe(uplo, vectors):
    # The named triangle mirrored into a temporary, kelm's values (and
    # vectors) in ascending order, refused objects as NaN with a mask.
    if vectors:
        return recipe([(uplo, "nn"), ("b", "", (1, 0, 0, "n")), ("o", "nn"), ("o", "n")],
                      [("EigenValuesVectorsSym", "m0", (0, 1, 2, 3), {"size": "n"})], order=(3, 2), masked=True)
    return recipe([(uplo, "nn"), ("b", "", (1, 0, 0, "n")), ("o", "n")],
                  [("EigenValuesSym", "m0", (0, 1, 2), {"size": "n"})], order=(2, -1), masked=True)


_EIGH = {(uplo, vectors): _eigh_recipe(uplo, vectors) for uplo in "LU" for vectors in (False, True)}


def _ascending(res):
    """Values (res[-1]) in ascending order, stable, vectors' columns (res[0])
    in step."""
    order = np.argsort(res[-1], axis=-1, kind="stable")
    out = [np.take_along_axis(res[-1], order, axis=-1)]
    if len(res) == 2:
        out.insert(0, np.take_along_axis(res[0], order[..., None, :], axis=-1))
    return out


def _eigh(a, UPLO, vectors, errors):
    check_errors(errors)
    family = "EigenValuesVectorsSym" if vectors else "EigenValuesSym"

    def run(x, stk):
        n = x.shape[-1]
        buf = np.empty(n * n, x.dtype)
        ops = [Op(x, letter="m"), Op(buf, fixed=True)]
        if vectors:
            ops.append(Op(None, out=True, shape=(n, n), dtype=x.dtype))
        ops.append(Op(None, core=1, out=True, dense=True, shape=(n,), dtype=x.dtype))
        call = Call(family, ops, {"size": n}, stk, x.dtype, errors="mask")
        return call.run(), call

    # res: [vectors,] values; sorted when the recipe made them.
    fast = _EIGH[UPLO, vectors](a) if UPLO in ("L", "U") else None
    if fast is not None:
        *res, refused = fast
        s = None
    else:
        s = _symmetric(a, UPLO)
        n = s.shape[-1]
        stack = s.shape[:-2]
        if n == 0:
            w = np.empty(stack + (0,), s.dtype)
            r = (w, np.empty(s.shape, s.dtype)) if vectors else w
            return _with_mask(r, np.zeros(stack, bool), errors)
        _need(f"kelm{family}_ma_{_type(s.dtype)}")
        res, call = run(s, stack)
        refused = call.mask()
    if refused.any():
        # kelm refuses singular matrices, and its single-precision iteration
        # (an absolute test on the off-diagonal) can stall a little above
        # its tolerance.  Those objects are solved again in double precision
        # on the shifted matrix s + c I (same vectors, values shifted by c).
        _need(f"kelm{family}_ma_64f")
        if s is None:
            s = _symmetric(a, UPLO)
        n = s.shape[-1]
        sub = s[refused].astype(np.float64)
        c = 2 * np.sqrt(np.einsum("...ij,...ij->...", sub, sub)) + 1
        sub += c[:, None, None] * np.eye(n)
        r2, call2 = run(sub, (sub.shape[0],))
        if call2.mask().any() and errors == "raise":
            raise LinAlgError("Eigenvalues did not converge")
        r2[-1] = (r2[-1] - c[:, None]).astype(s.dtype)
        if fast is not None:
            r2 = _ascending(r2)
        for k in range(len(res)):
            res[k][refused] = r2[k]
        still = np.zeros(refused.size, bool)
        still[np.flatnonzero(refused.ravel())] = call2.mask()
        refused = still.reshape(refused.shape)
    if fast is None:
        res = _ascending(res)
    if errors == "raise" and refused.any():
        raise LinAlgError("Eigenvalues did not converge")
    r = (res[-1], res[0]) if vectors else res[0]
    return _with_mask(r, refused, errors)


def eigh(a, UPLO="L", *, errors="raise"):
    """Eigenvalues (ascending) and orthonormal eigenvectors (columns) of a
    stack of symmetric matrices; only the UPLO triangle is read.  kelm's
    values come in descending order and are reordered.  kelm refuses
    singular matrices, and in single precision a few matrices whose
    iteration stalls just above its absolute tolerance; those objects are
    solved again by kelm in double precision on a shifted matrix and
    rounded to the input's type.  Values within about n * eps * |a| of numpy.linalg.eigh;
    vectors up to sign.  NoConvergenceError (a LinAlgError) when the
    iteration does not converge, or ``errors="mask"``.

    >>> kelm.eigh([[2., 0.], [0., 1.]])[0]
    array([1., 2.])
    """
    return _eigh(a, UPLO, True, errors)


def eigvalsh(a, UPLO="L", *, errors="raise"):
    """Eigenvalues, ascending, of a stack of symmetric matrices (see
    :func:`eigh`).

    >>> kelm.eigvalsh([[2., 0.], [0., 1.]])
    array([1., 2.])
    """
    return _eigh(a, UPLO, False, errors)


# -- general eigenproblem -----------------------------------------------------------
def _eig_values(a, vectors, errors):
    check_errors(errors)
    a = square(as_real(a, "a"), "a")
    n = a.shape[-1]
    stack = a.shape[:-2]
    t = _type(a.dtype)
    if n == 0:
        w = np.empty(stack + (0,), a.dtype)
        r = (w, np.empty(a.shape, a.dtype)) if vectors else w
        return _with_mask(r, np.zeros(stack, bool), errors)
    # The vectors of kelm's "Left" procedure satisfy a v = lambda v.
    family = "EigenValuesVectorsLeft" if vectors else "EigenValues"
    _need(f"kelm{family}_ma_{t}")
    buf = np.empty(n * (3 * n + 5), a.dtype)
    ops = [Op(a, letter="m")]
    if vectors:
        ops.append(Op(None, out=True, shape=(n, n), dtype=a.dtype))
    ops += [Op(None, core=1, out=True, dense=True, shape=(n,), dtype=a.dtype),
            Op(None, core=1, out=True, dense=True, shape=(n,), dtype=a.dtype), Op(buf, fixed=True)]
    call = Call(family, ops, {"size": n}, stack, a.dtype, errors=errors)
    res = call.run()
    re, im = res[-2], res[-1]
    mask = call.mask() if errors == "mask" else None
    if not np.any(im):
        w = re
        if not vectors:
            return _with_mask(w, mask, errors)
        v = res[0]
        norms = np.sqrt(np.einsum("...ij,...ij->...j", v, v))
        with np.errstate(invalid="ignore", divide="ignore"):
            v = v / norms[..., None, :]
        return _with_mask((w, v), mask, errors)
    ctype = np.complex64 if a.dtype == np.float32 else np.complex128
    w = (re + 1j * im).astype(ctype)
    if not vectors:
        return _with_mask(w, mask, errors)
    stored = res[0]
    v = stored.astype(ctype)
    # A complex pair (j, j + 1), positive imaginary part first: columns j and
    # j + 1 hold the real and imaginary parts of the vector of eigenvalue
    # j + 1 (the conjugate); eigenvalue j takes its conjugate.
    first = (im > 0)
    first[..., -1] = False
    idx = np.nonzero(first)
    for *obj, j in zip(*idx):
        obj = tuple(obj)
        re_v = stored[obj + (slice(None), j)]
        im_v = stored[obj + (slice(None), j + 1)]
        v[obj + (slice(None), j)] = re_v - 1j * im_v
        v[obj + (slice(None), j + 1)] = re_v + 1j * im_v
    norms = np.sqrt(np.einsum("...ij,...ij->...j", v.real, v.real) + np.einsum("...ij,...ij->...j", v.imag, v.imag))
    with np.errstate(invalid="ignore", divide="ignore"):
        v = v / norms[..., None, :]
    return _with_mask((w, v), mask, errors)


def eig(a, *, errors="raise"):
    """Eigenvalues and right eigenvectors (columns, unit norm) of a stack of
    general real matrices: a real result when every eigenvalue of the stack
    is real, complex otherwise, as numpy.  The values come in kelm's order,
    the same as :func:`eigvals`; numpy's order may differ.  Within about
    n * eps * |a| / separation of numpy's values.

    >>> kelm.eig([[2., 0.], [0., 1.]])[0]
    array([2., 1.])
    """
    return _eig_values(a, True, errors)


def eigvals(a, *, errors="raise"):
    """Eigenvalues of a stack of general real matrices (see :func:`eig`).

    >>> kelm.eigvals([[0., -1.], [1., 0.]])
    array([0.+1.j, 0.-1.j])
    """
    return _eig_values(a, False, errors)


# -- norms --------------------------------------------------------------------------
def norm(x, ord=None, axis=None, keepdims=False):
    """numpy.linalg.norm for the orders kelm computes: the vector 2-norm
    (kelm's L2Norm) and the Frobenius norm (kelm's FrobNorm), with numpy's
    axis and keepdims rules.  Other orders raise ValueError naming
    numpy.linalg.norm.  Sums of squares run in ascending order in the
    element type: within about n * eps of numpy's.

    >>> kelm.norm([3., 4.])
    5.0
    """
    x = as_real(x, "x")
    nd = x.ndim
    if axis is None:
        if ord is not None and not ((ord in ("fro", "f") and nd == 2) or (ord == 2 and nd == 1)):
            raise ValueError(f"kelm.norm computes ord=None, 2 (vectors) and 'fro'; use numpy.linalg.norm for "
                             f"ord={ord!r}")
        r = _l2(x.reshape(-1), 0) if x.size else x.dtype.type(0)
        if keepdims:
            return np.reshape(r, (1,) * nd)
        return r
    axes = (axis,) if np.isscalar(axis) or isinstance(axis, (int, np.integer)) else tuple(axis)
    try:
        axes = tuple(int(a) for a in axes)
    except TypeError:
        raise TypeError("'axis' must be None, an integer or a tuple of integers") from None
    axes = tuple(a + nd if a < 0 else a for a in axes)
    if any(a < 0 or a >= nd for a in axes):
        raise np.AxisError(f"axis {axis} is out of bounds for array of dimension {nd}")
    if len(axes) == 1:
        if ord not in (None, 2):
            raise ValueError(f"kelm.norm computes the vector 2-norm; use numpy.linalg.norm for ord={ord!r}")
        v = np.moveaxis(x, axes[0], -1)
        r = _l2(v, v.ndim - 1)
    elif len(axes) == 2:
        if axes[0] == axes[1]:
            raise ValueError("Duplicate axes given.")
        if ord not in (None, "fro", "f"):
            raise ValueError(f"kelm.norm computes the Frobenius norm of matrices; use numpy.linalg.norm for "
                             f"ord={ord!r}")
        m = np.moveaxis(x, axes, (-2, -1))
        r = _frob(m)
    else:
        raise ValueError("Improper number of dimensions to norm.")
    if keepdims:
        r = np.expand_dims(r, axes)
    return r


def _l2(v, nstack):
    n = v.shape[-1]
    stack = v.shape[:-1]
    if n == 0:
        return scalar_result(np.zeros(stack, v.dtype), len(stack))
    _need(f"kelmL2Norm_va_{_type(v.dtype)}")
    ops = [Op(v, core=1, letter="v"), Op(None, core=0, out=True, dense=True, dtype=v.dtype)]
    r = Call("L2Norm", ops, {"len": n}, stack, v.dtype).run()[0]
    return scalar_result(r, len(stack))


def _frob(m):
    h, w = m.shape[-2:]
    stack = m.shape[:-2]
    if h == 0 or w == 0:
        return scalar_result(np.zeros(stack, m.dtype), len(stack))
    _need(f"kelmFrobNorm_ma_{_type(m.dtype)}")
    ops = [Op(m, letter="m"), Op(None, core=0, out=True, dense=True, dtype=m.dtype)]
    r = Call("FrobNorm", ops, {"width": w, "height": h}, stack, m.dtype).run()[0]
    return scalar_result(r, len(stack))


# -- least squares -------------------------------------------------------------------
def lstsq(a, b, rcond=None):
    """numpy.linalg.lstsq: (x, residuals, rank, s) for one matrix a (m, n)
    and b (m,) or (m, k).  The singular values s are the square roots of
    kelm's symmetric eigenvalues of a^T a (or a a^T), descending: accurate
    to about eps * s_max / s (absolute eps * s_max^2 on s^2), so small
    singular values carry less accuracy than LAPACK's.  rank counts s above
    rcond * s_max (rcond defaults to eps * max(m, n)).  A tall full-rank
    system is solved by kelm's QR; any other by the minimum-norm formula on
    the same eigenvectors.

    >>> kelm.lstsq([[1., 0.], [0., 1.], [0., 0.]], [1., 2., 3.])[0]
    array([1., 2.])
    """
    a = as_real(a, "a")
    b = as_real(b, "b")
    if a.ndim != 2:
        raise LinAlgError(f"{a.ndim}-dimensional array given. Array must be two-dimensional")
    is_1d = b.ndim == 1
    if is_1d:
        b = b[:, None]
    if b.ndim != 2:
        raise LinAlgError(f"{b.ndim}-dimensional array given. Array must be two-dimensional")
    m, n = a.shape
    if m != b.shape[0]:
        raise LinAlgError("Incompatible dimensions")
    dt = common_type(a, b)
    a, b = cast(a, dt), cast(b, dt)
    k = b.shape[1]
    if rcond is None:
        rcond = np.finfo(dt).eps * max(m, n)
    if min(m, n) == 0:
        x = np.zeros((n, k), dt)
        resid = (np.einsum("ij,ij->j", b, b) if m > 0 and n == 0 else np.zeros(k, dt)).astype(dt)
        return (x[:, 0] if is_1d else x), (resid if m > n else np.empty(0, dt)), 0, np.empty(0, dt)
    gram = matmul(a, a, transpose_a=True) if m >= n else matmul(a, a, transpose_b=True)
    w, v = eigh(gram)
    w, v = w[::-1], v[:, ::-1]
    s = np.sqrt(np.clip(w, 0, None)).astype(dt)
    cut = rcond * s[0] if s.size else 0
    rank = int(np.count_nonzero(s > cut))
    if m >= n and rank == n and _lib.has_member(f"kelmQRBackSubst_mava_{_type(dt)}"):
        h, _, _ = _qr_compact(a)
        buf = np.empty(m, dt)
        x = _solve_vectors("QRBackSubst", h, [], b.T.copy() if False else b, None, dt, {"width": n, "height": m},
                           buf=buf)
    else:
        keep = s > cut
        inv_s2 = np.where(keep, 1 / np.where(keep, s, 1) ** 2, 0).astype(dt)
        if m >= n:
            # x = V diag(1/s^2) V^T a^T b
            atb = matmul(a, b, transpose_a=True)
            x = matmul(v, inv_s2[:, None] * matmul(v, atb, transpose_a=True))
        else:
            # x = a^T U diag(1/s^2) U^T b
            y = matmul(v, inv_s2[:, None] * matmul(v, b, transpose_a=True))
            x = matmul(a, y, transpose_a=True)
    if rank == n and m > n:
        r = b - matmul(a, x)
        resid = np.einsum("ij,ij->j", r, r).astype(dt)
    else:
        resid = np.empty(0, dt)
    return (x[:, 0] if is_1d else x), resid, rank, s[:min(m, n)]


# -- products ------------------------------------------------------------------------
def matrix_power(a, n):
    """a raised to the integer power n for a stack of square matrices, by
    repeated squaring with kelm's matrix product (n < 0: of the inverse,
    n == 0: identity), as numpy.linalg.matrix_power.

    >>> kelm.matrix_power([[1., 1.], [0., 1.]], 3)
    array([[1., 3.],
           [0., 1.]])
    """
    a = np.asarray(a)
    if a.ndim < 2 or a.shape[-1] != a.shape[-2]:
        raise ShapeError("Last 2 dimensions of the array must be square" if a.ndim >= 2 else
                         f"{a.ndim}-dimensional array given. Array must be at least two-dimensional")
    try:
        n = int(np.core.numeric.operator.index(n))
    except TypeError as e:
        raise TypeError("exponent must be an integer") from e
    if a.dtype.kind not in "f":
        a = as_real(a, "a")
    if n == 0:
        r = np.empty_like(a)
        r[...] = np.eye(a.shape[-1], dtype=a.dtype)
        return r
    if n < 0:
        a = inv(a)
        n = -n
    result = None
    z = a
    while True:
        if n & 1:
            result = z if result is None else matmul(result, z)
        n >>= 1
        if not n:
            return result if result is not a else a.copy()
        z = matmul(z, z)


def multi_dot(arrays, *, out=None):
    """The product of two or more matrices in the cheapest order, as
    numpy.linalg.multi_dot (first and last may be 1-D), each product by
    kelm's matrix product.

    >>> kelm.multi_dot([np.eye(2), np.eye(2), [1., 2.]])
    array([1., 2.])
    """
    arrays = [as_real(x, "arrays") for x in arrays]
    if len(arrays) < 2:
        raise ValueError("Expecting at least two arrays.")
    first_1d = arrays[0].ndim == 1
    last_1d = arrays[-1].ndim == 1
    if first_1d:
        arrays[0] = arrays[0][None, :]
    if last_1d:
        arrays[-1] = arrays[-1][:, None]
    for x in arrays:
        if x.ndim != 2:
            raise LinAlgError(f"{x.ndim}-dimensional array given. Array must be two-dimensional")
    dims = [x.shape[0] for x in arrays] + [arrays[-1].shape[1]]
    count = len(arrays)
    cost = [[0] * count for _ in range(count)]
    split = [[0] * count for _ in range(count)]
    for length in range(1, count):
        for i in range(count - length):
            j = i + length
            cost[i][j] = None
            for s in range(i, j):
                c = cost[i][s] + cost[s + 1][j] + dims[i] * dims[s + 1] * dims[j + 1]
                if cost[i][j] is None or c < cost[i][j]:
                    cost[i][j] = c
                    split[i][j] = s

    def product(i, j):
        if i == j:
            return arrays[i]
        return matmul(product(i, split[i][j]), product(split[i][j] + 1, j))

    r = product(0, count - 1)
    if first_1d:
        r = r[0]
    if last_1d:
        r = r[..., 0]
    if out is not None:
        np.copyto(out, r)
        return out
    return r
