// Test harness: the member registry, operands laid out in memory in every
// description, and a call that can be checked byte for byte.
//
// An Operand holds logical data (objects x stored rows x stored columns) and
// places it in an arena of random bytes according to a Layout: S with random
// strides, gaps and interleaving, L with a shuffled object table, P with a
// shuffled element table (in order, a grid, for Packed and Gapless).  After a
// call every byte of every arena is compared with what it should be: the
// result elements hold the expected values and every other byte, gaps and
// guard bytes included, is unchanged.
#pragma once

#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "kelm.h"

namespace kt {

constexpr int32_t kSerialOnly = INT32_MAX;

// ---- registry -----------------------------------------------------------------

struct GroupInfo {
    std::string kind;    // ma ta m t va v c ca out buf piv cpiv, or "size"
    std::string prefix;  // src1, dst, val, ... or the size's name
    char desc;           // S L P, '-' for sizes
    bool isSize() const { return kind == "size"; }
    bool isWritten() const { return prefix.rfind("dst", 0) == 0; }
};

struct CallGroup {
    void* p = nullptr;
    void* const* pp = nullptr;
    int s0 = 0, s1 = 0, s2 = 0, roi = 0;
    double val = 0;
};

struct Call {
    std::vector<CallGroup> g;
    std::map<std::string, int> sizes;
    int size(const char* name) const;
};

struct Member {
    std::string name, family, code, desc;
    int elem;               // 4 or 8
    std::string order;      // check steps
    std::string estimate;   // formula, empty for single objects
    int32_t limitPacked, limitStrided;
    bool array;
    std::vector<GroupInfo> groups;
    KelStatus (*invoke)(const Call&);
    bool plain;             // spells its own prototype: no call, no generic tests

    bool has(const std::string& size) const;
};

// The generated registry: constant rows, turned into Members on first use.
struct RawGroup {
    const char* kind;
    const char* prefix;
    char desc;
};
struct RawMember {
    const char *name, *family, *code, *desc;
    int elem;
    const char *order, *estimate;
    int32_t limitPacked, limitStrided;
    bool array;
    const RawGroup* groups;
    int groupCount;
    KelStatus (*invoke)(const Call&);
    bool plain;
};
extern const RawMember kRawMembers[];
extern const int kRawMemberCount;

const std::vector<Member>& registry();
const Member& member(const std::string& name);
// Members of the families that have a call (plain members left out).
std::vector<std::string> memberNames(const std::vector<std::string>& families);

// Operand letters of a code in operation order: "tama" -> {"ta", "ma"}.
std::vector<std::string> splitCode(const std::string& code);

// ---- thread counter (interposed ownGetNumThreads) ----------------------------

// Answer of the test's ownGetNumThreads; 0 means the OpenMP default.
void forceThreads(int n);
int threadQueries();   // calls since the last reset
void resetThreadQueries();

// ---- cache size (interposed kelGetMaxCacheSizeB) -------------------------------

// Answer of the test's kelGetMaxCacheSizeB in bytes, 0 meaning "unknown";
// 256 KiB until a test sets another.
void setCacheSize(int bytes);
int cacheQueries();    // calls since the last reset
void resetCacheQueries();

// ---- layouts and operands -------------------------------------------------------

// Planes: the objects of every S and P array one element apart (element
// (j, i) of consecutive objects side by side), rows and positions without
// gaps; L arrays and single objects as Random.
// Gapless: packed, and each object right after the last (rows too).
enum class Form { Random, Packed, Strided, Planes, Gapless };

struct Layout {
    Form form = Form::Random;
    uint32_t seed = 1;
};

// One operand group of a call, with its memory.
struct Operand {
    GroupInfo info;
    int elem = 4;
    int objects = 1, rows = 1, cols = 1;  // stored shape
    bool constant = false;                // c
    std::vector<unsigned char> arena;     // all bytes the operand may touch
    std::vector<int64_t> offsets;         // byte offset of (n, r, c) in arena
    std::vector<void*> table;             // L or P table
    CallGroup args;
    double value = 0;                     // c

    int64_t index(int n, int r, int c) const { return (int64_t(n) * rows + r) * cols + c; }
    double get(int n, int r, int c) const;          // from the arena
    void set(int n, int r, int c, double v);        // into the arena
    uint64_t bits(int n, int r, int c) const;
};

// Lays out an operand of the given stored shape.
void layOut(Operand& op, const Layout& lay, std::mt19937& rng);

// Random element values: small integers and fractions, both signs.
double randomValue(std::mt19937& rng, int elem);

// Everything one call needs.  Operands are in argument order, sizes by name.
struct Case {
    const Member* m = nullptr;
    std::vector<Operand> ops;  // parallel to m->groups (sizes have empty ops)
    std::map<std::string, int> sizes;
    int inPlaceOf = -1;        // dst shares the memory of this group
    // Set by run(): the call formed a team (its driver asked for a thread
    // count twice), so it worked in the team's scratch, not in a buf group.
    mutable bool forked = false;

    Case() = default;
    // A copy owns its memory: its pointers and tables lead into its own arenas.
    Case(const Case& other);
    Case& operator=(const Case& other);
    Case(Case&&) = default;
    Case& operator=(Case&&) = default;

    Call call() const;
    KelStatus run() const;
    // Arenas as they are now (dst arena omitted when in place).
    std::vector<std::vector<unsigned char>> snapshot() const;
};

// Stored shape of group g for a call of the given sizes; a family hook.
struct Shape {
    int objects, rows, cols;
};
using ShapeFn = std::function<Shape(const Member&, const GroupInfo&, const std::map<std::string, int>&)>;

// Builds a setup: every group laid out with `lay` (each with its own
// randomness), values random.  inPlace: dst takes the memory of the first
// array source of its own kind and description.
Case makeSetup(const Member& m, const std::map<std::string, int>& sizes, const ShapeFn& shape, const Layout& lay,
                uint32_t seed, bool inPlace = false);

// ---- placement beside pages that may not be touched ----------------------------

// Which end of every operand meets a page that may not be touched.
enum class Edge { After, Before };

// Runs the case with every operand copied into pages of its own, placed so
// that its last named element ends right before such a page (After) or its
// first named element starts right after one (Before).  With `protect` false
// the placement is the same but the page stays open: a reference run at the
// same addresses modulo the page, for kernels whose path depends on them.
// The arenas hold what the call left; bytes cut off by the page are kept.
KelStatus runPlaced(Case& s, Edge edge, bool protect = true);

// Groups a call may write: its dst groups, pivot tables and scratch.
bool mayWrite(const GroupInfo& g);

// Every byte is as in `before` but for the elements of the groups the call
// may write; empty when so, else where it is not.
std::string compareOutsideWritten(const Case& s, const std::vector<std::vector<unsigned char>>& before);

// Element size helpers.
uint64_t toBits(double v, int elem);
std::string describe(const Case& s);

}  // namespace kt

namespace kt {

// Index of the written group of a member (its dst), -1 if none.
int dstGroup(const Member& m);

// Compares every arena with `before`, except that the dst elements must hold
// `expected` (indexed like the dst operand's elements, in the element type).
// The elements of a buf group (the caller's scratch) may hold anything after
// a serial call, but for those named in `pinned` (group, element index); after
// a call that formed a team every byte of it must be as it was.  The bytes
// around a buf's elements are always compared.
// Returns an empty string when all bytes are as they should be, else a
// description of the first difference.
std::string compareAfter(const Case& s, const std::vector<std::vector<unsigned char>>& before,
                         const std::vector<double>& expected);
// The same with the expected elements as bit patterns (low `elem` bytes),
// for results that must arrive bit for bit (NaN payloads included).
std::string compareAfterBits(const Case& s, const std::vector<std::vector<unsigned char>>& before,
                             const std::vector<uint64_t>& expected,
                             const std::vector<std::pair<int, size_t>>& pinned = {});

// Every byte of every arena as it was.
std::string compareUntouched(const Case& s, const std::vector<std::vector<unsigned char>>& before);

}  // namespace kt
