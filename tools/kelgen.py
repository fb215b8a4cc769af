#!/usr/bin/env python3
"""Generates everything that follows from the member tables.

The member tables (src/*/*.members) are the one list of what the library
exports.  Each holds one family:

    @family Add                         family name, as in the exported names
    @frontend kel::elementwise::add     C++ front end the exports call; a
                                        <T> in it is the member's element type
    @header eigen/general.h             optional: the header the exports
                                        include, when several tables share one
    @shape mam  ma:src1 m:src2 ma:dst width height count
    member      checks   estimate       limit
    kelmAdd_mam_32f   NCBZ   W*H*(2*C+1)   3000/2000

A table is named after its C++ header: src/products/mulmm.members is
included as "products/mulmm.h" by the generated exports_mulmm.cpp, so a
family may be split over several tables.

A @shape line gives, for one operand code, the argument groups in the order
of the argument list: `kind:prefix` for an operand, a bare word for a size.
`kind:prefix/name` names the group's base pointer `name` where it differs
from the prefix of its strides and shift (dstVectors, dstStride1).
Kinds: ma ta m t va v (matrices, transposed, vectors; `a` for arrays),
c ca (constant, array of constants), out (dense result buffer), buf
(scratch pointer), piv / cpiv (writable / read-only 32-bit integers: pivot
tables, a size the call reports).  Groups
named dst... are written, all others read.  A description letter turns each
group into its arguments; a two-letter description (Copy) gives the first
letter to the source group and the second to the destination group.

Member rows: checks are the steps of the frame's check sequence in order;
the estimate is an expression over W H L N C W1 H1 W2 H2 L2 L3 computed in wrapping
32-bit arithmetic, or `-` where there is none (single objects, families
that never fork: the kernel then runs serially on all objects); the limit is
`packed/strided`, one number for both, `serial` for an array that has an
estimate but never forks, or `-` with no estimate.

Plain rows spell their own prototype and have hand-written bodies (the
fixed-size geometry functions, which take bare pointers and no
descriptions):

    @plain kelmAdd_v2_32f(const Kel32f* src1, const Kel32f* src2, Kel32f* dst)

They go into the header, the export list and the registry (marked plain,
without a call, so the generic family tests leave them out), but no export
function is generated for them.  A table may hold plain rows alone; it then
needs no @family or @frontend.

Outputs:
    kelgen.py header OUT        the public header (include/kelm.h)
    kelgen.py exports DIR       one C++ file of export functions per family
    kelgen.py mapfile OUT       the linker's export list
    kelgen.py registry OUT      the test registry
    kelgen.py python OUT        the member table of the Python extension
    kelgen.py names             the exported names, one a line
"""
import glob
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

SIZE_FIELDS = {
    "width": "W", "height": "H", "len": "L", "size": "N", "count": "C",
    "src1Width": "W1", "src1Height": "H1", "src2Width": "W2", "src2Height": "H2",
    "src2Len": "L2", "src3Len": "L3",
}
ESTIMATE_VARS = ["W", "H", "L", "N", "C", "W1", "H1", "W2", "H2", "L2", "L3"]
OPERAND_KINDS = ["ma", "ta", "m", "t", "va", "v", "ca", "c"]
# A name without operand code (kelmEigenValuesGetBufSize_32f) has the code "-".
NAME_RE = re.compile(r"^kelm([A-Za-z0-9]+?)(?:_([a-z0-9]+))?_(32f|64f)(?:_([SLP]{1,2}))?$")


STEPS = "NCZMBb0Rrsod"   # the frame's check steps (frame.h)
MAX_STEPS = 8         # kMaxSteps in frame.h


class Member:
    def __init__(self, family, name, order, estimate, limit, line):
        m = NAME_RE.match(name)
        if not m or m.group(1) != family.name:
            raise SystemExit(f"{family.path}:{line}: bad member name {name}")
        self.family = family
        self.name = name
        self.code = m.group(2) or "-"
        self.type = m.group(3)
        self.desc = m.group(4) or "S"
        self.order = order
        if len(order) > MAX_STEPS or set(order) - set(STEPS):
            raise SystemExit(f"{family.path}:{line}: checks {order}: at most {MAX_STEPS} of the steps {STEPS}")
        self.estimate = None if estimate == "-" else estimate
        self.limit = limit
        if self.code not in family.shapes:
            raise SystemExit(f"{family.path}:{line}: no @shape for {self.code}")
        self.groups = family.shapes[self.code]

    @property
    def elem(self):
        return "Kel32f" if self.type == "32f" else "Kel64f"

    def limits(self):
        if self.limit == "-":
            return None
        if self.limit == "serial":
            return ("kel::kSerialOnly", "kel::kSerialOnly")
        parts = self.limit.split("/")
        return (parts[0], parts[-1])

    def group_descs(self):
        """Description letter of each operand group, in argument order."""
        operands = [g for g in self.groups if g[0] not in ("size",)]
        if len(self.desc) == 1:
            return [self.desc] * len(operands)
        described = [g for g in operands if g[0] in OPERAND_KINDS]
        if len(described) != 2:
            raise SystemExit(f"{self.name}: two-letter description needs two operands")
        out, k = [], 0
        for g in operands:
            if g[0] in OPERAND_KINDS:
                out.append(self.desc[k])
                k += 1
            else:
                out.append("S")
        return out

    def args(self):
        """[(ctype, name, group_index, field)] and the view expressions."""
        args, views = [], []
        descs = iter(self.group_descs())
        for gi, g in enumerate(self.groups):
            if g[0] == "size":
                args.append(("int", g[1], gi, "size"))
                continue
            kind, prefix = g
            d = next(descs)
            a, v = group_args(kind, prefix, d, self.elem, self.family.pointers.get(prefix, prefix))
            args += [(t, n, gi, f) for (t, n, f) in a]
            views.append((gi, kind, v))
        return args, views

    def call_views(self):
        """View expressions in the order of the operation: operands in the
        order of the letters of the operand code, then the other groups in
        argument order."""
        _, views = self.args()
        letters = split_code(self.code)
        used, ordered = set(), []
        for letter in letters:
            for gi, kind, v in views:
                if gi not in used and kind == letter and not self.groups[gi][1].startswith("dst"):
                    used.add(gi)
                    ordered.append(v)
                    break
            else:
                # Copy, Extract, LoadIdentity: the code names the one described operand.
                pass
        ordered += [v for gi, kind, v in views if gi not in used]
        return ordered

    def sizes(self):
        return [g[1] for g in self.groups if g[0] == "size"]


def split_code(code):
    out, i = [], 0
    while i < len(code):
        if code[i + 1:i + 2] == "a":
            out.append(code[i:i + 2])
            i += 2
        else:
            out.append(code[i])
            i += 1
    return out


def cap(prefix):
    return prefix[0].upper() + prefix[1:]


def group_args(kind, prefix, d, elem, base):
    """Arguments of one group and the C++ expression of its view; `base` is
    the name of its base pointer."""
    writable = prefix.startswith("dst")
    ct = elem if writable else f"const {elem}"
    pp = f"pp{cap(prefix)}"
    s0, s1, s2, roi = (f"{prefix}Stride0", f"{prefix}Stride1", f"{prefix}Stride2", f"{prefix}RoiShift")
    tab = f"{ct}* const*"
    ptr = f"{ct}*"
    if kind == "buf":
        return [(f"{elem}*", prefix, "p")], f"kel::plain({prefix})"
    if kind == "out":
        return [(ptr, base, "p")], f"kel::dense({prefix})"
    if kind in ("piv", "cpiv"):
        t = "int*" if kind == "piv" else "const int*"
        return [(t, prefix, "p")], f"kel::dense({prefix})"
    if kind == "c":
        return [(elem, prefix, "val")], f"kel::cst<{elem}>({prefix})"
    if kind == "ca":
        if d == "L":
            return [(tab, f"pp{cap(prefix)}", "pp"), ("int", roi, "roi")], f"kel::cstArrL<{ct}>({pp}, {roi})"
        return [(ptr, base, "p"), ("int", s0, "s0")], f"kel::cstArr{d}<{ct}>({base}, {s0})"
    trans = "true" if kind in ("t", "ta") else "false"
    if kind in ("ma", "ta"):
        if d == "S":
            return ([(ptr, base, "p"), ("int", s0, "s0"), ("int", s1, "s1"), ("int", s2, "s2")],
                    f"kel::matArrS<{ct}, {trans}>({base}, {s0}, {s1}, {s2})")
        if d == "L":
            return ([(tab, pp, "pp"), ("int", roi, "roi"), ("int", s1, "s1"), ("int", s2, "s2")],
                    f"kel::matArrL<{ct}, {trans}>({pp}, {roi}, {s1}, {s2})")
        return ([(tab, pp, "pp"), ("int", roi, "roi"), ("int", s0, "s0")],
                f"kel::matArrP<{ct}, {trans}>({pp}, {roi}, {s0})")
    if kind in ("m", "t"):
        if d == "P":
            return [(tab, pp, "pp"), ("int", roi, "roi")], f"kel::matP<{ct}, {trans}>({pp}, {roi})"
        return ([(ptr, base, "p"), ("int", s1, "s1"), ("int", s2, "s2")],
                f"kel::matS<{ct}, {trans}, kel::Desc::{d}>({base}, {s1}, {s2})")
    if kind == "va":
        if d == "S":
            return ([(ptr, base, "p"), ("int", s0, "s0"), ("int", s2, "s2")],
                    f"kel::vecArrS<{ct}>({base}, {s0}, {s2})")
        if d == "L":
            return ([(tab, pp, "pp"), ("int", roi, "roi"), ("int", s2, "s2")],
                    f"kel::vecArrL<{ct}>({pp}, {roi}, {s2})")
        return ([(tab, pp, "pp"), ("int", roi, "roi"), ("int", s0, "s0")],
                f"kel::vecArrP<{ct}>({pp}, {roi}, {s0})")
    if kind == "v":
        if d == "P":
            return [(tab, pp, "pp"), ("int", roi, "roi")], f"kel::vecP<{ct}>({pp}, {roi})"
        return [(ptr, base, "p"), ("int", s2, "s2")], f"kel::vecS<{ct}, kel::Desc::{d}>({base}, {s2})"
    raise SystemExit(f"unknown group kind {kind}")


class PlainMember:
    def __init__(self, family, text, line):
        m = re.match(r"^(kelm\w+)\((.*)\)$", text)
        n = NAME_RE.match(m.group(1)) if m else None
        if not n:
            raise SystemExit(f"{family.path}:{line}: expected @plain name(arguments)")
        self.family = family
        self.name = m.group(1)
        self.params = m.group(2).strip() or "void"
        self.fam = n.group(1)
        self.code = n.group(2)
        self.type = n.group(3)


class Family:
    def __init__(self, path):
        self.path = path
        self.folder = os.path.basename(os.path.dirname(path))
        self.stem = os.path.splitext(os.path.basename(path))[0]
        self.name = None
        self.frontend = None
        self.header = None
        self.shapes = {}
        self.pointers = {}
        self.members = []
        self.plain = []
        self.comment = []
        with open(path) as f:
            for no, raw in enumerate(f, 1):
                line = raw.split("#", 1)[0].strip()
                if raw.startswith("##"):
                    self.comment.append(raw[2:].strip())
                if not line:
                    continue
                words = line.split()
                if words[0] == "@family":
                    self.name = words[1]
                elif words[0] == "@frontend":
                    self.frontend = words[1]
                elif words[0] == "@header":
                    self.header = words[1]
                elif words[0] == "@plain":
                    self.plain.append(PlainMember(self, line[len("@plain"):].strip(), no))
                elif words[0] == "@shape":
                    groups = []
                    for w in words[2:]:
                        if ":" in w:
                            kind, prefix = w.split(":")
                            if "/" in prefix:
                                prefix, base = prefix.split("/")
                                self.pointers[prefix] = base
                            groups.append((kind, prefix))
                        else:
                            if w not in SIZE_FIELDS:
                                raise SystemExit(f"{path}:{no}: unknown size {w}")
                            groups.append(("size", w))
                    self.shapes[words[1]] = groups
                else:
                    if len(words) != 4:
                        raise SystemExit(f"{path}:{no}: expected member, checks, estimate, limit")
                    self.members.append(Member(self, *words, no))


def load_families():
    paths = sorted(glob.glob(os.path.join(ROOT, "src", "*", "*.members")))
    fams = [Family(p) for p in paths]
    seen = set()
    for fam in fams:
        for m in fam.members + fam.plain:
            if m.name in seen:
                raise SystemExit(f"{m.name} listed twice")
            seen.add(m.name)
    return fams


def all_members(fams):
    return [m for fam in fams for m in fam.members]


def all_names(fams):
    return [m.name for fam in fams for m in fam.members + fam.plain]


def prototype(m, sep=", "):
    args, _ = m.args()
    return f"KelStatus {m.name}(" + sep.join(f"{t} {n}" for t, n, _, _ in args) + ")"


def cmd_header(fams, out):
    with open(os.path.join(ROOT, "tools", "kelm.h.in")) as f:
        template = f.read()
    lines = []
    for fam in fams:
        lines.append(f"/* ---- {fam.name or fam.stem} ({fam.stem}) ---- */")
        lines += [f"/* {c} */" for c in fam.comment]
        for m in fam.members:
            lines.append(f"KELM_API {prototype(m)};")
        for m in fam.plain:
            lines.append(f"KELM_API KelStatus {m.name}({m.params});")
        lines.append("")
    write_if_changed(out, template.replace("@DECLARATIONS@", "\n".join(lines)))


def estimate_fn(expr):
    used = [v for v in ESTIMATE_VARS if re.search(rf"\b{v}\b", expr)]
    decl = " ".join(f"const uint32_t {v} = static_cast<uint32_t>(s.{v});" for v in used)
    return (f"[](const kel::Sizes& s) -> int32_t {{ {decl} "
            f"return static_cast<int32_t>({expr}); }}")


def cmd_exports(fams, outdir):
    os.makedirs(outdir, exist_ok=True)
    for fam in fams:
        if not fam.members:
            continue
        lines = [
            f"// Exports of {fam.name}, generated from {os.path.relpath(fam.path, ROOT)}.",
            f'#include "{fam.header or fam.folder + "/" + fam.stem + ".h"}"',
            "",
            "#include <cstdint>",
            "",
            'extern "C" {',
            "",
        ]
        for m in fam.members:
            lim = m.limits()
            est = estimate_fn(m.estimate) if m.estimate else "nullptr"
            lp, ls = lim if lim else ("0", "0")
            sizes = "".join(f"    sz.{SIZE_FIELDS[s]} = {s};\n" for s in m.sizes())
            views = ",\n        ".join(m.call_views())
            lines.append(f"KELM_API {prototype(m)}\n{{")
            lines.append(f'    static constexpr kel::Traits tr{{"{m.order}", {est}, {lp}, {ls}}};')
            lines.append(f"    kel::Sizes sz;\n{sizes.rstrip()}" if sizes else "    kel::Sizes sz;")
            frontend = fam.frontend.replace("<T>", f"<{m.elem}>")
            lines.append(f"    return {frontend}(tr, sz,\n        {views});")
            lines.append("}\n")
        lines.append('}  // extern "C"')
        write_if_changed(os.path.join(outdir, f"exports_{fam.stem}.cpp"), "\n".join(lines) + "\n")


def cmd_mapfile(fams, out):
    names = ["kelmGetLibVersion"] + all_names(fams)
    body = "".join(f"    {n};\n" for n in names)
    write_if_changed(out, "{\n  global:\n" + body + "  local:\n    *;\n};\n")


def cmd_registry(fams, out):
    """Plain constant tables (cheap to compile, whatever the member count):
    one call function per member and one row of text fields."""
    calls, groups, rows = [], [], []
    for k, m in enumerate(all_members(fams)):
        args, _ = m.args()
        call = []
        for t, n, gi, field in args:
            if field == "size":
                call.append(f'c.size("{n}")')
            elif field == "val":
                call.append(f"static_cast<{t}>(c.g[{gi}].val)")
            elif field in ("p", "pp"):
                call.append(f"({t})c.g[{gi}].{field}")
            else:
                call.append(f"c.g[{gi}].{field}")
        calls.append(f"KelStatus call{k}(const kt::Call& c) {{ return {m.name}({', '.join(call)}); }}")
        gs = []
        descs = iter(m.group_descs())
        for g in m.groups:
            d = "-" if g[0] == "size" else next(descs)
            gs.append(f'{{"{g[0]}", "{g[1].split("=")[0]}", \'{d}\'}}')
        groups.append(f"const kt::RawGroup groups{k}[] = {{{', '.join(gs)}}};")
        lim = m.limits()
        lp, ls = (lim if lim else ("0", "0"))
        lp = lp.replace("kel::kSerialOnly", "kt::kSerialOnly")
        ls = ls.replace("kel::kSerialOnly", "kt::kSerialOnly")
        rows.append(
            f'    {{"{m.name}", "{m.family.name}", "{m.code}", "{m.desc}", {4 if m.type == "32f" else 8}, '
            f'"{m.order}", "{m.estimate or ""}", {lp}, {ls}, {"true" if lim else "false"}, '
            f"groups{k}, {len(m.groups)}, call{k}, false}},")
    for m in (p for fam in fams for p in fam.plain):
        rows.append(f'    {{"{m.name}", "{m.fam}", "{m.code}", "S", 4, "", "", 0, 0, false, nullptr, 0, nullptr, true}},')
    text = "\n".join(
        ["// Test registry, generated from the member tables.", "", "namespace {", ""] + calls + [""] + groups +
        ["", "}  // namespace", "", "const kt::RawMember kt::kRawMembers[] = {"] + rows +
        ["};", f"const int kt::kRawMemberCount = {len(rows)};", ""])
    write_if_changed(out, text)


def cmd_python(fams, out):
    """One thunk per member that takes its arguments from an array of
    tagged slots (pointer, integer or floating value), and one row per
    member with its name, family, operand code, type, description, @shape
    groups and argument names, so that the Python layer finds every member
    and builds its arguments from the groups alone."""
    thunks, rows = [], []
    for k, m in enumerate(all_members(fams)):
        args, _ = m.args()
        call, kinds = [], []
        for i, (t, _n, _gi, _f) in enumerate(args):
            if t.endswith("*"):
                call.append(f"({t})a[{i}].p")
                kinds.append("p")
            elif t in ("Kel32f", "Kel64f"):
                call.append(f"static_cast<{t}>(a[{i}].d)")
                kinds.append("f")
            else:
                call.append(f"static_cast<{t}>(a[{i}].i)")
                kinds.append("i")
        thunks.append(f"KelStatus t{k}(const kp::Slot* a) {{ return {m.name}({', '.join(call)}); }}")
        groups = " ".join(g[1] if g[0] == "size" else f"{g[0]}:{g[1]}" for g in m.groups)
        names = " ".join(n for _, n, _, _ in args)
        rows.append(f'    {{"{m.name}", "{m.family.name}", "{m.code}", "{m.type}", "{m.desc}", '
                    f'"{groups}", "{names}", "{"".join(kinds)}", t{k}}},')
    text = "\n".join(
        ["// Members of the library for the Python extension, generated from the member tables.", "",
         "namespace {", ""] + thunks + ["", "}  // namespace", "", "const kp::Member kp::kMembers[] = {"] + rows +
        ["};", f"const int kp::kMemberCount = {len(rows)};", ""])
    write_if_changed(out, text)


def write_if_changed(path, text):
    try:
        with open(path) as f:
            if f.read() == text:
                return
    except FileNotFoundError:
        pass
    with open(path, "w") as f:
        f.write(text)


def main():
    fams = load_families()
    cmd = sys.argv[1] if len(sys.argv) > 1 else "names"
    if cmd == "header":
        cmd_header(fams, sys.argv[2])
    elif cmd == "exports":
        cmd_exports(fams, sys.argv[2])
    elif cmd == "mapfile":
        cmd_mapfile(fams, sys.argv[2])
    elif cmd == "registry":
        cmd_registry(fams, sys.argv[2])
    elif cmd == "python":
        cmd_python(fams, sys.argv[2])
    elif cmd == "names":
        for name in all_names(fams):
            print(name)
    elif cmd == "sources":
        for fam in (f for f in fams if f.members):
            print(f"exports_{fam.stem}.cpp")
    else:
        raise SystemExit(__doc__)


if __name__ == "__main__":
    main()
