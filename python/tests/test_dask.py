"""kelm.dask: blockwise results equal the one-process call bit for bit, on
the threaded scheduler and on a two-worker LocalCluster."""
import numpy as np
import pytest

import kelm
from conftest import well_conditioned

da = pytest.importorskip("dask.array")
kd = pytest.importorskip("kelm.dask")


def operands():
    a = well_conditioned((3000, 4, 4), np.float32, seed=5)
    b = np.random.default_rng(6).standard_normal((3000, 4)).astype(np.float32)
    return a, b


def blockwise_results(a, b, scheduler):
    x = da.from_array(a, chunks=(700, 4, 4))
    y = da.from_array(b, chunks=(700, 4))
    lu, piv = kd.lu_factor(x)
    return da.compute(kd.inv(x), kd.det(x), kd.solve(x, y), kd.matmul(x, x), kd.lu_solve((lu, piv), y),
                      scheduler=scheduler)


def expected(a, b):
    return (kelm.inv(a), kelm.det(a), kelm.solve(a, b), kelm.matmul(a, a), kelm.lu_solve(kelm.lu_factor(a), b))


def test_threaded_scheduler_bit_for_bit():
    a, b = operands()
    for got, want in zip(blockwise_results(a, b, "threads"), expected(a, b)):
        np.testing.assert_array_equal(got, want)


def test_local_cluster_bit_for_bit():
    distributed = pytest.importorskip("distributed")
    a, b = operands()
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None) as cl, \
            distributed.Client(cl) as client:
        got = blockwise_results(a, b, client)
    for g, want in zip(got, expected(a, b)):
        np.testing.assert_array_equal(g, want)
