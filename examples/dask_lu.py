#!/usr/bin/python3
"""Factorises and solves ten million 4x4 systems on a local Dask cluster.

    PYTHONPATH=build/python /usr/bin/python3 examples/dask_lu.py [--count N]
        [--chunk N] [--workers N] [--scheduler ADDRESS]

The matrices and right-hand sides are made on the workers, chunk by chunk
(100,000 systems a chunk), so nothing large crosses to the client.  Each
chunk is factorised by kelm's LU and solved with its pivot table; the
client gets back only the largest residual |a x - b| of each chunk.  With
--scheduler tcp://host:8786 the same code runs on a real cluster whose
workers can import kelm.
"""
import argparse
import time

import dask.array as da
import distributed
import numpy as np

import kelm
import kelm.dask as kd


def main():
    p = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    p.add_argument("--count", type=int, default=10_000_000)
    p.add_argument("--chunk", type=int, default=100_000)
    p.add_argument("--workers", type=int, default=2)
    p.add_argument("--scheduler", help="address of a running scheduler instead of a LocalCluster")
    args = p.parse_args()

    if args.scheduler:
        client = distributed.Client(args.scheduler)
    else:
        cluster = distributed.LocalCluster(n_workers=args.workers, threads_per_worker=1, dashboard_address=None)
        client = distributed.Client(cluster)
    # One kelm thread per Dask thread: Dask spreads the chunks.
    client.run(kelm.set_num_threads, 1)

    rs = da.random.RandomState(1)
    a = rs.uniform(-1, 1, size=(args.count, 4, 4), chunks=(args.chunk, 4, 4)).astype(np.float32)
    a = a + 5 * np.eye(4, dtype=np.float32)         # well conditioned
    b = rs.uniform(-1, 1, size=(args.count, 4), chunks=(args.chunk, 4)).astype(np.float32)
    a, b = client.persist([a, b])
    distributed.wait([a, b])

    start = time.perf_counter()
    lu, piv = kd.lu_factor(a)
    x = kd.lu_solve((lu, piv), b)
    residual = abs(kd.matvec(a, x) - b).max(axis=-1).max()
    worst = float(residual.compute())
    seconds = time.perf_counter() - start
    print(f"{args.count:,} systems of 4x4 float32 on {len(client.scheduler_info()['workers'])} workers: "
          f"{seconds:.2f} s, {args.count / seconds / 1e6:.1f} million systems/s "
          f"(factor, solve, residual check); largest residual {worst:.2e}")
    client.close()


if __name__ == "__main__":
    main()
