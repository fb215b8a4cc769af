#include "families.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace kt {

namespace {
int objectsOf(const GroupInfo& g, const Sizes& sizes)
{
    const bool array = g.kind.size() == 2 && g.kind[1] == 'a';
    auto it = sizes.find("count");
    return array && it != sizes.end() ? it->second : 1;
}
int sizeOr(const std::map<std::string, int>& s, const char* name, int dflt)
{
    auto it = s.find(name);
    return it == s.end() ? dflt : it->second;
}
}  // namespace

Shape elementwiseShape(const Member&, const GroupInfo& g, const Sizes& sizes)
{
    const int n = objectsOf(g, sizes);
    const int w = sizeOr(sizes, "width", 1), h = sizeOr(sizes, "height", 1), len = sizeOr(sizes, "len", 1);
    if (g.kind == "c" || g.kind == "ca") return {n, 1, 1};
    if (g.kind == "v" || g.kind == "va") return {n, 1, len};
    if (g.kind == "t" || g.kind == "ta") return {n, w, h};
    return {n, h, w};
}

namespace {
std::map<std::string, std::vector<FamilyHooks>>& families()
{
    static std::map<std::string, std::vector<FamilyHooks>> all;
    return all;
}
}  // namespace

void registerFamily(const std::string& name, FamilyHooks hooks) { families()[name].push_back(std::move(hooks)); }

const FamilyHooks& family(const std::string& name)
{
    auto it = families().find(name);
    if (it == families().end()) throw std::runtime_error("no test hooks for family " + name);
    return it->second.front();
}

const FamilyHooks& family(const Member& m)
{
    auto it = families().find(m.family);
    if (it == families().end()) throw std::runtime_error("no test hooks for family " + m.family);
    const FamilyHooks* fallback = nullptr;
    for (auto& h : it->second) {
        if (h.covers && h.covers(m)) return h;
        if (!h.covers && !fallback) fallback = &h;
    }
    if (!fallback) throw std::runtime_error("no test hooks for member " + m.name);
    return *fallback;
}

std::vector<std::string> registeredFamilies()
{
    std::vector<std::string> out;
    for (auto& kv : families()) out.push_back(kv.first);
    return out;
}

ShapeFn shapeOf(const std::string& name) { return family(name).shape; }

Sizes validSizes(const Member& m, int count)
{
    const FamilyHooks& h = family(m);
    if (h.sizes) return h.sizes(m, count);
    Sizes s;
    for (auto& g : m.groups)
        if (g.isSize()) s[g.prefix] = g.prefix == "count" ? count : 3;
    return s;
}

Case makeCase(const Member& m, const Sizes& sizes, const Layout& lay, uint32_t seed, bool inPlace)
{
    const FamilyHooks& h = family(m);
    Case c = makeSetup(m, sizes, h.shape, lay, seed, inPlace);
    if (h.fill) {
        std::mt19937 rng(seed * 7919u + 1);
        h.fill(c, rng);
    }
    return c;
}

std::vector<Form> everyForm() { return {Form::Packed, Form::Random, Form::Random, Form::Strided, Form::Gapless}; }

std::vector<Sizes> withCounts(const Member& m, const std::vector<Sizes>& shapes, const std::vector<int>& counts)
{
    std::vector<Sizes> out;
    for (int c : m.has("count") ? counts : std::vector<int>{0})
        for (Sizes s : shapes) {
            if (c > 0) s["count"] = c;
            out.push_back(s);
        }
    return out;
}

void sweep(const Member& m, const std::vector<Sizes>& grid, const std::vector<Form>& forms, uint32_t seed,
           const std::function<void(Case&)>& check, bool inPlace)
{
    for (auto& sizes : grid)
        for (Form form : forms) {
            Case s = makeCase(m, sizes, Layout{form}, seed++, inPlace);
            ASSERT_TRUE(!inPlace || s.inPlaceOf >= 0) << describe(s) << ": no source to share dst's memory";
            check(s);
            if (::testing::Test::HasFatalFailure()) return;
        }
}

void expectResult(const Case& s, const std::vector<double>& expected)
{
    auto before = s.snapshot();
    ASSERT_EQ(s.run(), kelStsNoErr) << describe(s);
    std::string diff = compareAfter(s, before, expected);
    ASSERT_TRUE(diff.empty()) << diff;
}

void forEachTeamSize(const std::function<void(int threads)>& check)
{
    for (int threads : {1, 2, 3, 7}) {
        forceThreads(threads);
        check(threads);
        forceThreads(0);
        if (::testing::Test::HasFatalFailure()) return;
    }
}

int forkingCount(const Member& m)
{
    if (!m.array) return 0;
    const int32_t limit = std::max(m.limitPacked, m.limitStrided);
    if (limit == kSerialOnly) return 0;
    int c = 8;
    while (evalEstimate(m.estimate, validSizes(m, c)) < limit && c < (1 << 20)) c += c / 2;
    return c;
}

int queriesFor(const std::string& name, const Sizes& sizes, Form form, int threads)
{
    Case s = makeCase(member(name), sizes, Layout{form}, 31);
    forceThreads(threads);
    resetThreadQueries();
    const KelStatus st = s.run();
    forceThreads(0);
    EXPECT_EQ(st, kelStsNoErr);
    return threadQueries();
}

Expected::Expected(const Case& s) : s_(s), want_(s.snapshot()) {}

void Expected::put(int group, int n, int r, int c, uint64_t bits)
{
    const Operand& op = s_.ops[group];
    const int home = group == dstGroup(*s_.m) && s_.inPlaceOf >= 0 ? s_.inPlaceOf : group;
    std::memcpy(want_[home].data() + op.offsets[op.index(n, r, c)], &bits, op.elem);
    if (op.info.kind == "buf") pinned_.emplace_back(group, static_cast<size_t>(op.index(n, r, c)));
}

void Expected::check(KelStatus status) const
{
    ASSERT_EQ(s_.run(), status) << describe(s_);
    const std::string diff = compareAfterBits(s_, want_, {}, pinned_);
    ASSERT_TRUE(diff.empty()) << diff;
}

// ---- argument faults ------------------------------------------------------------

namespace {
bool isArrayKind(const std::string& k) { return k.size() == 2 && k[1] == 'a'; }
}  // namespace

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

namespace {
bool hasShift(const GroupInfo& g)
{
    if (g.kind == "ca") return g.desc == 'L';
    if (g.kind == "c" || g.kind == "out" || g.kind == "buf" || g.kind == "piv" || g.kind == "cpiv" || g.isSize())
        return false;
    return g.desc == 'P' || (g.desc == 'L' && isArrayKind(g.kind));
}

}  // namespace

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

bool isCheckStatus(KelStatus st)
{
    return st == kelStsNullPointer || st == kelStsBadCount || st == kelStsBadSize || st == kelStsSizeMismatch ||
           st == kelStsBadStride || st == kelStsBadRoiShift;
}

// Recursive descent over + * ( ) and names, in uint32 arithmetic.
namespace {
struct Parser {
    const std::string& f;
    const std::map<std::string, int>& v;
    size_t i = 0;
    void skip()
    {
        while (i < f.size() && f[i] == ' ') ++i;
    }
    uint32_t atom()
    {
        skip();
        if (f[i] == '(') {
            ++i;
            uint32_t x = sum();
            skip();
            ++i;  // ')'
            return x;
        }
        size_t j = i;
        while (j < f.size() && std::isalnum(static_cast<unsigned char>(f[j]))) ++j;
        std::string tok = f.substr(i, j - i);
        i = j;
        if (std::isdigit(static_cast<unsigned char>(tok[0]))) return static_cast<uint32_t>(std::stoul(tok));
        static const std::map<std::string, std::string> names = {
            {"W", "width"}, {"H", "height"}, {"L", "len"}, {"N", "size"}, {"C", "count"},
            {"W1", "src1Width"}, {"H1", "src1Height"}, {"W2", "src2Width"}, {"H2", "src2Height"},
            {"L2", "src2Len"}, {"L3", "src3Len"}};
        auto it = v.find(names.at(tok));
        return it == v.end() ? 1u : static_cast<uint32_t>(it->second);
    }
    uint32_t product()
    {
        uint32_t x = atom();
        for (skip(); i < f.size() && f[i] == '*'; skip()) {
            ++i;
            x *= atom();
        }
        return x;
    }
    uint32_t sum()
    {
        uint32_t x = product();
        for (skip(); i < f.size() && (f[i] == '+' || f[i] == '-'); skip()) {
            char op = f[i++];
            uint32_t y = product();
            x = op == '+' ? x + y : x - y;
        }
        return x;
    }
};
}  // namespace

int32_t evalEstimate(const std::string& formula, const Sizes& sizes)
{
    Parser p{formula, sizes};
    return static_cast<int32_t>(p.sum());
}

}  // namespace kt
