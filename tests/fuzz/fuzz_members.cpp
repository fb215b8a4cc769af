// Fuzz target over every member of every registered family.  The input
// chooses a member, its sizes and count, the layout of every operand (with
// gaps and guard bytes), in-place use, argument faults, repeated pointers in
// P tables and element values such as NaN, infinities, subnormals, huge and
// tiny numbers.  Whatever it chooses, a call must keep the library's
// promises:
//   - the status is one the library documents;
//   - a failed argument check returns the earliest failing step's status and
//     leaves every byte untouched;
//   - otherwise no byte changes outside the elements the call may write,
//     even with the first or last element of every operand beside a page that
//     may not be touched;
//   - the same call at 1 and at 3 threads gives the same status and bytes
//     (a call refused by a numerical test: a refusal in both).
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

struct Input {
    const uint8_t* p;
    size_t n;
    uint8_t byte() { return n ? (--n, *p++) : 0; }
    uint32_t word()
    {
        uint32_t w = 0;
        for (int k = 0; k < 4; ++k) w = w << 8 | byte();
        return w;
    }
};

[[noreturn]] void fail(const Case& s, const std::string& what)
{
    std::fprintf(stderr, "kelm fuzz: %s\n  in %s\n", what.c_str(), describe(s).c_str());
    std::abort();
}

bool documented(KelStatus st)
{
    switch (st) {
    case kelStsNoErr: case kelStsBadSize: case kelStsNullPointer: case kelStsDivideByZero:
    case kelStsNotPositiveDefinite: case kelStsBadStride: case kelStsSingular: case kelStsBadRoiShift:
    case kelStsBadCount: case kelStsSizeMismatch: case kelStsNoConvergence:
        return true;
    default:
        return false;
    }
}

double special(uint8_t k, int elem)
{
    const bool f = elem == 4;
    switch (k % 12) {
    case 0: return std::numeric_limits<double>::quiet_NaN();
    case 1: return INFINITY;
    case 2: return -INFINITY;
    case 3: return f ? FLT_TRUE_MIN : 4.9406564584124654e-324;  // smallest subnormal
    case 4: return f ? FLT_MIN : DBL_MIN;
    case 5: return f ? FLT_MAX : DBL_MAX;
    case 6: return f ? -FLT_MAX : -DBL_MAX;
    case 7: return -0.0;
    case 8: return 0.0;
    case 9: return f ? 1e-30 : 1e-300;
    case 10: return f ? 1e30 : 1e300;
    default: return f ? 1.0e-7 : 1.0e-16;
    }
}

// P tables of sources may name one element position twice (not the source
// whose memory dst shares: dst's table stays as it was).
void repeatPointers(Case& s, Input& in)
{
    for (size_t g = 0; g < s.ops.size(); ++g) {
        Operand& op = s.ops[g];
        if (op.info.desc != 'P' || mayWrite(op.info) || op.table.size() < 2 || op.info.kind == "ca" ||
            static_cast<int>(g) == s.inPlaceOf)
            continue;
        const size_t P = op.table.size(), to = in.byte() % P, from = in.byte() % P;
        op.table[to] = op.table[from];
        for (size_t n = 0; n < op.offsets.size() / P; ++n) op.offsets[n * P + to] = op.offsets[n * P + from];
    }
}

// Everything a comparison of two runs looks at: the status and every group
// but the scratch, which a serial run may use and a team leaves alone.
std::vector<std::vector<unsigned char>> outputs(const Case& s)
{
    std::vector<std::vector<unsigned char>> out;
    for (auto& op : s.ops)
        if (op.info.kind != "buf") out.push_back(op.arena);
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::vector<std::string> names = memberNames(registeredFamilies());
    Input in{data, size};
    const Member& m = member(names[(in.byte() << 8 | in.byte()) % names.size()]);

    // Sizes 1 to 9 (each size on its own), a count from 1 to 9 or one that forks.
    const uint8_t cb = in.byte();
    const int forks = forkingCount(m);
    const int count = cb >= 240 && forks ? forks : 1 + cb % 9;
    Sizes sizes = validSizes(m, count);
    for (auto& [name, v] : sizes)
        if (name != "count") {
            const uint8_t b = in.byte();
            if (b & 0x80) v = 1 + b % 9;
        }
    if (forks && count == forks && sizes != validSizes(m, count)) return 0;  // keep forking calls small
    const uint8_t how = in.byte();
    const Form form = static_cast<Form>(how % 3);
    const bool inPlace = how & 4, raw = how & 8;
    const Edge edge = how & 16 ? Edge::Before : Edge::After;
    const uint32_t seed = in.word();
    Case s = raw ? makeSetup(m, sizes, family(m).shape, Layout{form}, seed, inPlace)
                 : makeCase(m, sizes, Layout{form}, seed, inPlace);

    // Special values in the sources.
    for (int k = in.byte() % 8; k > 0; --k) {
        Operand& op = s.ops[in.byte() % s.ops.size()];
        const uint8_t where = in.byte(), what = in.byte();
        // Pivot tables hold row numbers that the decomposition wrote: not values.
        if (op.info.isSize() || mayWrite(op.info) || op.offsets.empty() || op.info.kind == "cpiv") continue;
        const size_t e = where % op.offsets.size();
        const int per = op.rows * op.cols;
        op.set(int(e / per), int(e % per / op.cols), int(e % op.cols), special(what, op.elem));
    }
    repeatPointers(s, in);

    // Up to two argument faults, at sizes that fit together (other sizes may
    // fail a mismatch step of their own).
    const bool valid = sizes == validSizes(m, count);
    const auto faults = faultsOf(m, sizes);
    const int nf = faults.empty() || !valid ? 0 : in.byte() % 4;
    if (nf == 1 || nf == 2) {
        std::vector<const Fault*> chosen;
        std::string what;
        Call c = s.call();
        for (int k = 0; k < nf; ++k) {
            const Fault* f = &faults[in.byte() % faults.size()];
            // Two faults of one step may undo each other (two sizes changed
            // alike), and two faults on sizes may change the same size.
            const auto onSizes = [](const Fault* x) { return x->step == 'M' || x->step == 'Z' || x->step == 'C'; };
            if (k == 1 && (f->step == chosen[0]->step || (onSizes(f) && onSizes(chosen[0])))) break;
            chosen.push_back(f);
            f->apply(s, c);
            what += "; " + chosen.back()->what;
        }
        const KelStatus want = expectedStatus(m, chosen, c.size("count") > 0 ? c.size("count") : count);
        if (want != kelStsNoErr) {
            const auto before = s.snapshot();
            const KelStatus got = m.invoke(c);
            if (got != want)
                fail(s, "a fault returned " + std::to_string(got) + " instead of " + std::to_string(want) + what);
            const std::string diff = compareUntouched(s, before);
            if (!diff.empty()) fail(s, "a refused call wrote: " + diff);
            return 0;
        }
    }

    // KELM_FUZZ_SHOW=1 names each call before it runs (for replaying a crash).
    static const bool show = std::getenv("KELM_FUZZ_SHOW") != nullptr;
    if (show) std::fprintf(stderr, "kelm fuzz: %s (edge %s)\n", describe(s).c_str(), edge == Edge::After ? "after" : "before");

    // The call at one thread beside guard pages, and at three.
    const auto before = s.snapshot();
    Case team = s;
    forceThreads(1);
    const KelStatus st = runPlaced(s, edge);
    forceThreads(3);
    const KelStatus st3 = runPlaced(team, edge);
    forceThreads(0);
    if (!documented(st)) fail(s, "undocumented status " + std::to_string(st));
    if (isCheckStatus(st)) {
        const std::string diff = compareUntouched(s, before);
        if (!diff.empty()) fail(s, "a refused call wrote: " + diff);
    } else {
        const std::string diff = compareOutsideWritten(s, before);
        if (!diff.empty()) fail(s, "a call wrote outside its elements: " + diff);
    }
    if (st == kelStsNoErr || isCheckStatus(st)) {
        if (st3 != st) fail(s, "3 threads returned " + std::to_string(st3) + ", 1 thread " + std::to_string(st));
        if (outputs(team) != outputs(s)) fail(s, "3 threads wrote other bytes than 1 thread");
    } else if (st3 == kelStsNoErr) {
        fail(s, "3 threads accepted what 1 thread refused");
    }
    return 0;
}
