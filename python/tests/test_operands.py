"""Operand rules and the families on main: layouts, broadcasting, dtypes,
empty stacks, out=, errors, refused objects."""
import numpy as np
import pytest

import kelm
from conftest import DTYPES, SIZES, close, layouts, rng, well_conditioned


# -- element-wise and products: every layout, exact where numpy does the same --
@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("shape", [(5, 3, 4), (2, 3, 4, 4), (1, 6, 6), (4, 1, 2)])
def test_elementwise_every_layout_exact(dtype, shape):
    x = rng(1).standard_normal(shape).astype(dtype)
    y = rng(2).standard_normal(shape).astype(dtype)
    for name, v in layouts(x):
        for fn, ref in ((kelm.add, np.add), (kelm.subtract, np.subtract)):
            got = fn(v, y)
            assert got.dtype == dtype, name
            np.testing.assert_array_equal(got, ref(x, y), err_msg=name)
        np.testing.assert_array_equal(kelm.scale(v, 1.5), (dtype(1.5) * x), err_msg=name)


@pytest.mark.parametrize("dtype", DTYPES)
def test_broadcast_operands_and_constants(dtype):
    x = rng(3).standard_normal((6, 3, 3)).astype(dtype)
    one = rng(4).standard_normal((3, 3)).astype(dtype)
    per = rng(5).standard_normal((6,)).astype(dtype)
    np.testing.assert_array_equal(kelm.add(one, x), one + x)          # single + array: operands trade places
    np.testing.assert_array_equal(kelm.subtract(one, x), one - x)     # single - array: the single member
    np.testing.assert_array_equal(kelm.add(np.broadcast_to(one, x.shape), x), one + x)
    np.testing.assert_array_equal(kelm.scale(x, per), per[:, None, None] * x)
    np.testing.assert_array_equal(kelm.add(x, dtype(2)), x + dtype(2))
    v = x[..., 0]
    np.testing.assert_array_equal(kelm.subtract(dtype(2), v), dtype(2) - v)
    # two stacks that broadcast into a grid, iterated over the shorter axis
    a = rng(6).standard_normal((4, 1, 3, 3)).astype(dtype)
    b = rng(7).standard_normal((1, 5, 3, 3)).astype(dtype)
    np.testing.assert_array_equal(kelm.add(a, b), a + b)
    np.testing.assert_array_equal(kelm.add(np.broadcast_to(one, (3, 3, 3)), np.broadcast_to(one, (3, 3, 3))),
                                  np.broadcast_to(one + one, (3, 3, 3)))


def ascending_matmul(a, b):
    """The product summed over k ascending, each step rounded."""
    a, b = np.broadcast_arrays(a[..., :, :, None], b[..., None, :, :])
    acc = np.zeros(a.shape[:-3] + (a.shape[-3], b.shape[-1]), a.dtype)
    for k in range(a.shape[-2]):
        acc = acc + a[..., :, k, :] * b[..., k, :]
    return acc


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("n", SIZES)
def test_matmul_against_ascending_sums(dtype, n):
    a = rng(n).standard_normal((7, n, n)).astype(dtype)
    b = rng(n + 1).standard_normal((7, n, n)).astype(dtype)
    want = ascending_matmul(a, b)
    for name, v in layouts(a):
        got = kelm.matmul(v, b)
        assert got.shape == want.shape and got.dtype == dtype
        np.testing.assert_array_equal(got, want, err_msg=name)
    close(kelm.matmul(a, b), np.matmul(a, b), dtype, scale=n)
    np.testing.assert_array_equal(kelm.matmul(a, b, transpose_a=True), ascending_matmul(np.swapaxes(a, -1, -2), b))


@pytest.mark.parametrize("dtype", DTYPES)
def test_matmul_shapes_like_numpy(dtype):
    r = rng(8)
    cases = [((3, 4), (4, 2)), ((4,), (4, 2)), ((3, 4), (4,)), ((5, 3, 4), (4, 2)), ((2, 1, 3, 4), (5, 4, 6)),
             ((0, 3, 4), (4, 2)), ((3, 0), (0, 2)), ((4,), (4,))]
    for sa, sb in cases:
        a = r.standard_normal(sa).astype(dtype)
        b = r.standard_normal(sb).astype(dtype)
        got = kelm.matmul(a, b)
        want = np.matmul(a, b)
        assert np.shape(got) == want.shape and np.asarray(got).dtype == want.dtype, (sa, sb)
        close(np.asarray(got), np.asarray(want), dtype, scale=4)
    v = r.standard_normal((6, 4)).astype(dtype)
    m = r.standard_normal((6, 3, 4)).astype(dtype)
    close(kelm.matvec(m, v), np.einsum("...ij,...j->...i", m, v), dtype, scale=4)
    y = r.standard_normal((6, 3)).astype(dtype)
    close(kelm.gaxpy(m[0], v, y), m[0] @ v[..., None][..., 0] + y if False else np.einsum("ij,nj->ni", m[0], v) + y,
          dtype, scale=4)
    close(kelm.gaxpy(m, v, y), np.einsum("nij,nj->ni", m, v) + y, dtype, scale=4)


@pytest.mark.parametrize("dtype", DTYPES)
def test_transpose_identity_and_out(dtype):
    x = rng(9).standard_normal((4, 3, 5)).astype(dtype)
    for name, v in layouts(x):
        np.testing.assert_array_equal(kelm.transpose(v), np.swapaxes(x, -1, -2), err_msg=name)
    np.testing.assert_array_equal(kelm.identity(3, dtype, shape=(2,)), np.broadcast_to(np.eye(3, dtype=dtype),
                                                                                       (2, 3, 3)))
    sq = rng(10).standard_normal((4, 3, 3)).astype(dtype)
    want = np.swapaxes(sq, -1, -2).copy()
    assert kelm.transpose(sq, out=sq) is sq        # in place goes through a temporary
    np.testing.assert_array_equal(sq, want)
    # out with gaps and reversed axes, another float type
    out = np.zeros((8, 6, 10))[::-2, ::2, 1::2]
    assert kelm.add(x, x, out=out) is out
    np.testing.assert_array_equal(out, (x + x).astype(np.float64))


def test_dtype_rules_and_input_kinds():
    ints = np.arange(8).reshape(2, 2, 2)
    assert kelm.add(ints, ints).dtype == np.float64
    assert kelm.add([[1, 2], [3, 4]], [[1, 1], [1, 1]]).tolist() == [[2.0, 3.0], [4.0, 5.0]]
    assert kelm.add(np.ones((2, 2), np.float16), np.ones((2, 2), np.float16)).dtype == np.float32
    assert kelm.add(np.ones((2, 2), np.float32), np.ones((2, 2), np.float64)).dtype == np.float64
    assert kelm.add(np.ones((2, 2), bool), np.ones((2, 2), np.float32)).dtype == np.float64
    with pytest.raises(TypeError, match="real"):
        kelm.add(np.ones((2, 2), complex), np.ones((2, 2)))
    with pytest.raises(TypeError):
        kelm.inv(np.eye(2, dtype=np.longdouble))


def test_argument_faults_raise_before_writing():
    out = np.full((3, 3), 7.0)
    with pytest.raises(ValueError, match="mismatch"):
        kelm.matmul(np.ones((3, 4)), np.ones((3, 3)), out=out)
    with pytest.raises(ValueError, match="shape"):
        kelm.add(np.ones((3, 3)), np.ones((3, 3)), out=np.empty((2, 3)))
    with pytest.raises(ValueError, match="broadcast"):
        kelm.add(np.ones((2, 3, 3)), np.ones((4, 3, 3)))
    with pytest.raises(np.linalg.LinAlgError, match="square"):
        kelm.solve(np.ones((2, 3)), np.ones(2))
    with pytest.raises(ValueError, match="square"):      # also a ValueError
        kelm.det(np.ones((2, 3)))
    with pytest.raises(np.linalg.LinAlgError, match="two-dimensional"):
        kelm.inv(np.ones(3))
    with pytest.raises(ValueError, match="read-only"):
        kelm.add(np.ones((2, 2)), np.ones((2, 2)), out=np.broadcast_to(np.ones((2, 2)), (2, 2)))
    with pytest.raises(ValueError, match="errors"):
        kelm.inv(np.eye(2), errors="ignore")
    np.testing.assert_array_equal(out, 7.0)


# -- LU family: solve, inverse, determinants ----------------------------------------
@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("n", SIZES)
def test_solve_inv_det_against_numpy(dtype, n):
    a = well_conditioned((6, n, n), dtype, seed=n)
    b = rng(n).standard_normal((6, n)).astype(dtype)
    B = rng(n).standard_normal((6, n, 2)).astype(dtype)
    for name, v in layouts(a):
        close(kelm.solve(v, b), np.linalg.solve(a, b), dtype, factor=256)
    close(kelm.solve(a, B), np.linalg.solve(a, B), dtype, factor=256)
    close(kelm.inv(a), np.linalg.inv(a), dtype, factor=256)
    close(kelm.det(a), np.linalg.det(a), dtype, scale=1, factor=64 * max(n, 1)) if n < 7 else None
    s, l = kelm.slogdet(a)
    ws, wl = np.linalg.slogdet(a)
    np.testing.assert_array_equal(s, ws)
    close(l, wl, dtype, scale=max(n, 1), factor=64)


@pytest.mark.parametrize("dtype", DTYPES)
def test_single_matrix_results_like_numpy(dtype):
    a = well_conditioned((3, 3), dtype)
    d = kelm.det(a)
    assert type(d) is type(np.linalg.det(a)) and np.ndim(d) == 0
    assert kelm.det(np.zeros((0, 0), dtype)) == 1.0
    assert kelm.inv(np.zeros((0, 0), dtype)).shape == (0, 0)
    assert kelm.det(np.zeros((4, 0, 0), dtype)).shape == (4,)
    assert kelm.inv(np.zeros((0, 3, 3), dtype)).shape == (0, 3, 3)
    x = kelm.solve(a, [1, 2, 3])
    assert x.dtype == np.result_type(dtype, np.float64) if False else x.dtype == np.float64 or dtype == np.float64
    assert kelm.det(np.zeros((3, 3), dtype)) == 0
    assert kelm.slogdet(np.zeros((3, 3), dtype)) == (0.0, -np.inf)


def test_lu_factor_pivot_table_and_solve():
    a = np.array([[0.0, 1.0], [2.0, 3.0]])
    lu, piv = kelm.lu_factor(a)
    assert piv.dtype == np.int32 and piv.tolist() == [1, 0]
    # row piv[k] holds L(k, j) left of column k and U(k, j) from it
    L = np.array([[1.0, 0.0], [lu[piv[1], 0], 1.0]])
    U = np.array([[lu[piv[0], 0], lu[piv[0], 1]], [0.0, lu[piv[1], 1]]])
    np.testing.assert_array_equal(L @ U, a[piv])
    np.testing.assert_array_equal(kelm.lu_solve((lu, piv), [1.0, 5.0]), np.linalg.solve(a, [1.0, 5.0]))


# -- refused objects: raise with the index, or mask ----------------------------------
@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("where", ["start", "middle", "end", "everywhere", "none"])
@pytest.mark.parametrize("count", [7, 3000])
def test_refused_objects_masked(dtype, where, count):
    n = 4
    a = well_conditioned((count, n, n), dtype, seed=count)
    bad = {"start": [0], "middle": [count // 2, count // 2 + 1], "end": [count - 1],
           "everywhere": list(range(0, count, 3)), "none": []}[where]
    a[bad] = 0
    b = rng(1).standard_normal((count, n)).astype(dtype)
    for threads in (1, 2):
        kelm.set_num_threads(threads)
        try:
            x, mask = kelm.solve(a, b, errors="mask")
            inv, imask = kelm.inv(a, errors="mask")
        finally:
            kelm.set_num_threads(0)
        assert mask.tolist() == imask.tolist() == [i in bad for i in range(count)]
        assert np.isnan(x[bad]).all() and np.isnan(inv[bad]).all()
        ok = ~mask
        for i in np.flatnonzero(ok)[:: max(1, count // 50)]:
            np.testing.assert_array_equal(x[i], kelm.solve(a[i], b[i]))
            np.testing.assert_array_equal(inv[i], kelm.inv(a[i]))
    if bad:
        out = np.full((count, n, n), 5.0, dtype)
        with pytest.raises(kelm.SingularMatrixError) as e:
            kelm.inv(a, out=out)
        assert isinstance(e.value, np.linalg.LinAlgError) and e.value.status == -195
        assert e.value.status_name == "kelStsSingular"
        assert e.value.index == (bad[0],) and "Singular matrix" in str(e.value)
        if kelm.has_member(f"kelmInvert_ma_{'32f' if dtype == np.float32 else '64f'}") or True:
            pass


@pytest.mark.parametrize("dtype", DTYPES)
def test_threads_give_the_same_bits(dtype):
    a = well_conditioned((5000, 4, 4), dtype, seed=3)
    b = rng(4).standard_normal((5000, 4)).astype(dtype)
    results = []
    for threads in (1, 2, 3):
        kelm.set_num_threads(threads)
        try:
            assert kelm.get_num_threads() == threads
            results.append((kelm.solve(a, b), kelm.matmul(a, a)))
        finally:
            kelm.set_num_threads(0)
    for r in results[1:]:
        np.testing.assert_array_equal(r[0], results[0][0])
        np.testing.assert_array_equal(r[1], results[0][1])


def test_every_member_reachable_by_name():
    import kelm._lib as lib
    assert lib.MEMBERS and all(lib.has_member(n) for n in ("kelmAdd_mam_32f", "kelmLUDecomp_ma_64f_P"))
    m = lib.kelmAdd_mam_64f
    assert m.args[:4] == ("src1", "src1Stride0", "src1Stride1", "src1Stride2")
    a = np.ones((2, 2, 2))
    b = np.eye(2)
    out = np.empty_like(a)
    assert m(a, 32, 16, 8, b, 16, 8, out, 32, 16, 8, 2, 2, 2) == 0
    np.testing.assert_array_equal(out, a + b)
    assert m(a, 32, 16, 8, b, 16, 8, None, 32, 16, 8, 2, 2, 2) == -8   # kelStsNullPointer


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("stack", [(), (1,), (7,), (2, 3)])
def test_plain_calls_give_the_engines_bits(dtype, stack):
    # The common calls skip the Python engine; every layout, whether it
    # takes that road or not, gives the engine's bits and raises as it does.
    a = well_conditioned(stack + (4, 4), dtype)
    b = well_conditioned(stack + (4, 4), dtype, seed=1)
    v = rng(2).standard_normal(stack + (4,)).astype(dtype)
    spd = a @ np.swapaxes(a, -1, -2)
    cases = [(kelm.add, (b,)), (kelm.subtract, (b,)), (kelm.matmul, (b,)), (kelm.matvec, (v,)), (kelm.inv, ()),
             (kelm.det, ()), (kelm.solve, (v,)), (kelm.cho_solve, (v,)), (lambda x: kelm.cho_factor(x + spd), ()),
             (lambda x: kelm.cho_solve(spd, x[..., 0]), ())]
    # eigh reads one triangle (the other holds junk); equal values keep
    # their order.
    a[..., 0, 3] = 7
    a.reshape((-1, 4, 4))[0] = np.diag([2, 1, 2, 1])
    cases += [(lambda x: kelm.eigh(x, UPLO="L"), ()), (lambda x: kelm.eigvalsh(x, UPLO="U"), ())]
    if stack:
        # one object against the stack: plain, broadcast, and on the left
        one = b.reshape((-1, 4, 4))[0]
        cases += [(kelm.matmul, (one,)), (kelm.add, (np.broadcast_to(one, b.shape),)), (kelm.matvec, (v.reshape((-1, 4))[0],)),
                  (lambda x: kelm.subtract(one, x), ()), (lambda x: kelm.matmul(one, x), ())]
    # Refused objects (at the start and the end of the stack): NaN and a
    # mask, or eigh's second try in double precision.
    bad = a.copy()
    bad.reshape((-1, 4, 4))[0] = 0
    bad.reshape((-1, 4, 4))[-1, 2] = 0
    refusing = [(lambda x: kelm.inv(x, errors="mask"), ()), (lambda x: kelm.solve(x, v, errors="mask"), ()),
                (lambda x: kelm.cho_factor(x, errors="mask"), ()),
                (lambda x: kelm.eigh(x, errors="mask"), ()), (kelm.eigvalsh, ())]
    for f, rest, arr in [c + (a,) for c in cases] + [c + (bad,) for c in refusing]:
        for name, x in layouts(arr):
            fast = _leaves(f(x, *rest))
            was = kelm._native.use_recipes(False)
            try:
                slow = _leaves(f(x, *rest))
            finally:
                kelm._native.use_recipes(was)
            for got, want in zip(fast, slow, strict=True):
                assert type(got) is type(want) and got.dtype == want.dtype, (f.__name__, name)
                np.testing.assert_array_equal(got, want, err_msg=f"{f.__name__} {name}")
    if stack:
        for f, rest in [(kelm.inv, ()), (kelm.solve, (v,))]:
            with pytest.raises(kelm.SingularMatrixError) as e:
                f(bad, *rest)
            assert e.value.index == (0,) * len(stack)


def _leaves(r):
    return [x for y in r for x in _leaves(y)] if isinstance(r, tuple) else [r]
