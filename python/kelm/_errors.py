"""Exceptions: a kelm status becomes one of these."""
from numpy.linalg import LinAlgError

STATUS_NAMES = {
    0: "kelStsNoErr", -6: "kelStsBadSize", -8: "kelStsNullPointer", -10: "kelStsDivideByZero",
    -179: "kelStsNotPositiveDefinite", -182: "kelStsBadStride", -195: "kelStsSingular",
    -202: "kelStsBadRoiShift", -203: "kelStsBadCount", -204: "kelStsSizeMismatch", -205: "kelStsNoConvergence",
}


class KelmError(Exception):
    """A status of the library.  ``status`` is its value, ``status_name``
    its name (``kelStsSingular``...), ``index`` the index in the stack of
    the first object refused, when the status concerns one object."""

    def __init__(self, message, status, index=None):
        super().__init__(message)
        self.status = status
        self.status_name = STATUS_NAMES.get(status, str(status))
        self.index = index


class SingularMatrixError(KelmError, LinAlgError):
    """A matrix was refused as singular (kelStsSingular)."""


class NotPositiveDefiniteError(KelmError, LinAlgError):
    """Cholesky met a pivot that is not positive (kelStsNotPositiveDefinite)."""


class NoConvergenceError(KelmError, LinAlgError):
    """An eigenvalue iteration did not converge (kelStsNoConvergence)."""


class DivideByZeroError(KelmError, LinAlgError):
    """A division by zero or by a value too small (kelStsDivideByZero)."""


class ShapeError(ValueError, LinAlgError):
    """Operands whose shapes do not fit: a ValueError that numpy.linalg's
    callers also catch as LinAlgError."""


# Messages as numpy.linalg words them, for the statuses it knows.
_NUMERIC = {
    -195: (SingularMatrixError, "Singular matrix"),
    -179: (NotPositiveDefiniteError, "Matrix is not positive definite"),
    -205: (NoConvergenceError, "Eigenvalues did not converge"),
    -10: (DivideByZeroError, "Division by zero"),
}


def is_refusal(status):
    """True for the statuses that refuse one object of an array."""
    return status in _NUMERIC


def status_error(status, member, index=None):
    """The exception for a status returned by ``member``."""
    if status in _NUMERIC:
        cls, text = _NUMERIC[status]
        where = "" if index is None else f" (object {index})"
        return cls(f"{text}{where}", status, index)
    return KelmError(f"{member} returned {STATUS_NAMES.get(status, status)}", status, index)
