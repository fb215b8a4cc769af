"""numpy.linalg's functions on the factorisation, eigen and vector
families: values against numpy within the stated tolerances, numpy's
shapes, dtypes and exceptions.  A test skips, naming the member, when the
build does not have its family."""
import numpy as np
import pytest

import kelm
from conftest import DTYPES, close, layouts, needs, rng, tname, well_conditioned

SIZES = [1, 2, 3, 4, 5, 6, 7, 9]


def spd(shape, dtype, seed=0):
    x = rng(seed).uniform(-1, 1, shape)
    return (x @ np.swapaxes(x, -1, -2) + shape[-1] * np.eye(shape[-1])).astype(dtype)


def sym(shape, dtype, seed=0):
    x = rng(seed).uniform(-1, 1, shape)
    return ((x + np.swapaxes(x, -1, -2)) / 2).astype(dtype)


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("n", SIZES)
def test_cholesky(dtype, n):
    needs(f"kelmCholeskyDecomp_ma_{tname(dtype)}", f"kelmCholeskyBackSubst_mava_{tname(dtype)}")
    a = spd((5, n, n), dtype, seed=n)
    want = np.linalg.cholesky(a)
    junk = a + np.triu(np.full((n, n), 9.0, dtype), 1)      # the strict upper triangle is never read
    for name, v in layouts(junk):
        close(kelm.cholesky(v), want, dtype, scale=n, factor=64)
    b = rng(1).standard_normal((5, n)).astype(dtype)
    close(kelm.cho_solve(kelm.cho_factor(a), b), np.linalg.solve(a, b), dtype, scale=n, factor=256)
    bm = rng(3).standard_normal((n, n)).astype(dtype)     # as many dimensions as the factor: columns
    close(kelm.cho_solve(kelm.cho_factor(a[0]), bm), np.linalg.solve(a[0], bm), dtype, scale=n, factor=256)
    bad = a.copy()
    bad[2] = -np.eye(n, dtype=dtype)
    with pytest.raises(kelm.NotPositiveDefiniteError) as e:
        kelm.cholesky(bad)
    assert isinstance(e.value, np.linalg.LinAlgError) and e.value.index == (2,)
    f, mask = kelm.cholesky(bad, errors="mask")
    assert mask.tolist() == [False, False, True, False, False] and np.isnan(f[2]).all()
    np.testing.assert_array_equal(f[3], kelm.cholesky(a[3]))


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("shape", [(4, 4), (6, 3), (3, 6), (5, 1), (2, 7, 5), (3, 4, 4)])
def test_qr_modes(dtype, shape):
    needs(f"kelmQRDecomp_ma_{tname(dtype)}")
    a = rng(2).standard_normal(shape).astype(dtype)
    for mode in ("reduced", "complete"):
        q, r = kelm.qr(a, mode=mode)
        wq, wr = np.linalg.qr(a, mode=mode)
        assert q.shape == wq.shape and r.shape == wr.shape and q.dtype == wq.dtype
        close(q @ r, a, dtype, scale=shape[-1] * shape[-2])
        close(np.swapaxes(q, -1, -2) @ q, np.broadcast_to(np.eye(q.shape[-1], dtype=dtype), wq.shape[:-2] +
                                                         (q.shape[-1],) * 2), dtype, scale=shape[-2])
        np.testing.assert_array_equal(np.tril(r, -1), 0)
    np.testing.assert_array_equal(kelm.qr(a, mode="r"), kelm.qr(a)[1])
    h, tau = kelm.qr(a, mode="raw")
    wh, wtau = np.linalg.qr(a, mode="raw") if a.ndim == 2 else (np.swapaxes(a, -1, -2), a[..., 0, :min(shape[-2:])])
    assert h.shape == wh.shape and tau.shape == wtau.shape
    with pytest.raises(ValueError):
        kelm.qr(a, mode="full-ish")


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("n", SIZES)
def test_eigh(dtype, n):
    needs(f"kelmEigenValuesVectorsSym_ma_{tname(dtype)}", f"kelmEigenValuesSym_ma_{tname(dtype)}")
    a = sym((6, n, n), dtype, seed=n)
    a[1] = 0                                  # singular: solved on a shifted matrix
    want = np.linalg.eigvalsh(a)
    for uplo in ("L", "U"):
        junk = a + (np.triu if uplo == "L" else np.tril)(np.full((n, n), 5.0, dtype), 1 if uplo == "L" else -1)
        w, v = kelm.eigh(junk, UPLO=uplo)
        assert w.dtype == dtype and v.shape == a.shape
        close(w, want, dtype, scale=n, factor=128)
        close(kelm.eigvalsh(junk, UPLO=uplo), want, dtype, scale=n, factor=128)
        close(a @ v, v * w[..., None, :], dtype, scale=n, factor=256)
        close(np.swapaxes(v, -1, -2) @ v, np.broadcast_to(np.eye(n, dtype=dtype), a.shape), dtype, scale=n,
              factor=256)
    with pytest.raises(ValueError, match="UPLO"):
        kelm.eigh(a, UPLO="X")


def test_eigh_where_single_precision_stalls():
    # kelm's float iteration stops short of its absolute tolerance on this
    # matrix (NoConvergence); eigh solves it again in double precision.
    needs("kelmEigenValuesVectorsSym_ma_32f", "kelmEigenValuesVectorsSym_ma_64f")
    a = np.array([[1.6023626, -0.90545094, 1.1150975], [-0.90545094, -0.06347565, 0.37390593],
                  [1.1150975, 0.37390593, 1.0967207]], np.float32)
    stack = np.stack([np.eye(3, dtype=np.float32), a, 2 * np.eye(3, dtype=np.float32)])
    assert kelm.eigh(stack, errors="mask")[1].tolist() == [False] * 3
    w, v = kelm.eigh(stack)
    assert w.dtype == np.float32
    close(w, np.linalg.eigvalsh(stack.astype(np.float64)).astype(np.float32), np.float32, scale=3, factor=16)
    close(stack @ v, v * w[..., None, :], np.float32, scale=3, factor=64)
    close(kelm.eigvalsh(stack), w, np.float32, scale=3, factor=16)


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("n", SIZES)
def test_eig_real_and_complex(dtype, n):
    needs(f"kelmEigenValuesVectorsLeft_ma_{tname(dtype)}", f"kelmEigenValues_ma_{tname(dtype)}")
    sym_a = sym((4, n, n), dtype, seed=n)
    w, v = kelm.eig(sym_a)
    assert w.dtype == dtype and v.dtype == dtype      # every value real: a real result
    close(np.sort(w, axis=-1), np.linalg.eigvalsh(sym_a), dtype, scale=n, factor=256)
    gen = rng(n).standard_normal((4, n, n)).astype(dtype)
    w, v = kelm.eig(gen)
    close(np.sort_complex(kelm.eigvals(gen).ravel()), np.sort_complex(w.ravel()), dtype, scale=n, factor=256)
    aw = np.einsum("...ij,...jk->...ik", gen.astype(w.dtype), v)
    close(np.abs(aw - v * w[..., None, :]), np.zeros(aw.shape, dtype), dtype, scale=n * n, factor=1024)
    close(np.linalg.norm(v, axis=-2), np.ones(w.shape, dtype), dtype, scale=n, factor=64)


@pytest.mark.parametrize("dtype", DTYPES)
def test_inv_and_det_members(dtype):
    needs(f"kelmInvert_ma_{tname(dtype)}", f"kelmDet_ma_{tname(dtype)}")
    for n in SIZES:
        a = well_conditioned((5, n, n), dtype, seed=n)
        close(kelm.inv(a), np.linalg.inv(a), dtype, factor=256)
        close(kelm.det(a), np.linalg.det(a), dtype, scale=n ** 2 * np.abs(np.linalg.det(a)).max(), factor=64)


@pytest.mark.parametrize("dtype", DTYPES)
def test_norms(dtype):
    needs(f"kelmL2Norm_va_{tname(dtype)}", f"kelmFrobNorm_ma_{tname(dtype)}")
    x = rng(3).standard_normal((3, 4, 5)).astype(dtype)
    for axis in (None, 0, -1, (1, 2), (2, 0)):
        for keep in (False, True):
            if axis is None:
                v = x.reshape(-1)
                close(np.asarray(kelm.norm(v, keepdims=keep)), np.asarray(np.linalg.norm(v, keepdims=keep)), dtype,
                      scale=60)
                continue
            close(np.asarray(kelm.norm(x, axis=axis, keepdims=keep)),
                  np.asarray(np.linalg.norm(x, axis=axis, keepdims=keep)), dtype, scale=20)
    close(np.asarray(kelm.norm(x[0], "fro")), np.asarray(np.linalg.norm(x[0], "fro")), dtype, scale=20)
    with pytest.raises(ValueError, match="numpy.linalg.norm"):
        kelm.norm(x[0], ord=1)


@pytest.mark.parametrize("dtype", DTYPES)
def test_vector_families_exact(dtype):
    needs(*(f"kelm{f}_{c}_{tname(dtype)}" for f, c in (("DotProduct", "vava"), ("CrossProduct", "vava"),
                                                         ("Trace", "ma"), ("LComb", "vava"), ("Saxpy", "vava"))))
    a = rng(4).standard_normal((7, 3)).astype(dtype)
    b = rng(5).standard_normal((7, 3)).astype(dtype)
    acc = np.zeros(7, dtype)
    for k in range(3):
        acc = acc + a[:, k] * b[:, k]
    for name, v in layouts(a):
        np.testing.assert_array_equal(kelm.dot(v, b), acc, err_msg=name)
        np.testing.assert_array_equal(kelm.cross(v, b), np.cross(a, b), err_msg=name)
    np.testing.assert_array_equal(kelm.dot(a[0], b), acc if False else kelm.dot(np.broadcast_to(a[0], b.shape), b))
    m = rng(6).standard_normal((7, 3, 3)).astype(dtype)
    np.testing.assert_array_equal(kelm.trace(m), (m[:, 0, 0] + m[:, 1, 1]) + m[:, 2, 2])
    np.testing.assert_array_equal(kelm.lcomb(a, 2.5, b, -1.5), dtype(2.5) * a + dtype(-1.5) * b)
    np.testing.assert_array_equal(kelm.saxpy(a, 2.5, b), dtype(2.5) * a + b)
    assert type(kelm.dot(a[0], b[0])) is dtype


@pytest.mark.parametrize("dtype", DTYPES)
def test_lstsq_like_numpy(dtype):
    needs(f"kelmEigenValuesVectorsSym_ma_{tname(dtype)}")
    for m, n in ((6, 3), (3, 3), (3, 6)):
        a = rng(m * n).standard_normal((m, n)).astype(dtype)
        b = rng(7).standard_normal((m, 2)).astype(dtype)
        x, res, rank, s = kelm.lstsq(a, b, rcond=None)
        wx, wres, wrank, ws = np.linalg.lstsq(a, b, rcond=None)
        assert rank == wrank and x.shape == wx.shape and res.shape == wres.shape and s.shape == ws.shape
        close(x, wx, dtype, scale=1e3 if dtype == np.float32 else 1e2)
        close(s, ws, dtype, scale=1e3 if dtype == np.float32 else 1e2)
    with pytest.raises(np.linalg.LinAlgError, match="Incompatible dimensions"):
        kelm.lstsq(np.ones((3, 2)), np.ones(4))


@pytest.mark.parametrize("dtype", DTYPES)
def test_matrix_power_and_multi_dot(dtype):
    a = well_conditioned((3, 4, 4), dtype) / 5
    for p in (0, 1, 2, 5):
        close(kelm.matrix_power(a, p), np.linalg.matrix_power(a, p), dtype, scale=16)
    chain = [rng(k).standard_normal(s).astype(dtype) for k, s in enumerate([(5,), (5, 3), (3, 7), (7,)])]
    close(np.asarray(kelm.multi_dot(chain)), np.asarray(np.linalg.multi_dot(chain)), dtype, scale=50)
    with pytest.raises(TypeError):
        kelm.matrix_power(a, 1.5)


def test_geometry_helpers():
    needs("kelmRotationZ_m4_32f", "kelmLookAtRH_m4_32f", "kelmPerspectiveFovRH_m4_32f",
          "kelmAffineTransformCoord_m4v3a_32f")
    r = kelm.rotation_z(np.pi / 2)
    p = kelm.transform_points(r, [[1.0, 0.0, 0.0], [0.0, 2.0, 0.0]])
    np.testing.assert_allclose(p, [[0.0, 1.0, 0.0], [-2.0, 0.0, 0.0]], atol=1e-6)
    view = kelm.look_at([0, 0, 5], [0, 0, 0], [0, 1, 0])
    np.testing.assert_allclose(kelm.transform_points(view, [0.0, 0.0, 0.0]), [0.0, 0.0, -5.0], atol=1e-6)
    proj = kelm.perspective_fov(np.pi / 2, 1.0, 1.0, 10.0)
    assert proj.dtype == np.float32 and proj[2, 3] == -1
    with pytest.raises(ValueError):
        kelm.look_at([0, 0, 5], [0, 0, 0], [0, 1, 0], handedness="XH")
