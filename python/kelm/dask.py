"""kelm on dask arrays: any kelm function applied blockwise.

``kelm.dask.inv(x)`` for a dask array ``x`` of shape (N, 4, 4) chunked along
the stack (say 100,000 matrices a chunk) runs ``kelm.inv`` on each chunk,
on whatever scheduler is active: the threaded one, or a
``distributed.Client`` on a LocalCluster or a real cluster.  Objects are
independent and kelm's results do not depend on the number of threads, so
the result equals the one-process call bit for bit.

The object axes (the last two of a matrix, the last of a vector) must be
whole in every chunk; stack axes may be chunked at will, and operands
broadcast along them as in numpy.  Functions that return several arrays
(eigh, lu_factor, slogdet) return a tuple of dask arrays.

>>> import dask.array as da, kelm.dask
>>> x = da.from_array(np.eye(4) * 2 + np.zeros((10, 1, 1)), chunks=(5, 4, 4))
>>> kelm.dask.inv(x).compute()[0, 0, 0]
0.5
"""
import functools

import dask.array as da
import numpy as np

import kelm

# gufunc signatures of kelm's functions: object axes of operands and results.
SIGNATURES = {
    "inv": "(n,n)->(n,n)",
    "det": "(n,n)->()",
    "slogdet": "(n,n)->(),()",
    "solve": "(n,n),(n)->(n)",
    "solve_matrix": "(n,n),(n,k)->(n,k)",
    "cholesky": "(n,n)->(n,n)",
    "cho_factor": "(n,n)->(n,n)",
    "cho_solve": "(n,n),(n)->(n)",
    "eigh": "(n,n)->(n),(n,n)",
    "eigvalsh": "(n,n)->(n)",
    "eigvals": "(n,n)->(n)",
    "lu_factor": "(n,n)->(n,n),(n)",
    "lu_solve": "(n,n),(n),(n)->(n)",
    "matmul": "(n,k),(k,m)->(n,m)",
    "matvec": "(n,k),(k)->(n)",
    "add": "(n,m),(n,m)->(n,m)",
    "subtract": "(n,m),(n,m)->(n,m)",
    "transpose": "(n,m)->(m,n)",
    "gaxpy": "(n,k),(k),(n)->(n)",
    "dot": "(n),(n)->()",
    "cross": "(3),(3)->(3)",
    "trace": "(n,n)->()",
}

_PIVOT_OUTPUTS = {"lu_factor": (None, np.int32)}


def _call(name, *blocks, **kwargs):
    if name == "lu_solve":
        lu, piv, b = blocks
        return kelm.lu_solve((lu, piv), b, **kwargs)
    if name == "solve_matrix":
        return kelm.solve(*blocks, **kwargs)
    return getattr(kelm, name)(*blocks, **kwargs)


def apply(name, *arrays, **kwargs):
    """Applies kelm's function ``name`` blockwise to dask arrays (numpy
    arrays are wrapped).  Keyword arguments go to the function."""
    if name not in SIGNATURES:
        raise ValueError(f"kelm.dask knows no signature for {name}; known: {', '.join(sorted(SIGNATURES))}")
    arrays = [a if isinstance(a, da.Array) else da.asarray(a) for a in arrays]
    arrays = [a if a.dtype.kind == "f" else a.astype(np.float64) for a in arrays]
    dt = np.result_type(*[a.dtype for a in arrays])
    dt = np.float64 if dt == np.float64 else np.float32
    sig = SIGNATURES[name]
    n_out = len(sig.split("->")[1].split("),("))
    pivots = _PIVOT_OUTPUTS.get(name)
    dtypes = [p or dt for p in pivots] if pivots else [dt] * n_out
    return da.apply_gufunc(functools.partial(_call, name, **kwargs), sig, *arrays,
                           output_dtypes=dtypes if n_out > 1 else dtypes[0], vectorize=False)


def solve(a, b, **kwargs):
    """kelm.solve blockwise, with numpy's rule for b."""
    name = "solve" if b.ndim == a.ndim - 1 else "solve_matrix"
    return apply(name, a, b, **kwargs)


def lu_solve(lu_and_piv, b):
    """kelm.lu_solve blockwise on the pair lu_factor returned."""
    lu, piv = lu_and_piv
    return apply("lu_solve", lu, piv, b)


def __getattr__(name):
    if name in SIGNATURES:
        return functools.partial(apply, name)
    raise AttributeError(f"module kelm.dask has no attribute {name}")
