"""The library's members, one attribute each: ``kelm._lib.kelmLUDecomp_ma_64f``.

The table comes from the extension, which is generated from the library's
member tables: every member of the build is here, with its family, operand
code, element type, description and argument groups.  A member is called
with its C arguments in order (pointers as ndarrays, addresses or None) and
returns the status.
"""
from . import _native


class Member:
    """One exported function of the library."""

    __slots__ = ("index", "name", "family", "code", "type", "desc", "groups", "args", "kinds", "itemsize")

    def __init__(self, index, row):
        self.index = index
        self.name, self.family, self.code, self.type, self.desc, groups, args, self.kinds = row
        # Each group: (kind, prefix) for an operand, ("size", name) for a size.
        self.groups = tuple(tuple(g.split(":")) if ":" in g else ("size", g) for g in groups.split())
        self.args = tuple(args.split())
        self.itemsize = 4 if self.type == "32f" else 8

    def __call__(self, *args):
        return _native.call(self.index, args)

    def __repr__(self):
        return f"<kelm member {self.name}({', '.join(self.args)})>"


MEMBERS = {}
BY_FAMILY = {}   # (family, type) -> members in the S description
for _k, _row in enumerate(_native.members()):
    _m = Member(_k, _row)
    MEMBERS[_m.name] = _m
    globals()[_m.name] = _m
    if _m.desc == "S":
        BY_FAMILY.setdefault((_m.family, _m.type), []).append(_m)
del _k, _row, _m

call = _native.call
address = _native.address


def has_member(name):
    """True when this build of the library has the member ``name``."""
    return name in MEMBERS


def family_names():
    """The families present in this build."""
    return sorted({m.family for m in MEMBERS.values()})


_requested = [0]   # the last set_num_threads, 0 for OpenMP's default


def set_num_threads(n):
    """Number of threads a call may use; n <= 0 returns to OpenMP's default.
    Results are the same bits whatever the number."""
    _requested[0] = max(int(n), 0)
    _native.set_num_threads(_requested[0])


def restore_num_threads():
    """Back to what set_num_threads asked for last."""
    _native.set_num_threads(_requested[0])


def get_num_threads():
    """Number of threads a call may use."""
    return _native.get_num_threads()


def version():
    """The library's version record as a dict."""
    major, minor, major_build, build, name, text, date = _native.version()
    return dict(major=major, minor=minor, majorBuild=major_build, build=build, name=name, version=text,
                buildDate=date)
