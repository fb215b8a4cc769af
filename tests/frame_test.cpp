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

// A family may give the driver a second kernel for a team's slices: the
// double-precision strided Cholesky kernel of an S array refuses 1e-20 on an
// order-6 diagonal when one call computes the whole array (below the limit,
// or in the driver's fallback for one thread or too few objects), and
// accepts it on a team's slices.
TEST(Driver, TeamKernelOnlyOnTeamSlices)
{
    const Member& m = member("kelmCholeskyDecomp_ma_64f");
    struct Run {
        int count, threads;
        KelStatus status;
    };
    for (auto r : {Run{2, 2, kelStsNotPositiveDefinite}, Run{60, 1, kelStsNotPositiveDefinite},
                   Run{60, 61, kelStsNotPositiveDefinite}, Run{60, 2, kelStsNoErr}, Run{60, 7, kelStsNoErr}}) {
        Case s;
        for (uint32_t seed = 1; s.m == nullptr || s.ops[0].args.s2 == 8; ++seed)
            s = makeCase(m, {{"size", 6}, {"count", r.count}}, Layout{Form::Strided}, seed);
        for (int i = 0; i < 6; ++i)
            for (int j = 0; j <= i; ++j) s.ops[0].set(r.count - 1, i, j, i != j ? 0.0 : i == 5 ? 1e-20 : 1.0);
        forceThreads(r.threads);
        resetThreadQueries();
        EXPECT_EQ(s.run(), r.status) << r.count << " objects, " << r.threads << " threads";
        forceThreads(0);
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
