"""From numpy arrays to calls of the library's members.

A front end describes one operation as a family, a list of operands and the
sizes; this module chooses the member and turns each numpy view into the
member's argument groups without copying wherever the layout allows:

* the last axes of an operand are the object (two for a matrix, one for a
  vector, none for a constant or a plain result), the leading axes the
  stack, broadcast against each other as numpy does;
* stack axes of length 1 are dropped; stack axes that all operands walk with
  negative strides are walked from their other end (objects are
  independent, so their order is free); neighbouring axes that every
  operand steps evenly are merged into one;
* of the remaining stack axes the longest becomes the array of the call
  (Stride0), the others are iterated here;
* an operand that does not move along the array axis (stride 0, e.g.
  numpy.broadcast_to) is passed as a single object, so the member with a
  single operand runs;
* only a matrix whose own rows or elements run backwards or repeat (a
  negative or zero stride inside the object), or whose strides are not
  whole elements, is copied into a temporary first;
* calls are split so that every byte offset the library forms fits 31 bits.

The plain case of the most used operations (one float type, one stack
shape, layouts the library takes as they are) skips all of this: a recipe
(:func:`recipe`) runs its members from the extension and gives None for
anything else, which then comes here.

Results that the library writes as plain runs (determinants, norms,
eigenvalues, pivot tables) are written straight into the result when its
layout is that run, else into a temporary that is copied over.
"""
import contextlib
import itertools
import math
import threading

import numpy as np

from . import _lib
from ._errors import is_refusal, status_error

_INT_MAX = 2**31 - 1

# Bits written into the results of objects before a call that may refuse
# some of them, to see afterwards which objects the call reached.  Signalling
# NaNs: arithmetic never produces them.
_SENTINEL = {np.dtype(np.float32): np.uint32(0x7FA5_C0DE), np.dtype(np.float64): np.uint64(0x7FF4_C0DE_C0DE_C0DE),
             np.dtype(np.int32): np.uint32(0xFFFF_FFFF)}
_UINT = {4: np.uint32, 8: np.uint64}


_serial_lock = threading.Lock()
_serial_depth = [0]


@contextlib.contextmanager
def _serial():
    with _serial_lock:
        if _serial_depth[0] == 0:
            _lib._native.set_num_threads(1)
        _serial_depth[0] += 1
    try:
        yield
    finally:
        with _serial_lock:
            _serial_depth[0] -= 1
            if _serial_depth[0] == 0:
                _lib.restore_num_threads()


class Op:
    """One operand of a call.

    arr     the array (shape stack + object), or None for a result that is
            allocated here
    core    number of object axes (2 matrix, 1 vector, 0 scalar)
    letter  its letter in the operand code ('m', 't', 'v', 'c'), None for
            groups outside the code (results, pivot tables, scratch)
    out     written by the call
    dense   the member takes a plain run of elements for it (no strides)
    shape   the object's shape, for results allocated here
    dtype   element type of a result allocated here
    fixed   scratch or a table passed as it is, outside the stack
    """

    __slots__ = ("arr", "core", "letter", "out", "dense", "shape", "dtype", "fixed", "result", "work", "back",
                 "temp_chunks")

    def __init__(self, arr=None, core=2, letter=None, out=False, dense=False, shape=(), dtype=None, fixed=False):
        self.arr = arr
        self.core = core
        self.letter = letter
        self.out = out
        self.dense = dense
        self.shape = tuple(shape)
        self.dtype = dtype
        self.fixed = fixed
        self.result = None   # what the caller gets back
        self.work = None     # the view the library walks, stack axes normalised
        self.back = None     # array to copy the work view into after the call


def _flip(a, axis):
    sl = [slice(None)] * a.ndim
    sl[axis] = slice(None, None, -1)
    return a[tuple(sl)]


def _object_ok(a, core, itemsize):
    """True when the object axes can be described as they are: strides
    positive whole elements (or any stride on an axis of length 1), and the
    object's extent within 31 bits."""
    extent = 0
    for n, s in zip(a.shape[a.ndim - core:], a.strides[a.ndim - core:]):
        if n == 1:
            continue
        if s <= 0 or s % itemsize:
            return False
        extent += (n - 1) * s
    return extent + itemsize <= _INT_MAX


def _object_strides(a, core, itemsize):
    """Stride1, Stride2 (matrix) or Stride2 (vector) of the object axes; an
    axis of length 1 gets a stride the library accepts."""
    shape = a.shape[a.ndim - core:]
    strides = list(a.strides[a.ndim - core:])
    if core == 2:
        if shape[1] <= 1:
            strides[1] = itemsize
        if shape[0] <= 1:
            strides[0] = max(strides[1] * max(shape[1], 1), itemsize)
    elif core == 1 and shape[0] <= 1:
        strides[0] = itemsize
    return strides


class Plan:
    """The normalised layout of one call: every operand's work view with the
    stack reduced to (outer axes..., array axis)."""

    def __init__(self, ops, stack, itemsize):
        self.ops = ops
        self.itemsize = itemsize
        nb = len(stack)
        live = [k for k in range(nb) if stack[k] != 1]
        stacked = [op for op in ops if not op.fixed]
        # Results allocated here, and results the caller gave whose layout
        # the library cannot write, get a fresh array; the caller's array
        # is then filled by a copy after the call.
        for op in stacked:
            if op.out and op.arr is not None and not _object_ok(op.arr, op.core, itemsize):
                op.back = op.arr
                op.arr = None
        # Sign of each live stack axis: the caller's results decide, else
        # the inputs when all of them walk it backwards.
        flips = []
        for k in live:
            signs = {np.sign(op.arr.strides[k]) for op in stacked if op.arr is not None and op.arr.strides[k] != 0}
            given = [np.sign(op.arr.strides[k]) for op in stacked if op.out and op.arr is not None]
            negative = given[0] < 0 if given else (signs == {-1})
            if negative:
                flips.append(k)
        # Inputs that disagree with the chosen sign, or whose objects cannot
        # be described, are copied; results that disagree are written to a
        # fresh array and copied back.
        for op in stacked:
            if op.arr is None:
                continue
            wrong = [k for k in live if op.arr.strides[k] != 0 and (op.arr.strides[k] < 0) != (k in flips)]
            if op.out:
                if wrong:
                    op.back = op.arr
                    op.arr = None
                continue
            if wrong or not _object_ok(op.arr, op.core, itemsize) or not op.arr.dtype.isnative:
                c = op.arr
                for k in flips:
                    c = _flip(c, k)
                c = np.ascontiguousarray(c, dtype=c.dtype.newbyteorder("="))
                for k in flips:
                    c = _flip(c, k)
                op.arr = c
        # Fresh results: C-contiguous in the order the library walks them
        # (so the caller's view runs backwards where the inputs did).
        for op in stacked:
            if op.arr is None:
                if op.back is None:
                    dtype, shape = op.dtype, op.shape
                else:
                    dtype = op.back.dtype.newbyteorder("=")
                    shape = op.back.shape[op.back.ndim - op.core:] if op.core else ()
                base = np.empty(tuple(stack) + shape, dtype=dtype)
                view = base
                for k in flips:
                    view = _flip(view, k)
                if op.back is not None:
                    # Elements the call does not write keep the caller's values.
                    view[...] = op.back
                op.arr = view
            if op.out:
                op.result = op.arr if op.back is None else op.back
        # Work views: flipped axes turned round, length-1 axes dropped.
        self.flips = flips
        self.live = live
        for op in stacked:
            w = op.arr
            for k in flips:
                w = _flip(w, k)
            if len(live) < nb:
                # (the Ellipsis keeps a 0-d result a view, not a scalar)
                w = w[tuple(slice(None) if k in live else 0 for k in range(nb)) + (Ellipsis,)]
            op.work = w
        # Merge neighbouring axes that every operand steps evenly.
        shape = [stack[k] for k in live]
        strides = [[op.work.strides[i] for i in range(len(live))] for op in stacked]
        groups = [[i] for i in range(len(live))]
        i = len(shape) - 1
        while i > 0:
            if all(st[i - 1] == st[i] * shape[i] for st in strides):
                shape[i - 1] *= shape[i]
                for st in strides:
                    st[i - 1] = st[i]
                    del st[i]
                groups[i - 1] += groups[i]
                del shape[i], groups[i]
            i -= 1
        self.groups = groups
        self.shape = shape
        self.strides = {id(op): st for op, st in zip(stacked, strides)}
        # The longest axis is the array of the call.
        self.axis = int(np.argmax(shape)) if shape else None
        self.count = shape[self.axis] if shape else 1

    def outer(self):
        """Byte offsets of each operand for every iterated position."""
        axes = [i for i in range(len(self.shape)) if i != self.axis]
        for pos in itertools.product(*(range(self.shape[i]) for i in axes)):
            yield pos, {oid: sum(p * st[i] for p, i in zip(pos, axes)) for oid, st in self.strides.items()}

    def stride0(self, op):
        return self.strides[id(op)][self.axis] if self.axis is not None else 0


def _groups_args(member, sizes, bound, first, count):
    """The member's arguments for objects first .. first + count - 1."""
    args = []
    k = 0
    for g in member.groups:
        if g[0] == "size":
            if g[1] == "count":
                args.append(count)
            elif g[1] in sizes:
                args.append(sizes[g[1]])
            else:
                raise TypeError(f"{member.name}: no value for the size {g[1]}")
            continue
        args += bound[k].args(first, count)
        k += 1
    return tuple(args)


class _Bound:
    """An operand bound to its group of one member, at one outer position."""

    __slots__ = ("op", "kind", "base", "s0", "inner", "temp", "fixed_arr", "value", "per", "itemsize")

    def args(self, first, count):
        kind = self.kind
        if kind == "c":
            return (self.value,)
        if kind == "buf":
            return (self.fixed_arr,)
        if self.temp is not None:   # plain run through a temporary
            return (_lib.address(self.temp) + first * self.per * self.itemsize,)
        addr = self.base + first * self.s0
        if kind in ("out", "piv", "cpiv"):
            return (addr,)
        if kind in ("ma", "ta"):
            return (addr, self.s0, *self.inner)
        if kind in ("m", "t"):
            return (addr, *self.inner)
        if kind == "va":
            return (addr, self.s0, *self.inner)
        if kind == "v":
            return (addr, *self.inner)
        if kind == "ca":
            return (addr, self.s0)
        raise TypeError(f"group kind {kind} is not supported")


class Call:
    """One operation on a stack: the member's family, operands and sizes."""

    def __init__(self, family, ops, sizes, stack, dtype, *, errors=None, no_alias=False, swap=None,
                 swap_fixed=None, code_order=None, always_arrays=()):
        self.family = family
        self.ops = list(ops)
        self.swap = swap              # two operands that may trade places (a commuting operation)
        self.swap_fixed = swap_fixed  # and their scalars, which trade places with them
        self.code_order = code_order  # operand order of the code when it is not the argument order
        # Operands passed as arrays even when they stay one object along the
        # array axis: for families whose single forms round differently.
        self.always_arrays = always_arrays
        self.sizes = dict(sizes)
        self.stack = tuple(stack)
        self.dtype = np.dtype(dtype)
        self.type = "32f" if self.dtype == np.float32 else "64f"
        self.itemsize = self.dtype.itemsize
        self.errors = errors
        self.no_alias = no_alias
        self.refused = []     # flat stack indices of refused objects

    # -- choosing the member ------------------------------------------------
    def _member(self, arrays):
        """The member whose argument groups take the operands as they are:
        an array group for each operand that moves along the array axis, a
        single one for the others.  Where two members have the same groups
        (Sub's vc and cv), the operand code decides."""
        order = self.code_order or range(len(self.ops))
        code = "".join(self.ops[i].letter + ("a" if arrays[i] and not self.ops[i].fixed else "")
                       for i in order if self.ops[i].letter)
        key = (self.family, self.type, code, self.code_order is not None,
               tuple((op.fixed, op.dense, op.letter, op.core, bool(a)) for op, a in zip(self.ops, arrays)))
        if key in _chosen:
            return _chosen[key]
        member = _lib.MEMBERS.get(f"kelm{self.family}_{code}_{self.type}")
        if member is None or not self._fits(member, arrays):
            member = None
            if not self.code_order:
                member = next((m for m in _lib.BY_FAMILY.get((self.family, self.type), ())
                               if self._fits(m, arrays)), None)
        _chosen[key] = member
        return member

    def _fits(self, member, arrays):
        groups = [g for g in member.groups if g[0] != "size"]
        if len(groups) != len(self.ops):
            return False
        for (kind, _), op, array in zip(groups, self.ops, arrays):
            if op.fixed:
                if kind not in ("c", "buf"):
                    return False
                continue
            if op.dense:
                if kind not in ("out", "piv", "cpiv"):
                    return False
                continue
            if kind not in ("m", "ma", "t", "ta", "v", "va", "c", "ca"):
                return False
            want = op.letter or ("m" if op.core == 2 else "v" if op.core == 1 else "c")
            if kind[0] != want or kind.endswith("a") != bool(array):
                return False
        return True

    def _swapped(self, arrays):
        """Trades the places of the commuting operands."""
        for pair in (self.swap, self.swap_fixed):
            if pair:
                i, j = pair
                self.ops[i], self.ops[j] = self.ops[j], self.ops[i]
                arrays[i], arrays[j] = arrays[j], arrays[i]

    def run(self):
        """Runs the call; returns the results of the result operands."""
        for op in self.ops:
            if op.out and op.arr is None and op.dtype is None:
                op.dtype = self.dtype
        if self.errors == "raise":
            # A call that may refuse objects writes the caller's arrays only
            # once it has succeeded.
            for op in self.ops:
                if op.out and op.arr is not None and not op.fixed:
                    op.back = op.arr
                    op.arr = None
        if self.no_alias:
            ins = [op.arr for op in self.ops if not op.out and op.arr is not None]
            for op in self.ops:
                if op.out and op.arr is not None and any(np.may_share_memory(op.arr, a) for a in ins):
                    op.back = op.arr
                    op.arr = None
        plan = Plan(self.ops, self.stack, self.itemsize)
        self.plan = plan
        if all(n > 0 for n in self.stack):
            for pos, offsets in plan.outer():
                self._run_outer(pos, offsets)
        for op in self.ops:
            if op.back is not None:
                np.copyto(op.back, op.arr)
                op.result = op.back
        return [op.result for op in self.ops if op.out]

    def _run_outer(self, pos, offsets):
        plan = self.plan
        stacked = [op for op in self.ops if not op.fixed]
        varies = {id(op): plan.stride0(op) != 0 for op in stacked}
        inputs_vary = any(varies[id(op)] for op in stacked if not op.out)
        count = plan.count
        if not inputs_vary and count > 1:
            # Every input is one object along the array: compute it once
            # and repeat the result.
            self._call_range(pos, offsets, 0, 1, varies)
            for op in stacked:
                if op.out:
                    self._repeat_first(op, offsets[id(op)])
            return
        self._call_range(pos, offsets, 0, count, varies)

    def _repeat_first(self, op, offset):
        w = self._outer_view(op, offset)
        w[1:] = w[0]

    def _outer_view(self, op, offset):
        """The operand's objects along the array axis at one outer position,
        as an ndarray (count, object...)."""
        plan = self.plan
        w = op.work
        core_shape = w.shape[w.ndim - op.core:] if op.core else ()
        core_strides = w.strides[w.ndim - op.core:] if op.core else ()
        base = _lib.address(w) + offset
        count = plan.count
        s0 = plan.stride0(op)
        return _view(w, base, (count,) + core_shape, (s0,) + core_strides)

    def _bind(self, member, pos, offsets, varies, arrays):
        """Operands bound to the member's groups in argument order."""
        plan = self.plan
        bound = []
        ops = iter(self.ops)
        for g in member.groups:
            if g[0] == "size":
                continue
            op = next(ops)
            b = _Bound()
            b.op = op
            b.kind = g[0]
            b.temp = None
            b.itemsize = self.itemsize if op.dtype is None or op.dtype.kind == "f" else op.dtype.itemsize
            if op.fixed:
                b.fixed_arr = op.arr
                b.value = op.arr
                bound.append(b)
                continue
            if b.kind == "c":
                b.value = float(self._outer_view(op, offsets[id(op)])[0])
                bound.append(b)
                continue
            w = op.work
            b.base = _lib.address(w) + offsets[id(op)]
            s0 = plan.stride0(op)
            b.per = math.prod(w.shape[w.ndim - op.core:]) if op.core else 1
            if b.kind in ("out", "piv", "cpiv"):
                b.s0 = s0
                esize = w.dtype.itemsize
                b.itemsize = esize
                dense = (s0 == b.per * esize or plan.count == 1) and (
                    op.core == 0 or w[(0,) * (w.ndim - op.core)].flags.c_contiguous)
                if not dense:
                    b.temp = np.empty((plan.count,) + w.shape[w.ndim - op.core:], dtype=w.dtype)
                    if not op.out:
                        b.temp[...] = self._outer_view(op, offsets[id(op)])
            else:
                b.s0 = s0 if s0 > 0 else self.itemsize
                b.inner = _object_strides(w, op.core, self.itemsize)
            bound.append(b)
        return bound

    def _limit(self, bound):
        """Objects per call so that every offset fits 31 bits."""
        n = _INT_MAX
        for b in bound:
            if b.kind in ("c", "buf") or b.op.fixed:
                continue
            if b.temp is not None or b.kind in ("out", "piv", "cpiv"):
                step = b.per * b.itemsize
                extent = 0
            else:
                step = b.s0 if b.kind in ("ma", "ta", "va", "ca") else 0
                w = b.op.work
                core = w.shape[w.ndim - b.op.core:]
                extent = sum((k - 1) * s for k, s in zip(core, b.inner)) + self.itemsize
            if step:
                n = min(n, max(1, (_INT_MAX - extent) // step + 1))
        return n

    def _call_range(self, pos, offsets, first, count, varies):
        # Results are arrays when anything moves along the array axis.
        moving = count > 1 or any(varies.get(id(op), False) for op in self.ops if not op.out)
        arrays = [varies.get(id(op), False) or (op.out and not op.fixed and moving) for op in self.ops]
        member = None if any(not arrays[i] for i in self.always_arrays) else self._member(arrays)
        if member is None and self.swap:
            self._swapped(arrays)
            member = self._member(arrays)
            if member is None:
                self._swapped(arrays)
        if member is None:
            # Try the member that takes every stacked operand as an array;
            # single operands are then repeated into a temporary.
            member = self._member([not op.fixed for op in self.ops])
            if member is None:
                raise NotImplementedError(
                    f"this build of kelm has no member kelm{self.family}_*_{self.type} for these operands")
            saved, offsets, varies = self._spread_singles(varies, offsets)
        else:
            saved = []
        try:
            self._run_member(member, pos, offsets, varies, arrays, first, count)
        finally:
            for op, work, strides in saved:
                op.work = work
                self.plan.strides[id(op)] = strides

    def _run_member(self, member, pos, offsets, varies, arrays, first, count):
        bound = self._bind(member, pos, offsets, varies, arrays)
        limit = self._limit(bound)
        done = first
        end = first + count
        while done < end:
            n = min(limit, end - done)
            self._invoke_checked(member, bound, pos, done, n)
            done += n
        for b in bound:
            if b.temp is not None and b.op.out:
                view = self._outer_view(b.op, offsets[id(b.op)])
                view[first:end] = b.temp[first:end]

    def _spread_singles(self, varies, offsets):
        """Operands that stay one object along the array axis become arrays
        (a copy), for members that have no single form of them."""
        plan = self.plan
        saved = []
        offsets = dict(offsets)
        varies = dict(varies)
        for op in self.ops:
            if op.fixed or op.out or varies.get(id(op)):
                continue
            saved.append((op, op.work, plan.strides[id(op)]))
            one = self._outer_view(op, offsets[id(op)])[0]
            rep = np.empty((plan.count,) + one.shape, dtype=one.dtype)
            rep[...] = one
            # A private plan entry: this operand now moves along the axis.
            op.work = rep.reshape((1,) * (len(plan.shape) - 1) + rep.shape) if len(plan.shape) > 1 else rep
            strides = [0] * len(plan.shape)
            if plan.axis is not None:
                strides[plan.axis] = rep.strides[0]
            plan.strides[id(op)] = strides
            offsets[id(op)] = 0
            varies[id(op)] = True
        return saved, offsets, varies

    # -- calls, refusals ----------------------------------------------------
    def _call(self, member, bound, first, count):
        return _lib.call(member.index, _groups_args(member, self.sizes, bound, first, count))

    def _invoke_checked(self, member, bound, pos, first, count):
        st = self._call(member, bound, first, count)
        if st == 0:
            return
        if not is_refusal(st):
            raise status_error(st, member.name)
        self._refusals(member, bound, pos, first, count, st)

    def _refusals(self, member, bound, pos, first, count, status):
        """Finds the refused objects of [first, first + count) by the
        library's rule: a serial array stops at its first refused object,
        earlier objects complete, later ones untouched (in a team, the same
        within each thread's block).  The results are filled with marks and
        the call repeated; the first object not reached, or the one before
        it, is the refused one, and the call resumes after it.  Objects
        after a refusal keep their marks, so each resumed call sees them."""
        end = first + count
        outs = [b for b in bound if b.op.out]
        # What the results held, for the elements a family never writes
        # (Cholesky's upper triangle): they get it back after the search.
        before = [self._objects(b, first, end).copy() for b in outs]
        for b in outs:
            self._mark(b, first, end)
        # One thread while refusals are sought, so that the serial rule
        # holds for the whole range; results do not depend on the number
        # of threads, so a concurrent call only runs slower meanwhile.
        with _serial():
            self._resume(member, bound, outs, pos, first, end, status)
        for b, old in zip(outs, before):
            v = self._objects(b, first, end)
            marked = v.view(_UINT[v.dtype.itemsize]) == _SENTINEL[np.dtype(v.dtype.newbyteorder("="))]
            v[marked] = old[marked]

    def _resume(self, member, bound, outs, pos, first, end, status):
        while first < end:
            st = self._call(member, bound, first, end - first)
            if st == 0:
                return
            if not is_refusal(st):
                raise status_error(st, member.name)
            k = self._locate(member, bound, outs, first, end)
            flat = self._flat_index(pos, k)
            if self.errors != "mask":
                raise status_error(status, member.name, np.unravel_index(flat, self.stack) if self.stack else ())
            self.refused.append(flat)
            for b in outs:
                self._fill(b, k, k + 1, np.nan if self._is_float(b) else -1)
            first = k + 1

    def _is_float(self, b):
        return (b.temp if b.temp is not None else b.op.work).dtype.kind == "f"

    def _objects(self, b, first, end):
        """The objects first .. end - 1 of a bound result, as an ndarray."""
        if b.temp is not None:
            return b.temp[first:end]
        w = b.op.work
        core = w.shape[w.ndim - b.op.core:] if b.op.core else ()
        cstr = w.strides[w.ndim - b.op.core:] if b.op.core else ()
        if b.kind in ("out", "piv", "cpiv"):
            s0 = b.per * b.itemsize
            cstr = tuple(math.prod(core[i + 1:]) * b.itemsize for i in range(len(core)))
        else:
            s0 = b.s0
        return _view(w, b.base + first * s0, (end - first,) + core, (s0,) + cstr)

    def _mark(self, b, first, end):
        v = self._objects(b, first, end)
        v.view(_UINT[v.dtype.itemsize])[...] = _SENTINEL[np.dtype(v.dtype.newbyteorder("="))]

    def _fill(self, b, first, end, value):
        self._objects(b, first, end)[...] = value

    def _reached(self, b, first, end):
        v = self._objects(b, first, end)
        bits = v.view(_UINT[v.dtype.itemsize]) != _SENTINEL[np.dtype(v.dtype.newbyteorder("="))]
        return bits.reshape(end - first, -1).any(axis=1)

    def _refuses_alone(self, member, bound, k):
        """Calls the member on object k alone (its results are written
        again by the resumed call); True when it is refused."""
        return self._call(member, bound, k, 1) != 0

    def _locate(self, member, bound, outs, first, end):
        reached = np.zeros(end - first, dtype=bool)
        for b in outs:
            reached |= self._reached(b, first, end)
        untouched = np.flatnonzero(~reached)
        u = first + int(untouched[0]) if untouched.size else end
        for k in (u - 1, u):
            if first <= k < end and self._refuses_alone(member, bound, k):
                return k
        for k in range(first, end):   # a refused object at the end of a thread's block
            if self._refuses_alone(member, bound, k):
                return k
        raise RuntimeError(f"{member.name}: refused an object that it accepts alone")

    def _flat_index(self, pos, k):
        """Flat index in the caller's stack of object k at outer position pos."""
        plan = self.plan
        idx = np.arange(math.prod(self.stack)).reshape(self.stack)
        for a in plan.flips:
            idx = _flip(idx, a)
        idx = idx[tuple(slice(None) if a in plan.live else 0 for a in range(len(self.stack)))]
        idx = idx.reshape(plan.shape) if plan.shape else idx.reshape(())
        if not plan.shape:
            return int(idx)
        full = list(pos)
        full.insert(plan.axis, k)
        return int(idx[tuple(full)])

    def mask(self):
        """Boolean array of the stack: True where an object was refused."""
        m = np.zeros(math.prod(self.stack), dtype=bool)
        m[self.refused] = True
        return m.reshape(self.stack) if self.stack else m.reshape(())


_chosen = {}   # the member chosen for each form of a call


class _Interface:
    """Holds an __array_interface__ (and the array whose memory it names)."""

    __slots__ = ("__array_interface__", "base")


def _view(like, address, shape, strides):
    """An ndarray of like's element type at address, sharing like's memory."""
    holder = _Interface()
    holder.__array_interface__ = {"shape": tuple(int(n) for n in shape), "strides": tuple(int(s) for s in strides),
                                  "typestr": like.dtype.str, "data": (int(address), False), "version": 3}
    holder.base = like
    return np.asarray(holder)


def recipe(operands, steps, order=None, masked=False):
    """A callable that runs the plain case of one operation in the
    extension, or returns None (see the extension's recipe()).

    operands  (role, object axes as letters[, int32][, scratch]) per
              operand, inputs first: role "i" input, "L"/"U" a symmetric
              input read by its lower/upper triangle, "o" result, "z"
              result that starts as zeros, "t" temporary, "b" scratch of
              a*n*n + b*n + c elements given as (a, b, c, letter of n)
    steps     (family, code, operand per group, {size name: letter}) per
              member call, in order; the code names the operands of the
              member's name by letter and operand number ("m0v1"), each of
              which becomes an array ("mava") when it moves along the stack
    order     (values, vectors or -1): results put in ascending order of
              the values afterwards (stable, as numpy.argsort)
    masked    refused objects come back as NaN (pivots -1) and a boolean
              array of them is the last result, instead of None
    """
    ops = tuple((o[0], o[1], len(o) > 2 and o[2] is True) + ((o[-1],) if isinstance(o[-1], tuple) else ())
                for o in operands)
    inputs = sum(o[0] in "iLU" for o in ops)
    rows = []
    for family, code, opmap, sizes in steps:
        parts = [(code[k], int(code[k + 1])) for k in range(0, len(code), 2)]
        idx = []
        for t in ("32f", "64f"):
            for mask in range(_RECIPE_MASKS):
                # mask: the inputs that move; results and temporaries move
                # with any of them.
                name = "".join(letter + ("a" if mask and (op >= inputs or mask >> op & 1) else "")
                               for letter, op in parts)
                # A temporary between steps holds every object: with more
                # than one step, all inputs move or none.
                usable = mask < 1 << inputs and (len(steps) == 1 or mask in (0, (1 << inputs) - 1))
                m = _lib.MEMBERS.get(f"kelm{family}_{name}_{t}") if usable else None
                idx.append(m.index if m else -1)
        rows.append((tuple(idx), tuple(opmap), dict(sizes)))
    return _lib._native.recipe(ops, tuple(rows), tuple(order or (-1, -1)), masked)


_RECIPE_MASKS = 8   # masks of up to three inputs
