"""4x4 graphics helpers: view, projection and rotation matrices and point
transforms, on kelm's fixed-size float32 functions.

Matrices are row-major 4x4 float32 and vectors multiply from the left
(``p @ M``), as in kelm's geometry functions; the results match the
formulas of those functions (float32 arithmetic, float32 sin and cos).
"""
import numpy as np

from . import _lib
from ._errors import status_error

__all__ = ["look_at", "perspective", "perspective_fov", "rotation_x", "rotation_y", "rotation_z", "rotation_axis",
           "rotation_yaw_pitch_roll", "transform_points"]


def _member(name):
    m = _lib.MEMBERS.get(name)
    if m is None:
        raise NotImplementedError(f"this build of kelm has no member {name}")
    return m


def _hand(handedness):
    if handedness not in ("RH", "LH"):
        raise ValueError('handedness must be "RH" or "LH"')
    return handedness


def _vec3(v, name):
    v = np.ascontiguousarray(v, dtype=np.float32)
    if v.shape != (3,):
        raise ValueError(f"{name} must be a 3-vector")
    return v


def _build(name, *args):
    dst = np.zeros((4, 4), np.float32)
    st = _member(name)(*args, dst)
    if st:
        raise status_error(st, name)
    return dst


def look_at(eye, at, up, handedness="RH"):
    """View matrix looking from eye to at with up the upward direction.

    >>> kelm.look_at([0, 0, 1], [0, 0, 0], [0, 1, 0]).shape
    (4, 4)
    """
    return _build(f"kelmLookAt{_hand(handedness)}_m4_32f", _vec3(eye, "eye"), _vec3(at, "at"), _vec3(up, "up"))


def perspective(w, h, zn, zf, handedness="RH"):
    """Perspective projection of a view volume w x h at the near plane zn,
    far plane zf."""
    return _build(f"kelmPerspective{_hand(handedness)}_m4_32f", float(w), float(h), float(zn), float(zf))


def perspective_fov(fov_y, aspect, zn, zf, handedness="RH"):
    """Perspective projection from a vertical field of view (radians)."""
    return _build(f"kelmPerspectiveFov{_hand(handedness)}_m4_32f", float(fov_y), float(aspect), float(zn), float(zf))


def rotation_x(angle):
    """Rotation about the x axis by angle (radians)."""
    return _build("kelmRotationX_m4_32f", float(angle))


def rotation_y(angle):
    """Rotation about the y axis by angle (radians)."""
    return _build("kelmRotationY_m4_32f", float(angle))


def rotation_z(angle):
    """Rotation about the z axis by angle (radians)."""
    return _build("kelmRotationZ_m4_32f", float(angle))


def rotation_axis(axis, angle):
    """Rotation about axis (a 3-vector, normalised by kelm) by angle."""
    return _build("kelmRotationAxis_v3m4_32f", _vec3(axis, "axis"), float(angle))


def rotation_yaw_pitch_roll(yaw, pitch, roll):
    """Rotation by yaw (about y), pitch (about x) and roll (about z)."""
    return _build("kelmRotationYawPitchRoll_m4_32f", float(yaw), float(pitch), float(roll))


def transform_points(m, points, kind="coord"):
    """Points (..., 3) or (..., 2) times the 4x4 matrix m: ``kind="coord"``
    divides by the resulting w (kelm's AffineTransformCoord), ``"normal"``
    ignores the translation (AffineTransformNormal), ``"affine"`` returns
    the homogeneous (..., 4) result (AffineTransform).  float32.

    >>> kelm.transform_points(np.eye(4, dtype=np.float32), [[1., 2., 3.]])
    array([[1., 2., 3.]], dtype=float32)
    """
    if kind not in ("coord", "normal", "affine"):
        raise ValueError('kind must be "coord", "normal" or "affine"')
    m = np.ascontiguousarray(m, dtype=np.float32)
    if m.shape != (4, 4):
        raise ValueError("m must be a 4x4 matrix")
    p = np.asarray(points, dtype=np.float32)
    n = p.shape[-1] if p.ndim else 0
    if n not in (2, 3, 4) or (n == 4 and kind != "affine"):
        raise ValueError("points must have 2 or 3 coordinates (4 for kind='affine')")
    family = {"coord": "AffineTransformCoord", "normal": "AffineTransformNormal", "affine": "AffineTransform"}[kind]
    width = 4 if kind == "affine" else n
    flat = np.ascontiguousarray(p.reshape(-1, n))
    out = np.empty((flat.shape[0], width), np.float32)
    if flat.shape[0]:
        name = f"kelm{family}_m4v{n}a_32f"
        st = _member(name)(m, flat, flat.strides[0], out, out.strides[0], flat.shape[0])
        if st:
            raise status_error(st, name)
    return out.reshape(p.shape[:-1] + (width,))
