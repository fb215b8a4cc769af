"""Shared pieces of the Python tests: random stacks, the same values in many
layouts, and skips for members a build does not have yet."""
import numpy as np
import pytest

import kelm

DTYPES = [np.float32, np.float64]
SIZES = list(range(0, 10)) + [13]


def needs(*members):
    """Skips the test unless every member is in this build."""
    missing = [m for m in members if not kelm.has_member(m)]
    if missing:
        pytest.skip(f"this build has no member {', '.join(missing)}")


def tname(dtype):
    return "32f" if np.dtype(dtype) == np.float32 else "64f"


def rng(seed=0):
    return np.random.default_rng(seed)


def well_conditioned(shape, dtype, seed=0):
    """Random matrices with a dominant diagonal: far from singular."""
    a = rng(seed).uniform(-1, 1, shape)
    n = shape[-1]
    if n:
        a += np.eye(n) * (n + 1)
    return a.astype(dtype)


def layouts(x):
    """(name, view) pairs holding exactly x's values in other layouts: the
    views numpy programs meet (transposed storage, slices with gaps,
    negative steps on every axis, byte-swapped, length-1 axes, lists)."""
    yield "contiguous", x
    yield "fortran", np.asfortranarray(x)
    big = np.zeros(tuple(2 * n + 1 for n in x.shape), x.dtype)
    sl = tuple(slice(1, 1 + 2 * n, 2) for n in x.shape)
    big[sl] = x
    yield "gaps", big[sl]
    for axis in range(x.ndim):
        flipped = np.flip(x, axis).copy()
        yield f"reversed{axis}", np.flip(flipped, axis)
    yield "byteswapped", x.astype(x.dtype.newbyteorder())
    yield "length1", x[np.newaxis][0]
    if x.ndim >= 3:
        yield "swapped-stack", np.swapaxes(np.swapaxes(x, 0, 1).copy(), 0, 1)


def close(got, want, dtype, scale=1.0, factor=64):
    """Values within factor * eps * scale, shapes and dtypes exactly."""
    assert got.shape == want.shape
    assert got.dtype == want.dtype
    tol = factor * np.finfo(dtype).eps * max(scale, 1.0)
    np.testing.assert_allclose(got, want, rtol=tol, atol=tol)
