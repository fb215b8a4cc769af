// What the generic tests (check orders, limits) need to know of a family.
// Each family's test file registers its hooks with KT_FAMILY; the generic
// tests then cover every member of every registered family.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "harness.h"

namespace kt {

using Sizes = std::map<std::string, int>;

struct FamilyHooks {
    // Stored shape of each operand group for given sizes.
    ShapeFn shape;
    // Valid sizes for a call with `count` objects; default: every size 3.
    std::function<Sizes(const Member&, int count)> sizes;
    // Size changes that make the operands not fit together (step M), each
    // applied alone to valid sizes.
    std::function<std::vector<Sizes>(const Member&, const Sizes& valid)> mismatches;
    // Fills the operands of a case with values the member accepts (for
    // instance well-conditioned matrices); default: random values.
    std::function<void(Case&, std::mt19937&)> fill;
    // The members these hooks serve, when a family is split over several
    // tables that register hooks of their own; default: all its members.
    std::function<bool(const Member&)> covers = nullptr;
    // The family's plain model: the dst elements a case should produce
    // (see expectResult).  With it the generic tests check that every team
    // size gives the model's bits; default: the family checks that itself.
    std::function<std::vector<double>(const Case&)> model = nullptr;
};

void registerFamily(const std::string& name, FamilyHooks hooks);
const FamilyHooks& family(const std::string& name);
// The hooks that serve member m: a registration whose `covers` accepts it,
// else one without `covers`.
const FamilyHooks& family(const Member& m);
std::vector<std::string> registeredFamilies();

// Shortcuts over the hooks.
ShapeFn shapeOf(const std::string& family);
Sizes validSizes(const Member& m, int count);
// A case of member m with valid data for its family.
Case makeCase(const Member& m, const Sizes& sizes, const Layout& lay, uint32_t seed, bool inPlace = false);

// Stored shape of a group of an element-wise member (Add, Sub): the result
// has `height` rows and `width` columns (or `len` elements); a transposed
// operand is stored with `height` columns.
Shape elementwiseShape(const Member& m, const GroupInfo& g, const Sizes& sizes);

// The layouts a model comparison runs through: packed, two random, strided.
std::vector<Form> everyForm();

// Each of `shapes` with each of `counts` for a member on arrays; alone
// (without count) for a member on single objects.
std::vector<Sizes> withCounts(const Member& m, const std::vector<Sizes>& shapes,
                              const std::vector<int>& counts = {1, 2, 5});

// Runs `check` on a case of m for all sizes of `grid` in every form of
// `forms`, seeds counting up from `seed`; stops at the first fatal failure.
// inPlace: dst shares the memory of a source (see makeSetup); a member
// without such a source fails the test.
void sweep(const Member& m, const std::vector<Sizes>& grid, const std::vector<Form>& forms, uint32_t seed,
           const std::function<void(Case&)>& check, bool inPlace = false);

// Runs the case and expects success, the dst elements equal to `expected`
// (computed before the call: in place, the sources are overwritten) and
// every other byte unchanged.
void expectResult(const Case& s, const std::vector<double>& expected);

// Runs `check` with the driver's thread count forced to 1, 2, 3 and 7 in
// turn (then back to the default); stops at the first fatal failure.
void forEachTeamSize(const std::function<void(int threads)>& check);

// Runs a case of member `name` in a team of `threads` and returns how often
// it asked for a thread count (0: serial; 2: the driver and its team).
int queriesFor(const std::string& name, const Sizes& sizes, Form form, int threads = 2);

// The bytes a call should leave behind: the arenas as they are when this is
// made, with the elements the call stores put in.  Elements of dst land in
// the memory of the source that an in-place case shares.
class Expected {
public:
    explicit Expected(const Case& s);
    // Element (n, r, c) of `group` holds these bits (its element size of them);
    // in a buf group this pins an element that the call may otherwise use freely.
    void put(int group, int n, int r, int c, uint64_t bits);
    // Runs the case: the status must be `status` and every byte as set up.
    void check(KelStatus status = kelStsNoErr) const;

private:
    const Case& s_;
    std::vector<std::vector<unsigned char>> want_;
    std::vector<std::pair<int, size_t>> pinned_;
};

// f(T{}) with T the member's element type.
template <class F>
auto byElem(const Member& m, const F& f)
{
    return m.elem == 4 ? f(float{}) : f(double{});
}

// Evaluates a work estimate formula in wrapping 32-bit arithmetic.
int32_t evalEstimate(const std::string& formula, const Sizes& sizes);

}  // namespace kt

#define KT_CAT2(a, b) a##b
#define KT_CAT(a, b) KT_CAT2(a, b)
// Registers a family's hooks at start-up: KT_FAMILY("Add", hooks).
#define KT_FAMILY(name, ...) \
    static const bool KT_CAT(kt_family_, __LINE__) = (kt::registerFamily(name, __VA_ARGS__), true)
