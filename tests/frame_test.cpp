// The call frame, across every member: checks in each member's order, the
// serial/driver choice at the member's limit, the version record.
#include <gtest/gtest.h>
#include <omp.h>

#include <algorithm>
#include <cstring>

#include "families.h"
#include "harness.h"

namespace {

using namespace kt;

// ---- faults ---------------------------------------------------------------------

struct Fault {
    char step;          // N C Z M b 0 R: the step of the rule that tests it
    std::string what;
    std::function<void(Case&, Call&)> apply;
    bool written = false;  // of a destination (for the steps by side)
};

bool isArrayKind(const std::string& k) { return k.size() == 2 && k[1] == 'a'; }

// Stride fields each group receives.
std::vector<std::string> strideFields(const GroupInfo& g)
{
    const std::string& k = g.kind;
    if (k == "c" || k == "out" || k == "buf" || k == "piv" || k == "cpiv" || g.isSize()) return {};
    if (k == "ca") return g.desc == 'L' ? std::vector<std::string>{} : std::vector<std::string>{"s0"};
    const bool vec = k[0] == 'v';
    if (g.desc == 'P') return isArrayKind(k) ? std::vector<std::string>{"s0"} : std::vector<std::string>{};
    std::vector<std::string> f;
    if (g.desc == 'S' && isArrayKind(k)) f.push_back("s0");
    if (!vec) f.push_back("s1");
    f.push_back("s2");
    return f;
}

bool hasShift(const GroupInfo& g)
{
    if (g.kind == "ca") return g.desc == 'L';
    if (g.kind == "c" || g.kind == "out" || g.kind == "buf" || g.kind == "piv" || g.kind == "cpiv" || g.isSize())
        return false;
    return g.desc == 'P' || (g.desc == 'L' && isArrayKind(g.kind));
}

int& field(CallGroup& g, const std::string& f)
{
    if (f == "s0") return g.s0;
    if (f == "s1") return g.s1;
    if (f == "s2") return g.s2;
    return g.roi;
}

std::vector<Fault> faultsOf(const Member& m, const Sizes& valid)
{
    std::vector<Fault> out;
    const int e = m.elem;
    if (family(m).mismatches)
        for (auto& change : family(m).mismatches(m, valid)) {
            std::string what = "mismatch";
            for (auto& kv : change) what += " " + kv.first + "=" + std::to_string(kv.second);
            out.push_back({'M', what, [change](Case&, Call& c) {
                               for (auto& kv : change) c.sizes[kv.first] = kv.second;
                           }});
        }
    for (size_t k = 0; k < m.groups.size(); ++k) {
        const GroupInfo& g = m.groups[k];
        if (g.isSize()) {
            if (g.prefix == "count") {
                out.push_back({'C', "count 0", [](Case&, Call& c) { c.sizes["count"] = 0; }});
                out.push_back({'C', "count -1", [](Case&, Call& c) { c.sizes["count"] = -1; }});
            } else {
                std::string n = g.prefix;
                out.push_back({'Z', n + " 0", [n](Case&, Call& c) { c.sizes[n] = 0; }});
            }
            continue;
        }
        if (g.kind != "c") {
            // Dense buffers, scratch and pivot tables are plain pointers in every description.
            const bool plain = g.kind == "out" || g.kind == "buf" || g.kind == "piv" || g.kind == "cpiv";
            const bool table = !plain && (g.desc == 'P' ? g.kind != "ca" : (g.desc == 'L' && isArrayKind(g.kind)));
            out.push_back({'N', g.prefix + " null", [k, table](Case&, Call& c) {
                               if (table) c.g[k].pp = nullptr;
                               else c.g[k].p = nullptr;
                           }});
        }
        int variant = 0;
        for (auto& f : strideFields(g)) {
            // 0, negative, and not a multiple of the element size (12 in 64f is one).
            const int bad[] = {0, -e, e == 4 ? 2 : 12};
            const int v = bad[variant++ % 3];
            out.push_back({f == "s0" ? '0' : 'b', g.prefix + " " + f + "=" + std::to_string(v),
                           [k, f, v](Case&, Call& c) { field(c.g[k], f) = v; }, g.isWritten()});
        }
        if (hasShift(g)) {
            for (int v : {-e, 2})
                out.push_back({'R', g.prefix + " roi=" + std::to_string(v),
                               [k, v](Case&, Call& c) { c.g[k].roi = v; }, g.isWritten()});
        }
    }
    return out;
}

// The status a call with these faults returns, by the member's order.
KelStatus expectedStatus(const Member& m, const std::vector<const Fault*>& faults, int count)
{
    for (char step : m.order) {
        for (const Fault* f : faults) {
            char s = f->step;
            bool hit = false;
            switch (step) {
            case 'N': hit = s == 'N'; break;
            case 'C': hit = s == 'C'; break;
            case 'Z': hit = s == 'Z'; break;
            case 'M': hit = s == 'M'; break;
            case 'B': hit = s == 'b' || s == '0'; break;
            case 'b': hit = s == 'b'; break;
            case '0': hit = s == '0' && count > 1; break;
            case 'R': hit = s == 'R'; break;
            case 'r': hit = s == 'R' && !f->written; break;
            case 'o': hit = s == 'R' && f->written; break;
            case 's': hit = (s == 'b' || s == '0') && !f->written; break;
            case 'd': hit = (s == 'b' || s == '0') && f->written; break;
            default: break;
            }
            if (!hit) continue;
            switch (step) {
            case 'N': return kelStsNullPointer;
            case 'C': return kelStsBadCount;
            case 'Z': return kelStsBadSize;
            case 'M': return kelStsSizeMismatch;
            case 'R':
            case 'r':
            case 'o': return kelStsBadRoiShift;
            default: return kelStsBadStride;
            }
        }
    }
    return kelStsNoErr;
}

class Checks : public ::testing::TestWithParam<std::string> {};

// Every fault alone and every pair of faults: the earlier step's status, and
// no byte of any operand touched.
TEST_P(Checks, FirstFailingStepInTheMembersOrder)
{
    const Member& m = member(GetParam());
    const int count = m.has("count") ? 2 : 1;
    auto sizes = validSizes(m, count);
    Case s = makeCase(m, sizes, Layout{Form::Random}, 11);
    auto faults = faultsOf(m, sizes);
    auto tryFaults = [&](std::vector<const Fault*> fs) {
        Call c = s.call();
        std::string what;
        for (auto* f : fs) {
            f->apply(s, c);
            what += f->what + "; ";
        }
        KelStatus want = expectedStatus(m, fs, c.size("count") > 0 ? c.size("count") : count);
        if (want == kelStsNoErr) return;  // the member has no such step: it runs
        auto before = s.snapshot();
        KelStatus got = m.invoke(c);
        EXPECT_EQ(got, want) << m.name << " (" << m.order << ") with " << what;
        std::string diff = compareUntouched(s, before);
        EXPECT_TRUE(diff.empty()) << diff << " with " << what;
    };
    for (auto& f : faults) tryFaults({&f});
    for (size_t a = 0; a < faults.size(); ++a)
        for (size_t b = a + 1; b < faults.size(); ++b)
            if (faults[a].step != faults[b].step) tryFaults({&faults[a], &faults[b]});
}

// A Stride0 fault with a count of 1 still fails where the member always tests
// Stride0, and passes where it only tests Stride0 for more than one object.
TEST_P(Checks, Stride0WithOneObject)
{
    const Member& m = member(GetParam());
    if (!m.has("count")) GTEST_SKIP();
    auto sizes = validSizes(m, 1);
    Case s = makeCase(m, sizes, Layout{Form::Random}, 12);
    for (auto& f : faultsOf(m, sizes)) {
        if (f.step != '0') continue;
        Call c = s.call();
        f.apply(s, c);
        KelStatus want = expectedStatus(m, {&f}, 1);
        if (want == kelStsNoErr) continue;
        EXPECT_EQ(m.invoke(c), want) << m.name << " " << f.what;
    }
}

// ---- serial or driver -------------------------------------------------------------

class Limits : public ::testing::TestWithParam<std::string> {};

// Just below the limit no thread count is asked for; at the limit the driver
// asks twice (its answer, then the team's num_threads).
TEST_P(Limits, DriverFromTheExactEstimate)
{
    const Member& m = member(GetParam());
    if (!m.array) GTEST_SKIP() << "single object: always serial";
    for (Form form : {Form::Packed, Form::Strided}) {
        const int32_t limit = form == Form::Packed ? m.limitPacked : m.limitStrided;
        int c = 1;
        while (limit != kSerialOnly && evalEstimate(m.estimate, validSizes(m, c)) < limit) ++c;
        if (limit == kSerialOnly) c = 4000;
        forceThreads(2);
        for (int count : {c - 1, c}) {
            if (count < 1) continue;
            auto sizes = validSizes(m, count);
            Case s = makeCase(m, sizes, Layout{form}, 21);
            if (form == Form::Strided) {
                // Make the call strided for sure: Stride2 twice the element size is
                // not what the layout gave, so only use layouts that are strided.
                bool strided = false;
                for (auto& op : s.ops)
                    if (!op.info.isSize() && op.args.s2 != 0 && op.args.s2 != m.elem) strided = true;
                if (!strided) continue;
            }
            const int32_t est = evalEstimate(m.estimate, sizes);
            const bool driver = limit != kSerialOnly && est >= limit;
            resetThreadQueries();
            s.run();  // a kernel that can fail may refuse an object: only the road counts here
            EXPECT_EQ(threadQueries(), driver ? 2 : 0)
                << m.name << (form == Form::Packed ? " packed" : " strided") << " estimate " << est << " limit "
                << limit;
        }
        forceThreads(0);
    }
}

// Arrays that reach the driver give the model's bits for every team size,
// with objects of the family's valid sizes and three times as large.
TEST_P(Limits, SameResultForEveryTeamSize)
{
    const Member& m = member(GetParam());
    const auto& model = family(m).model;
    if (!m.array || !model) GTEST_SKIP() << "single object, or a family that checks its teams itself";
    const int32_t limit = std::max(m.limitPacked, m.limitStrided);
    if (limit == kSerialOnly) GTEST_SKIP() << "always serial";
    for (int scale : {1, 3}) {
        auto sized = [&](int count) {
            Sizes s = validSizes(m, count);
            for (auto& [name, v] : s)
                if (name != "count") v *= scale;
            return s;
        };
        int c = 8;
        while (evalEstimate(m.estimate, sized(c)) < limit) c += c / 2;
        forEachTeamSize([&](int threads) {
            Case s = makeCase(m, sized(c), Layout{Form::Random}, 70 + threads + scale);
            resetThreadQueries();
            expectResult(s, model(s));
            EXPECT_EQ(threadQueries(), threads >= 2 ? 2 : 1) << m.name << " did not reach the driver";
        });
        if (HasFatalFailure()) return;
    }
}

std::string paramName(const ::testing::TestParamInfo<std::string>& p) { return p.param; }

INSTANTIATE_TEST_SUITE_P(All, Checks, ::testing::ValuesIn(memberNames(registeredFamilies())), paramName);
INSTANTIATE_TEST_SUITE_P(All, Limits, ::testing::ValuesIn(memberNames(registeredFamilies())), paramName);

// ---- documented cases -------------------------------------------------------------

TEST(Limits, AddMamBoundaries)
{
    // W*H*(2C+1): 2999 serial, 3000 driver when packed; 1999 and 2000 strided.
    EXPECT_EQ(queriesFor("kelmAdd_mam_32f", {{"width", 1}, {"height", 1}, {"count", 1499}}, Form::Packed), 0);
    EXPECT_EQ(queriesFor("kelmAdd_mam_32f", {{"width", 4}, {"height", 2}, {"count", 187}}, Form::Packed), 2);
    EXPECT_EQ(queriesFor("kelmAdd_mam_32f", {{"width", 1}, {"height", 1}, {"count", 999}}, Form::Strided), 0);
    EXPECT_EQ(queriesFor("kelmAdd_mam_32f", {{"width", 4}, {"height", 4}, {"count", 62}}, Form::Strided), 2);
}

TEST(Limits, AddVacBoundaries)
{
    // (2C+1)*L: 4800 serial, 4801 driver.
    EXPECT_EQ(queriesFor("kelmAdd_vac_32f", {{"len", 64}, {"count", 37}}, Form::Packed), 0);
    EXPECT_EQ(queriesFor("kelmAdd_vac_32f", {{"len", 1}, {"count", 2400}}, Form::Packed), 2);
}

TEST(Driver, OneThreadNeverForks)
{
    EXPECT_EQ(queriesFor("kelmAdd_mama_32f", {{"width", 4}, {"height", 4}, {"count", 500}}, Form::Packed, 1), 1);
}

TEST(Driver, FewerObjectsThanThreadsRunSerially)
{
    // Over the limit, but 7 objects for 8 threads: one question, no team.
    EXPECT_EQ(queriesFor("kelmAdd_mama_32f", {{"width", 20}, {"height", 20}, {"count", 7}}, Form::Packed, 8), 1);
}

TEST(Driver, WrappedEstimateRunsSerially)
{
    // 65536 * 32768 * 3 wraps to a negative estimate.  Rows overlap (Stride1
    // of one element) so the matrix fits in a few hundred kilobytes.
    const int w = 65536, h = 32768;
    std::vector<float> a(w + h), b(w + h), d(w + h);
    forceThreads(2);
    resetThreadQueries();
    KelStatus st = kelmAdd_mam_32f(a.data(), 4, 4, 4, b.data(), 4, 4, d.data(), 4, 4, 4, w, h, 1);
    forceThreads(0);
    EXPECT_EQ(st, kelStsNoErr);
    EXPECT_EQ(threadQueries(), 0);
}

// A call from inside a parallel region gets a team of one and the same result.
TEST(Driver, SerializedRegionComputesTheSame)
{
    const Member& m = member("kelmAdd_mama_64f");
    std::map<std::string, int> sizes{{"width", 5}, {"height", 5}, {"count", 400}};
    // Equal seeds give equal data in equal layouts.
    Case ref = makeCase(m, sizes, Layout{Form::Random}, 41);
    Case in[2] = {makeCase(m, sizes, Layout{Form::Random}, 41), makeCase(m, sizes, Layout{Form::Random}, 41)};
    forceThreads(1);
    ASSERT_EQ(ref.run(), kelStsNoErr);
    forceThreads(4);
    KelStatus st[2] = {-1, -1};
    omp_set_max_active_levels(1);
#pragma omp parallel num_threads(2)
    {
        int k = omp_get_thread_num();
        st[k] = in[k].run();
    }
    forceThreads(0);
    for (int k = 0; k < 2; ++k) {
        EXPECT_EQ(st[k], kelStsNoErr);
        EXPECT_EQ(in[k].ops[2].arena, ref.ops[2].arena);
    }
}

// ---- version ---------------------------------------------------------------------

TEST(Version, RecordOfThisBuild)
{
    const KelLibraryVersion* v = kelmGetLibVersion();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v, kelmGetLibVersion());
    EXPECT_EQ(v->major, 7);
    EXPECT_EQ(v->minor, 0);
    EXPECT_EQ(v->majorBuild, 205);
    EXPECT_EQ(v->build, 1012);
    EXPECT_EQ(std::memcmp(v->targetCpu, "q4\0\0", 4), 0);
    EXPECT_STREQ(v->name, "kelmq4-7.0.dll");
    EXPECT_STREQ(v->version, "7.0 build 205.85");
    EXPECT_STREQ(v->buildDate, "Nov 27 2011");
}

}  // namespace
