"""kelm for Python: numpy.linalg on stacks of small matrices, and more.

``import kelm as la`` in place of ``from numpy import linalg as la``: the
functions of numpy.linalg take the same arguments and give the same
shapes, dtypes and exceptions, computed by kelm on whole stacks of
matrices at once.  Beyond numpy.linalg: element-wise sums and products,
LU factors with kelm's pivot table, and ``errors="mask"`` on every
function that can refuse an object.  ``kelm.dask`` applies any of them
blockwise to dask arrays.

The members of the library are reachable one by one as ``kelm._lib.<name>``.
"""
from ._errors import (KelmError, SingularMatrixError, NotPositiveDefiniteError, NoConvergenceError,
                      DivideByZeroError, LinAlgError)
from ._lib import get_num_threads, set_num_threads, version, has_member
from ._ops import *  # noqa: F401,F403
from ._linalg import *  # noqa: F401,F403
from ._geometry import *  # noqa: F401,F403
from . import _ops, _linalg, _geometry

__all__ = (["KelmError", "SingularMatrixError", "NotPositiveDefiniteError", "NoConvergenceError",
            "DivideByZeroError", "LinAlgError", "get_num_threads", "set_num_threads", "version", "has_member"]
           + _ops.__all__ + _linalg.__all__ + _geometry.__all__)
