// Reliability over every member of every registered family: operands beside
// pages that may not be touched, digests of results that must never change
// by accident nor with the thread count, callers on many threads at once,
// and hostile sizes.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <thread>

#include "families.h"
#include "harness.h"
#include "sha256.h"

#ifndef KELM_FROZEN_RESULTS
#error "KELM_FROZEN_RESULTS names the file of frozen digests"
#endif

namespace {

using namespace kt;

std::vector<int> countsOf(const Member& m, std::vector<int> counts)
{
    return m.has("count") ? counts : std::vector<int>{0};
}

// Sizes 1 to 9 for every size of the member at once, and at 2 and 5 each size
// alone one larger: the non-square shapes, which a family either takes or
// refuses without touching memory.
std::vector<Sizes> ladder(const Member& m, int count)
{
    std::vector<Sizes> out;
    Sizes base = validSizes(m, std::max(count, 1));
    if (count == 0) base.erase("count");
    const bool sized = std::any_of(base.begin(), base.end(), [](auto& kv) { return kv.first != "count"; });
    for (int k = 1; k <= (sized ? 9 : 1); ++k) {
        Sizes s = base;
        for (auto& [name, v] : s)
            if (name != "count") v = k;
        out.push_back(s);
        if (k != 2 && k != 5) continue;
        for (auto& kv : s) {
            if (kv.first == "count") continue;
            Sizes t = s;
            t[kv.first] = k + 1;
            out.push_back(t);
        }
    }
    return out;
}

// Cases of the ladder, in the forms given, with the family's data and with raw
// random data (which makes the numerical failures of the families that
// have them: singular, not positive definite, no convergence).
template <class F>
void forEachCase(const Member& m, F&& f, const std::vector<Form>& forms = {Form::Packed, Form::Random, Form::Strided})
{
    uint32_t seed = 1;
    for (int count : countsOf(m, {1, 3}))
        for (const Sizes& sizes : ladder(m, count))
            for (Form form : forms) {
                f(makeCase(m, sizes, Layout{form}, seed));
                f(makeSetup(m, sizes, family(m).shape, Layout{form}, seed + 1));
                seed += 2;
            }
    // Objects right after one another, five of them: a pack of four floats
    // or two pairs of doubles, and one left over.
    for (int count : countsOf(m, {5}))
        for (const Sizes& sizes : ladder(m, count)) {
            f(makeCase(m, sizes, Layout{Form::Gapless}, seed));
            f(makeSetup(m, sizes, family(m).shape, Layout{Form::Gapless}, seed + 1));
            seed += 2;
        }
}

// ---- guard pages ----------------------------------------------------------------

class Reliability : public ::testing::TestWithParam<std::string> {};

// In every form (objects side by side too), with every operand's last named
// element right before a page that may not be touched, or its first right
// after one, a call returns what it returns at the same addresses with that
// page open, leaves the same bytes, and writes nothing but elements of the
// groups it may write.
TEST_P(Reliability, GuardPagesAroundEveryOperand)
{
    const Member& m = member(GetParam());
    forEachCase(m, [&](const Case& s) {
        for (Edge edge : {Edge::After, Edge::Before}) {
            Case open = s, shut = s;
            const auto before = s.snapshot();
            const KelStatus want = runPlaced(open, edge, false);
            const KelStatus got = runPlaced(shut, edge, true);
            ASSERT_EQ(got, want) << describe(s);
            for (size_t g = 0; g < s.ops.size(); ++g)
                ASSERT_TRUE(open.ops[g].arena == shut.ops[g].arena) << "group " << g << " of " << describe(s);
            const std::string diff = isCheckStatus(got) ? compareUntouched(shut, before)
                                                        : compareOutsideWritten(shut, before);
            ASSERT_TRUE(diff.empty()) << diff;
        }
    }, {Form::Packed, Form::Random, Form::Strided, Form::Planes});
}

// ---- frozen results --------------------------------------------------------------

bool isNaN(const unsigned char* p, int elem)
{
    if (elem == 8) {
        double x;
        std::memcpy(&x, p, 8);
        return std::isnan(x);
    }
    float x;
    std::memcpy(&x, p, 4);
    return std::isnan(x);
}

// Digest of the status and the written elements of each case of a member,
// run beside guard pages (so that addresses modulo the page, on which some
// kernels choose their path, are the same in every build).
std::string digest(const Member& m)
{
    Sha256 h;
    auto add = [&](Case s, bool forks = false) {
        const KelStatus st = runPlaced(s, Edge::After);
        // A team that meets a refused object finishes its other blocks where
        // a serial call stops: of a forking call that refuses, only that counts.
        if (forks && st != kelStsNoErr) {
            h.add("refused", 7);
            return;
        }
        h.add(&st, sizeof st);
        for (size_t g = 0; g < s.ops.size(); ++g) {
            const Operand& op = s.ops[g];
            if (op.info.isSize() || op.constant || !mayWrite(op.info) || op.info.kind == "buf") continue;
            const Operand& home = s.inPlaceOf >= 0 && int(g) == dstGroup(m) ? s.ops[s.inPlaceOf] : op;
            const bool ints = op.info.kind == "piv" || op.info.kind == "cpiv";
            for (int64_t o : op.offsets) {
                const unsigned char* p = home.arena.data() + o;
                // Which NaN an operation on two NaNs returns depends on the
                // order of its operands, which compilers may swap: every NaN
                // counts as one.
                if (!ints && isNaN(p, op.elem)) {
                    h.add("NaN", 3);
                    continue;
                }
                h.add(p, op.elem);
            }
        }
    };
    forEachCase(m, add);
    // Arrays that fork, with the family's data.
    if (const int c = forkingCount(m))
        for (Form form : {Form::Packed, Form::Strided})
            add(makeCase(m, validSizes(m, c), Layout{form}, 900 + int(form)), true);
    return h.hex();
}

std::map<std::string, std::string> frozenDigests()
{
    std::map<std::string, std::string> out;
    std::ifstream in(KELM_FROZEN_RESULTS);
    std::string name, hex;
    while (in >> name >> hex) out[name] = hex;
    return out;
}

// The digests recorded in the repository, at 1, 2, 3 and 8 threads.  With
// KELM_FREEZE set, the test appends the member's digest at one thread to
// that file instead (scripts/freeze-results.sh).
TEST_P(Reliability, FrozenResultsAtEveryThreadCount)
{
    const Member& m = member(GetParam());
    if (const char* out = std::getenv("KELM_FREEZE")) {
        forceThreads(1);
        const std::string d = digest(m);
        forceThreads(0);
        std::ofstream(out, std::ios::app) << m.name << ' ' << d << '\n';
        return;
    }
    static const auto frozen = frozenDigests();
    auto it = frozen.find(m.name);
    ASSERT_NE(it, frozen.end()) << m.name << " has no frozen digest: run scripts/freeze-results.sh";
    forEachTeamSize([&](int threads) {
        if (threads == 7) threads = 8;
        forceThreads(threads);
        EXPECT_EQ(digest(m), it->second) << m.name << " at " << threads << " threads";
    });
}

// ---- objects side by side -------------------------------------------------------

// With the objects of every S and P array one element apart (interleaved S,
// P over planes), a member whose family has a model gives the model's bits:
// at counts that leave every remainder of four and of two objects, at 1001,
// at every size from 1 to 8, at every team size, and in place for the
// element-wise families (whose results are defined with dst equal to a
// source in the same layout).
TEST_P(Reliability, ObjectsSideBySideGiveTheModelsBits)
{
    const Member& m = member(GetParam());
    const auto& model = family(m).model;
    if (!model || !m.array || m.desc == "L") GTEST_SKIP() << "no model of its own, single objects or L tables";
    const bool inPlaceDefined = m.family == "Add" || m.family == "Sub";
    uint32_t seed = 40;
    forEachTeamSize([&](int) {
        std::vector<Sizes> grid;
        for (int count : {1, 2, 3, 4, 5, 6, 7, 8, 9, 1001}) grid.push_back(validSizes(m, count));
        for (int k = 1; k <= 8; ++k) {
            Sizes sizes = validSizes(m, 9);
            for (auto& [name, v] : sizes)
                if (name != "count") v = k;
            grid.push_back(sizes);
        }
        for (const Sizes& sizes : grid)
            for (int pass = 0; pass < (inPlaceDefined ? 2 : 1); ++pass) {
                const bool inPlace = pass == 1;
                Case s = makeCase(m, sizes, Layout{Form::Planes}, seed++, inPlace);
                if (inPlace && s.inPlaceOf < 0) continue;
                expectResult(s, model(s));
                if (::testing::Test::HasFatalFailure()) return;
            }
    });
}

// Objects side by side with one refused object in each place of a pack (and
// of the packs after it): the status is the refusal, the objects before it
// hold the model's results and it and every later object are untouched, as
// object by object.  An object is refused by a zero first row (Invert) or a
// negative first diagonal element (CholeskyDecomp).
TEST(ObjectsSideBySide, RefusedObjectInEveryLane)
{
    const struct {
        const char* family;
        KelStatus status;
        double first, rest;
    } refusals[] = {{"Invert", kelStsSingular, 0.0, 0.0}, {"CholeskyDecomp", kelStsNotPositiveDefinite, -1.0, 0.0}};
    forceThreads(1);
    for (const auto& r : refusals)
        for (const auto& name : memberNames({r.family})) {
            const Member& m = member(name);
            if (!m.array || m.desc == "L") continue;
            const int d = dstGroup(m);
            for (int n : {3, 4, 5, 6})
                for (int bad = 0; bad < 6; ++bad) {
                    Case s = makeCase(m, {{"size", n}, {"count", 7}}, Layout{Form::Planes}, 100 + bad);
                    for (int i = 0; i < n; ++i) s.ops[0].set(bad, 0, i, i == 0 ? r.first : r.rest);
                    const std::vector<double> want = family(m).model(s);
                    Expected e(s);
                    for (int k = 0; k < bad; ++k)
                        for (int row = 0; row < n; ++row)
                            for (int c = 0; c < n; ++c)
                                e.put(d, k, row, c, toBits(want[(size_t(k) * n + row) * n + c], m.elem));
                    e.check(r.status);
                    ASSERT_FALSE(HasFatalFailure()) << name << " order " << n << " refused object " << bad;
                }
        }
    forceThreads(0);
}

// LUDecomp and LUBackSubst (which have no model here): the same values laid
// out side by side and object by object (strided S, P in blocks) give the
// same status and the same bits in every written group (factors, pivot
// tables, solutions), at every order with lanes and every remainder of the
// lane count, and with a singular matrix in every place of a pack.
TEST(ObjectsSideBySide, LUAsObjectByObject)
{
    forceThreads(1);
    for (const auto& name : memberNames({"LUDecomp", "LUBackSubst"})) {
        const Member& m = member(name);
        if (!m.array || m.desc == "L") continue;
        uint32_t seed = 500;
        for (int n : {3, 4, 5, 6})
            for (int count : {1, 2, 3, 5, 9})
                for (int bad = -1; bad < std::min(count, 5); ++bad) {
                    Case lanes = makeCase(m, {{"size", n}, {"count", count}}, Layout{Form::Planes}, seed++);
                    Case alone;
                    do alone = makeCase(m, lanes.sizes, Layout{Form::Strided}, seed++);
                    while (m.desc == "P" && alone.ops[0].args.s0 == alone.ops[0].elem);
                    if (bad >= 0 && m.family == "LUDecomp")
                        for (int i = 0; i < n; ++i) lanes.ops[0].set(bad, i, 1, 0.0), lanes.ops[0].set(bad, i, 0, 0.0);
                    for (size_t g = 0; g < lanes.ops.size(); ++g)
                        for (size_t k = 0; k < lanes.ops[g].offsets.size(); ++k)
                            std::memcpy(alone.ops[g].arena.data() + alone.ops[g].offsets[k],
                                        lanes.ops[g].arena.data() + lanes.ops[g].offsets[k], lanes.ops[g].elem);
                    ASSERT_EQ(lanes.run(), alone.run()) << describe(lanes);
                    for (size_t g = 0; g < lanes.ops.size(); ++g) {
                        const Operand &x = lanes.ops[g], &y = alone.ops[g];
                        for (size_t k = 0; k < x.offsets.size(); ++k)
                            ASSERT_EQ(std::memcmp(x.arena.data() + x.offsets[k], y.arena.data() + y.offsets[k], x.elem), 0)
                                << x.info.prefix << " element " << k << " of " << describe(lanes);
                    }
                }
    }
    forceThreads(0);
}

// ---- hostile sizes -----------------------------------------------------------------

// Counts and sizes near INT32_MAX, or strides whose products wrap in 32-bit
// arithmetic, over memory for a handful of objects: a fault that a step
// catches still returns that step's status before anything is read or
// written.
TEST_P(Reliability, HostileSizesStopAtAFault)
{
    const Member& m = member(GetParam());
    const int count = m.has("count") ? 2 : 1;
    const Sizes valid = validSizes(m, count);
    Case s = makeCase(m, valid, Layout{Form::Random}, 5);
    const auto faults = faultsOf(m, valid);
    // Each hostile change, applied to a call before its fault.
    std::vector<std::pair<std::string, std::function<void(Call&)>>> hostile;
    for (auto& kv : valid)
        for (int huge : {INT32_MAX, INT32_MAX - 1, 1 << 30})
            hostile.push_back({kv.first + "=" + std::to_string(huge),
                               [name = kv.first, huge](Call& c) { c.sizes[name] = huge; }});
    hostile.push_back({"strides near 2^31", [&](Call& c) {
                           for (size_t g = 0; g < m.groups.size(); ++g)
                               for (auto& f : strideFields(m.groups[g])) field(c.g[g], f) = (INT32_MAX / m.elem) * m.elem;
                       }});
    const size_t mismatchAt = m.order.find('M');
    for (auto& [what, change] : hostile)
        for (const Fault& f : faults) {
            if (f.step == 'Z' || f.step == 'C' || f.step == 'M') continue;
            // A huge size may not fit the other sizes: skip faults that a
            // mismatch step would shadow.
            const char catcher = f.step == 'b' || f.step == '0' ? 'B' : f.step;
            const size_t at = std::min(m.order.find(catcher), m.order.find(f.step));
            if (mismatchAt != std::string::npos && mismatchAt < at) continue;
            Call c = s.call();
            change(c);
            f.apply(s, c);
            const int n = c.size("count") > 0 ? c.size("count") : count;
            const KelStatus want = expectedStatus(m, {&f}, n);
            if (want == kelStsNoErr) continue;
            const auto before = s.snapshot();
            EXPECT_EQ(m.invoke(c), want) << m.name << " " << what << " with " << f.what;
            const std::string diff = compareUntouched(s, before);
            ASSERT_TRUE(diff.empty()) << diff;
        }
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

INSTANTIATE_TEST_SUITE_P(All, Reliability, ::testing::ValuesIn(memberNames(registeredFamilies())), paramName);

// ---- concurrent callers ------------------------------------------------------------

// Eight caller threads run a mix of members at once (large arrays that form
// teams inside, small ones, calls refused by a numerical test), each on its
// own memory; every result equals the serial run's.
TEST(Concurrency, CallersOnEightThreadsMatchTheSerialRun)
{
    std::vector<const Member*> mix;
    const auto names = memberNames(registeredFamilies());
    for (size_t k = 0; k < names.size(); k += 7) mix.push_back(&member(names[k]));
    struct Job {
        const Member* m;
        Sizes sizes;
        Form form;
        uint32_t seed;
        bool raw;
    };
    std::vector<Job> jobs;
    for (const Member* m : mix) {
        const int c = forkingCount(*m);
        jobs.push_back({m, validSizes(*m, c ? c : 3), Form::Packed, 7, false});
        jobs.push_back({m, validSizes(*m, 3), Form::Random, 8, true});
        // Teams that meet refused objects report through the one critical
        // section; their bytes may differ from a serial run, which stops.
        if (c) jobs.push_back({m, validSizes(*m, c), Form::Random, 9, true});
    }
    auto build = [](const Job& j) {
        return j.raw ? makeSetup(*j.m, j.sizes, family(*j.m).shape, Layout{j.form}, j.seed)
                     : makeCase(*j.m, j.sizes, Layout{j.form}, j.seed);
    };
    // Serial results first.
    forceThreads(1);
    // What a caller compares: the status and every group but the scratch,
    // which a serial run may use and a team leaves alone.
    using Result = std::pair<KelStatus, std::vector<std::vector<unsigned char>>>;
    auto result = [](const Case& s, KelStatus st) {
        Result r{st, {}};
        for (auto& op : s.ops)
            if (op.info.kind != "buf") r.second.push_back(op.arena);
        return r;
    };
    std::vector<Result> serial;
    for (const Job& j : jobs) {
        Case s = build(j);
        serial.push_back(result(s, s.run()));
    }
    forceThreads(3);
    const int callers = 8;
    std::vector<std::string> failures(callers);
    std::vector<std::thread> threads;
    for (int t = 0; t < callers; ++t)
        threads.emplace_back([&, t] {
            for (size_t i = 0; i < jobs.size(); ++i) {
                const size_t k = (i + t * jobs.size() / callers) % jobs.size();  // each caller starts elsewhere
                Case s = build(jobs[k]);
                const Result r = result(s, s.run());
                const bool refused = serial[k].first != kelStsNoErr;
                if (refused ? r.first == kelStsNoErr : r != serial[k]) {
                    failures[t] = jobs[k].m->name + " differs from its serial run";
                    return;
                }
            }
        });
    for (auto& th : threads) th.join();
    forceThreads(0);
    for (auto& f : failures) EXPECT_TRUE(f.empty()) << f;
}

}  // namespace
