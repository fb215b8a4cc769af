#include "harness.h"

#include <omp.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <numeric>
#include <sstream>
#include <stdexcept>

// The library asks this definition for its thread count: the dynamic linker
// binds the library's calls to the executable's symbol.
namespace {
std::atomic<int> g_forced{0};
std::atomic<int> g_queries{0};
}  // namespace

extern "C" int ownGetNumThreads(void)
{
    g_queries.fetch_add(1);
    int n = g_forced.load();
    return n > 0 ? n : omp_get_max_threads();
}

// Likewise for the size of the largest cache.
namespace {
std::atomic<int> g_cacheSize{256 * 1024};
std::atomic<int> g_cacheQueries{0};
}  // namespace

extern "C" int kelGetMaxCacheSizeB(int* size)
{
    g_cacheQueries.fetch_add(1);
    if (size) *size = g_cacheSize.load();
    return 0;
}

namespace kt {

void forceThreads(int n) { g_forced = n; }
int threadQueries() { return g_queries.load(); }
void resetThreadQueries() { g_queries = 0; }
void setCacheSize(int bytes) { g_cacheSize = bytes; }
int cacheQueries() { return g_cacheQueries.load(); }
void resetCacheQueries() { g_cacheQueries = 0; }

// ---- registry -------------------------------------------------------------------

int Call::size(const char* name) const
{
    auto it = sizes.find(name);
    return it == sizes.end() ? 0 : it->second;
}

bool Member::has(const std::string& size) const
{
    for (auto& g : groups)
        if (g.isSize() && g.prefix == size) return true;
    return false;
}

const std::vector<Member>& registry()
{
    static const std::vector<Member> all = [] {
        std::vector<Member> out;
        for (int k = 0; k < kRawMemberCount; ++k) {
            const RawMember& r = kRawMembers[k];
            Member m{r.name, r.family, r.code, r.desc, r.elem, r.order, r.estimate, r.limitPacked, r.limitStrided,
                     r.array, {}, r.invoke, r.plain};
            for (int g = 0; g < r.groupCount; ++g)
                m.groups.push_back(GroupInfo{r.groups[g].kind, r.groups[g].prefix, r.groups[g].desc});
            out.push_back(std::move(m));
        }
        return out;
    }();
    return all;
}

const Member& member(const std::string& name)
{
    for (auto& m : registry())
        if (m.name == name) return m;
    throw std::runtime_error("no member " + name);
}

std::vector<std::string> memberNames(const std::vector<std::string>& families)
{
    std::vector<std::string> out;
    for (auto& m : registry())
        if (!m.plain && std::find(families.begin(), families.end(), m.family) != families.end())
            out.push_back(m.name);
    return out;
}

std::vector<std::string> splitCode(const std::string& code)
{
    std::vector<std::string> out;
    for (size_t i = 0; i < code.size();) {
        if (i + 1 < code.size() && code[i + 1] == 'a') {
            out.push_back(code.substr(i, 2));
            i += 2;
        } else {
            out.push_back(code.substr(i, 1));
            i += 1;
        }
    }
    return out;
}

// ---- values ---------------------------------------------------------------------

uint64_t toBits(double v, int elem)
{
    if (elem == 4) {
        float f = static_cast<float>(v);
        uint32_t b;
        std::memcpy(&b, &f, 4);
        return b;
    }
    uint64_t b;
    std::memcpy(&b, &v, 8);
    return b;
}

double randomValue(std::mt19937& rng, int elem)
{
    std::uniform_int_distribution<int> pick(0, 9);
    std::uniform_real_distribution<double> real(-8.0, 8.0);
    switch (pick(rng)) {
    case 0:
        return 0.0;
    case 1:
        return -0.0;
    case 2:
    case 3:
        return std::uniform_int_distribution<int>(-9, 9)(rng);
    default: {
        double v = real(rng);
        return elem == 4 ? static_cast<double>(static_cast<float>(v)) : v;
    }
    }
}

double Operand::get(int n, int r, int c) const
{
    if (constant) return value;
    const unsigned char* p = arena.data() + offsets[index(n, r, c)];
    if (elem == 4) {
        float f;
        std::memcpy(&f, p, 4);
        return f;
    }
    double d;
    std::memcpy(&d, p, 8);
    return d;
}

void Operand::set(int n, int r, int c, double v)
{
    if (constant) {
        value = elem == 4 ? static_cast<double>(static_cast<float>(v)) : v;
        args.val = value;
        return;
    }
    unsigned char* p = arena.data() + offsets[index(n, r, c)];
    if (elem == 4) {
        float f = static_cast<float>(v);
        std::memcpy(p, &f, 4);
    } else {
        std::memcpy(p, &v, 8);
    }
}

uint64_t Operand::bits(int n, int r, int c) const
{
    const unsigned char* p = arena.data() + offsets[index(n, r, c)];
    uint64_t b = 0;
    std::memcpy(&b, p, elem);
    return b;
}

// ---- layouts --------------------------------------------------------------------

namespace {

int gap(std::mt19937& rng, bool packed)
{
    if (packed) return 0;
    static const int gaps[] = {0, 1, 1, 2, 3};
    return gaps[std::uniform_int_distribution<int>(0, 4)(rng)];
}

// Strides for nested axes: extents in the order given, innermost first.
// Returns strides in bytes for the axes in the same order.
std::vector<int64_t> nestedStrides(const std::vector<int>& extents, int elem, std::mt19937& rng, bool tightInner,
                                   bool gapInner)
{
    std::vector<int64_t> s(extents.size());
    int64_t step = elem * (1 + (gapInner ? 1 + gap(rng, false) : gap(rng, tightInner)));
    for (size_t k = 0; k < extents.size(); ++k) {
        s[k] = step;
        step = step * extents[k] + elem * gap(rng, false);
    }
    return s;
}

const int kSlack = 64;  // guard bytes before and after everything

void fillArena(Operand& op, int64_t used, std::mt19937& rng)
{
    op.arena.resize(static_cast<size_t>(used + 2 * kSlack));
    for (auto& b : op.arena) b = static_cast<unsigned char>(rng());
}

}  // namespace

void layOut(Operand& op, const Layout& lay, std::mt19937& rng)
{
    const GroupInfo& g = op.info;
    const int e = op.elem;
    const int N = op.objects, R = op.rows, C = op.cols;
    op.offsets.assign(static_cast<size_t>(N) * R * C, 0);
    op.table.clear();
    op.args = CallGroup{};
    if (g.kind == "c") {
        op.constant = true;
        return;
    }
    const bool vec = g.kind == "v" || g.kind == "va" || g.kind == "ca";
    const bool array = g.kind.size() == 2 && g.kind[1] == 'a';
    const bool gapless = lay.form == Form::Gapless;
    bool packed = lay.form == Form::Packed || gapless;
    if (lay.form == Form::Random || lay.form == Form::Planes) packed = std::uniform_int_distribution<int>(0, 2)(rng) != 0;
    // Start at a 4-byte boundary that is often not 16-byte aligned.
    int64_t start = kSlack + 4 * std::uniform_int_distribution<int>(0, 3)(rng);
    const char d = g.desc;

    if (g.kind == "out" || g.kind == "buf" || g.kind == "piv" || g.kind == "cpiv") {
        // Plain results and the caller's scratch are arrays of their element
        // type, so aligned to it.
        start = (start + e - 1) / e * e;
        int64_t k = 0;
        for (auto& o : op.offsets) o = start + e * k++;
        fillArena(op, start + e * k, rng);
        op.args.p = op.arena.data() + start;
        return;
    }

    if (g.kind == "ca" && d != 'L') {
        // A row of constants, Stride0 apart.
        const int64_t s0 = lay.form == Form::Planes ? e : e * (1 + gap(rng, false));
        for (int n = 0; n < N; ++n) op.offsets[op.index(n, 0, 0)] = start + n * s0;
        fillArena(op, start + s0 * (N - 1) + e, rng);
        op.args.p = op.arena.data() + start;
        op.args.s0 = static_cast<int>(s0);
        return;
    }
    if (d == 'S' || (d == 'L' && !array)) {
        // Axes n, r, c nested in a random order: interleaved objects,
        // Stride2 above Stride1, or the usual row-major layout.
        int order[3] = {2, 1, 0};  // innermost first: c, r, n
        if (!packed && std::uniform_int_distribution<int>(0, 2)(rng) == 0) std::shuffle(order, order + 3, rng);
        const int ext[3] = {N, R, C};
        std::vector<int> extents = {ext[order[0]], ext[order[1]], ext[order[2]]};
        if (lay.form == Form::Planes && array) order[0] = 0, order[1] = 2, order[2] = 1;  // n, c, r
        auto st = nestedStrides(extents, e, rng, packed && order[0] == 2, lay.form == Form::Strided && order[0] == 2);
        if (gapless) st = {e, int64_t(e) * C, int64_t(e) * C * R};
        if (lay.form == Form::Planes && array) st = {e, int64_t(e) * N, int64_t(e) * N * C};
        int64_t stride[3];
        for (int k = 0; k < 3; ++k) stride[order[k]] = st[k];
        if (packed && !(lay.form == Form::Planes && array)) stride[2] = e;
        if (vec) stride[1] = 0;
        int64_t last = 0;
        for (int n = 0; n < N; ++n)
            for (int r = 0; r < R; ++r)
                for (int c = 0; c < C; ++c) {
                    int64_t o = start + n * stride[0] + r * stride[1] + c * stride[2];
                    op.offsets[op.index(n, r, c)] = o;
                    last = std::max(last, o + e);
                }
        fillArena(op, last, rng);
        op.args.p = op.arena.data() + start;
        op.args.s0 = array ? static_cast<int>(stride[0]) : 0;
        op.args.s1 = static_cast<int>(stride[1]);
        op.args.s2 = static_cast<int>(stride[2]);
        return;
    }
    if (d == 'L') {
        // Each object in a place of its own, in shuffled order.
        const int roi = e * std::uniform_int_distribution<int>(0, 3)(rng);
        int64_t s2 = e * (1 + (lay.form == Form::Strided ? 1 : gap(rng, packed))), s1 = 0;
        if (gapless) {
            // Objects one right after another, in order.
            const int64_t size = int64_t(e) * R * C;
            for (int n = 0; n < N; ++n)
                for (int r = 0; r < R; ++r)
                    for (int c = 0; c < C; ++c)
                        op.offsets[op.index(n, r, c)] = start + roi + n * size + (r * C + c) * e;
            fillArena(op, start + roi + N * size, rng);
            op.table.resize(N);
            for (int n = 0; n < N; ++n) op.table[n] = op.arena.data() + start + n * size;
            op.args.pp = op.table.data();
            op.args.roi = roi;
            op.args.s1 = vec ? 0 : static_cast<int>(e * C);
            op.args.s2 = static_cast<int>(e);
            return;
        }
        bool colMajor = !packed && std::uniform_int_distribution<int>(0, 3)(rng) == 0;
        int64_t objBytes;
        if (colMajor) {
            s1 = s2;
            s2 = s1 * R + e * gap(rng, false);
            objBytes = s2 * (C - 1) + s1 * (R - 1) + e;
        } else {
            s1 = s2 * C + e * gap(rng, false);
            objBytes = s1 * (R - 1) + s2 * (C - 1) + e;
        }
        if (vec) s1 = 0, objBytes = s2 * (C - 1) + e;
        std::vector<int> perm(N);
        std::iota(perm.begin(), perm.end(), 0);
        std::shuffle(perm.begin(), perm.end(), rng);
        std::vector<int64_t> objStart(N);
        int64_t pos = start + roi;
        for (int k = 0; k < N; ++k) {
            objStart[perm[k]] = pos;
            pos += objBytes + e * gap(rng, false);
            pos = (pos + 3) & ~int64_t(3);
        }
        for (int n = 0; n < N; ++n)
            for (int r = 0; r < R; ++r)
                for (int c = 0; c < C; ++c) op.offsets[op.index(n, r, c)] = objStart[n] + r * s1 + c * s2;
        fillArena(op, pos, rng);
        op.table.resize(N);
        for (int n = 0; n < N; ++n) op.table[n] = op.arena.data() + objStart[n] - roi;
        op.args.pp = op.table.data();
        op.args.roi = roi;
        op.args.s1 = static_cast<int>(s1);
        op.args.s2 = static_cast<int>(s2);
        return;
    }
    // P: one table entry per stored element position; objects Stride0 apart.
    {
        const int P = R * C;
        const int roi = e * std::uniform_int_distribution<int>(0, 3)(rng);
        std::vector<int> perm(P);
        std::iota(perm.begin(), perm.end(), 0);
        std::shuffle(perm.begin(), perm.end(), rng);
        // Packed and gapless tables keep the positions in order: a grid, as
        // for the fields of an array of structures.
        if (lay.form == Form::Packed || gapless) std::iota(perm.begin(), perm.end(), 0);
        std::vector<int64_t> slot(P);
        int64_t s0;
        int64_t last;
        if (lay.form != Form::Planes && std::uniform_int_distribution<int>(0, 1)(rng)) {
            // Blocks: object n is a block of shuffled slots.
            s0 = int64_t(e) * P + e * gap(rng, false);
            for (int p = 0; p < P; ++p) slot[p] = start + roi + int64_t(e) * perm[p];
            last = start + roi + s0 * N + e;
        } else {
            // Planes: each position is a run of objects.
            const bool tight = lay.form == Form::Planes;
            s0 = tight ? e : e * (1 + gap(rng, false));
            int64_t plane = s0 * N + (tight ? 0 : e * gap(rng, false));
            for (int p = 0; p < P; ++p) slot[p] = start + roi + plane * perm[p];
            last = start + roi + plane * P + e;
        }
        for (int n = 0; n < N; ++n)
            for (int p = 0; p < P; ++p) op.offsets[static_cast<size_t>(n) * P + p] = slot[p] + n * s0;
        fillArena(op, last, rng);
        op.table.resize(P);
        for (int p = 0; p < P; ++p) op.table[p] = op.arena.data() + slot[p] - roi;
        op.args.pp = op.table.data();
        op.args.roi = roi;
        op.args.s0 = array ? static_cast<int>(s0) : 0;
    }
}

// ---- setups ---------------------------------------------------------------------

Call Case::call() const
{
    Call c;
    c.sizes = sizes;
    for (auto& op : ops) c.g.push_back(op.args);
    return c;
}

Case::Case(const Case& other) { *this = other; }

Case& Case::operator=(const Case& other)
{
    if (this == &other) return *this;
    m = other.m, ops = other.ops, sizes = other.sizes, inPlaceOf = other.inPlaceOf, forked = other.forked;
    const int dst = m ? dstGroup(*m) : -1;
    for (size_t k = 0; k < ops.size(); ++k) {
        // In place, dst's pointers lead into the memory of the source it shares.
        const size_t h = inPlaceOf >= 0 && static_cast<int>(k) == dst ? size_t(inPlaceOf) : k;
        const unsigned char* from = other.ops[h].arena.data();
        unsigned char* to = ops[h].arena.data();
        auto rebase = [&](void* q) { return static_cast<void*>(to + (static_cast<unsigned char*>(q) - from)); };
        Operand& op = ops[k];
        if (op.args.p) op.args.p = rebase(op.args.p);
        if (op.args.pp) {
            for (auto& t : op.table) t = rebase(t);
            op.args.pp = op.table.data();
        }
    }
    return *this;
}

KelStatus Case::run() const
{
    const int before = threadQueries();
    const KelStatus st = m->invoke(call());
    forked = threadQueries() - before >= 2;
    return st;
}

std::vector<std::vector<unsigned char>> Case::snapshot() const
{
    std::vector<std::vector<unsigned char>> out;
    for (auto& op : ops) out.push_back(op.arena);
    return out;
}

Case makeSetup(const Member& m, const std::map<std::string, int>& sizes, const ShapeFn& shape, const Layout& lay,
                uint32_t seed, bool inPlace)
{
    Case s;
    s.m = &m;
    s.sizes = sizes;
    std::mt19937 rng(seed);
    for (auto& g : m.groups) {
        Operand op;
        op.info = g;
        // Pivot tables hold 32-bit integers whatever the element type; they
        // start as zeros, families fill them with what they need.
        const bool ints = g.kind == "piv" || g.kind == "cpiv";
        op.elem = ints ? 4 : m.elem;
        if (!g.isSize()) {
            Shape sh = shape(m, g, sizes);
            op.objects = sh.objects, op.rows = sh.rows, op.cols = sh.cols;
            Layout l = lay;
            l.seed = static_cast<uint32_t>(rng());
            std::mt19937 r2(l.seed);
            layOut(op, l, r2);
            for (int n = 0; n < op.objects; ++n)
                for (int r = 0; r < op.rows; ++r)
                    for (int c = 0; c < op.cols; ++c) {
                        if (ints) std::memset(op.arena.data() + op.offsets[op.index(n, r, c)], 0, 4);
                        else op.set(n, r, c, randomValue(rng, m.elem));
                    }
        }
        s.ops.push_back(std::move(op));
    }
    if (inPlace) {
        int dst = -1;
        for (size_t k = 0; k < m.groups.size(); ++k)
            if (m.groups[k].isWritten()) dst = static_cast<int>(k);
        for (size_t k = 0; dst >= 0 && k < m.groups.size(); ++k) {
            const Operand& src = s.ops[k];
            const Operand& d = s.ops[dst];
            if (static_cast<int>(k) == dst || src.constant || m.groups[k].isSize()) continue;
            bool sameKind = (src.info.kind == "ma" && d.info.kind == "ma") || (src.info.kind == "va" && d.info.kind == "va") ||
                            (src.info.kind == "m" && d.info.kind == "m") || (src.info.kind == "v" && d.info.kind == "v");
            const bool sameShape = src.objects == d.objects && src.rows == d.rows && src.cols == d.cols;
            if (!sameKind || !sameShape || src.info.desc != d.info.desc) continue;
            Operand copy = src;
            copy.info = d.info;
            s.ops[dst] = std::move(copy);
            s.inPlaceOf = static_cast<int>(k);
            break;
        }
    }
    return s;
}

std::string describe(const Case& s)
{
    std::ostringstream o;
    o << s.m->name << " sizes:";
    for (auto& kv : s.sizes) o << ' ' << kv.first << '=' << kv.second;
    for (auto& op : s.ops) {
        if (op.info.isSize()) continue;
        o << " | " << op.info.prefix << '(' << op.info.kind << op.info.desc << ") s0=" << op.args.s0
          << " s1=" << op.args.s1 << " s2=" << op.args.s2 << " roi=" << op.args.roi;
    }
    if (s.inPlaceOf >= 0) o << " in-place";
    return o.str();
}

}  // namespace kt

namespace kt {

int dstGroup(const Member& m)
{
    for (size_t k = 0; k < m.groups.size(); ++k)
        if (m.groups[k].isWritten()) return static_cast<int>(k);
    return -1;
}

std::string compareAfter(const Case& s, const std::vector<std::vector<unsigned char>>& before,
                         const std::vector<double>& expected)
{
    std::vector<uint64_t> bits(expected.size());
    const int elem = s.ops[dstGroup(*s.m)].elem;
    for (size_t k = 0; k < expected.size(); ++k) bits[k] = toBits(expected[k], elem);
    return compareAfterBits(s, before, bits);
}

std::string compareAfterBits(const Case& s, const std::vector<std::vector<unsigned char>>& before,
                             const std::vector<uint64_t>& expected, const std::vector<std::pair<int, size_t>>& pinned)
{
    auto want = before;
    // A serial call may use the caller's scratch as it likes.
    for (size_t g = 0; g < s.ops.size() && !s.forked; ++g) {
        const Operand& op = s.ops[g];
        if (op.info.kind != "buf") continue;
        for (size_t k = 0; k < op.offsets.size(); ++k) {
            if (std::find(pinned.begin(), pinned.end(), std::make_pair(static_cast<int>(g), k)) != pinned.end())
                continue;
            std::memcpy(want[g].data() + op.offsets[k], op.arena.data() + op.offsets[k], op.elem);
        }
    }
    const int d = dstGroup(*s.m);
    const int home = s.inPlaceOf >= 0 ? s.inPlaceOf : d;
    for (size_t k = 0; k < expected.size(); ++k) {
        const Operand& dst = s.ops[d];
        uint64_t b = expected[k];
        std::memcpy(want[home].data() + dst.offsets[k], &b, dst.elem);
    }
    for (size_t g = 0; g < s.ops.size(); ++g) {
        if (s.inPlaceOf >= 0 && static_cast<int>(g) == d) continue;  // its memory is home's
        const auto& got = s.ops[g].arena;
        for (size_t i = 0; i < got.size(); ++i) {
            if (got[i] != want[g][i]) {
                std::ostringstream o;
                o << "group " << s.ops[g].info.prefix << " byte " << i << ": got " << int(got[i]) << " want "
                  << int(want[g][i]);
                // Name the element if the byte belongs to one.
                for (size_t k = 0; k < s.ops[g].offsets.size(); ++k)
                    if (i >= size_t(s.ops[g].offsets[k]) && i < size_t(s.ops[g].offsets[k] + s.ops[g].elem))
                        o << " (element " << k << ")";
                return o.str() + " in " + describe(s);
            }
        }
    }
    return "";
}

std::string compareUntouched(const Case& s, const std::vector<std::vector<unsigned char>>& before)
{
    for (size_t g = 0; g < s.ops.size(); ++g)
        if (s.ops[g].arena != before[g]) return "group " + s.ops[g].info.prefix + " was written in " + describe(s);
    return "";
}

}  // namespace kt

namespace kt {

bool mayWrite(const GroupInfo& g) { return g.isWritten() || g.kind == "piv" || g.kind == "buf"; }

std::string compareOutsideWritten(const Case& s, const std::vector<std::vector<unsigned char>>& before)
{
    auto want = before;
    for (size_t g = 0; g < s.ops.size(); ++g) {
        const Operand& op = s.ops[g];
        if (op.info.isSize() || op.constant || !mayWrite(op.info)) continue;
        const size_t home = s.inPlaceOf >= 0 && static_cast<int>(g) == dstGroup(*s.m) ? s.inPlaceOf : g;
        for (int64_t o : op.offsets)
            std::memcpy(want[home].data() + o, s.ops[home].arena.data() + o, op.elem);
    }
    return compareAfterBits(s, want, {});
}

namespace {
// Pages for one operand slot of runPlaced, kept from call to call (mapping
// and protecting pages for each call would cost more than the calls): a
// usable run with a page at one end that is closed, or open for the
// reference runs.
class Region {
public:
    Region(Edge edge, bool protect) : edge_(edge), protect_(protect) {}
    ~Region() { release(); }
    // Where `bytes` bytes start so that they meet the edge page.
    char* fit(size_t bytes)
    {
        if (bytes > usable_) grow(bytes);
        return edge_ == Edge::After ? base_ + usable_ - bytes : base_ + page_;
    }

private:
    void release()
    {
        if (base_) munmap(base_, usable_ + page_);
        base_ = nullptr;
    }
    void grow(size_t bytes)
    {
        release();
        page_ = static_cast<size_t>(sysconf(_SC_PAGESIZE));
        usable_ = std::max<size_t>(16 * page_, (bytes + page_ - 1) / page_ * page_);
        void* p = mmap(nullptr, usable_ + page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (p == MAP_FAILED) throw std::runtime_error("mmap failed");
        base_ = static_cast<char*>(p);
        if (protect_) mprotect(edge_ == Edge::After ? base_ + usable_ : base_, page_, PROT_NONE);
    }
    Edge edge_;
    bool protect_;
    char* base_ = nullptr;
    size_t usable_ = 0, page_ = 0;
};

Region& regionFor(size_t slot, Edge edge, bool protect)
{
    thread_local std::vector<std::unique_ptr<Region>> regions;
    const size_t k = slot * 4 + (edge == Edge::After ? 0 : 2) + (protect ? 1 : 0);
    if (regions.size() <= k) regions.resize(k + 1);
    if (!regions[k]) regions[k] = std::make_unique<Region>(edge, protect);
    return *regions[k];
}
}  // namespace

KelStatus runPlaced(Case& s, Edge edge, bool protect)
{
    const int dst = dstGroup(*s.m);
    auto homeOf = [&](size_t k) { return s.inPlaceOf >= 0 && static_cast<int>(k) == dst ? size_t(s.inPlaceOf) : k; };
    // Where arena byte 0 of each operand would lie, and the bytes placed.
    std::vector<char*> at(s.ops.size(), nullptr);
    std::vector<size_t> first(s.ops.size(), 0), last(s.ops.size(), 0);
    for (size_t k = 0; k < s.ops.size(); ++k) {
        const Operand& op = s.ops[k];
        if (op.info.isSize() || op.constant || homeOf(k) != k || op.offsets.empty()) continue;
        int64_t lo = INT64_MAX, hi = 0;
        for (int64_t o : op.offsets) lo = std::min(lo, o), hi = std::max(hi, o + op.elem);
        first[k] = edge == Edge::Before ? size_t(lo) : 0;
        last[k] = edge == Edge::After ? size_t(hi) : op.arena.size();
        char* start = regionFor(k, edge, protect).fit(last[k] - first[k]);
        std::memcpy(start, op.arena.data() + first[k], last[k] - first[k]);
        at[k] = start - first[k];
    }
    Case g = s;
    auto moved = [&](size_t k, const void* q) {
        const size_t h = homeOf(k);
        const char* from = reinterpret_cast<const char*>(g.ops[h].arena.data());
        return static_cast<void*>(at[h] + (static_cast<const char*>(q) - from));
    };
    for (size_t k = 0; k < g.ops.size(); ++k) {
        Operand& op = g.ops[k];
        if (op.info.isSize() || op.constant || op.offsets.empty()) continue;
        if (op.args.p) op.args.p = moved(k, op.args.p);
        if (op.args.pp) {
            for (auto& t : op.table) t = moved(k, t);
            op.args.pp = op.table.data();
        }
    }
    const KelStatus st = g.run();
    s.forked = g.forked;
    for (size_t k = 0; k < s.ops.size(); ++k)
        if (at[k]) std::memcpy(s.ops[k].arena.data() + first[k], at[k] + first[k], last[k] - first[k]);
    return st;
}

}  // namespace kt
