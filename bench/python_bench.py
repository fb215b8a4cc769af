#!/usr/bin/python3
"""kelm's Python functions against numpy.linalg on the same stacks, one thread.

    PYTHONPATH=build/python /usr/bin/python3 bench/python_bench.py [--plot docs/python_bench.png]

Prints a Markdown table of the time per object (best of several runs) at
stack sizes 1000 and 100,000, the ratio numpy / kelm, the cost of one call
on a single matrix, and the same operation on a negative-step and a
broadcast view; with --plot, draws time per object against stack size.
"""
import argparse
import time

import numpy as np

import kelm


def best(f, objects, budget=0.3):
    """Best time per object of f() over repeated runs within budget seconds."""
    f()
    times = []
    end = time.perf_counter() + budget
    while time.perf_counter() < end or len(times) < 3:
        t = time.perf_counter()
        f()
        times.append(time.perf_counter() - t)
    return min(times) / objects


def stack(count, n, dtype, seed=0):
    a = np.random.default_rng(seed).uniform(-1, 1, (count, n, n)) + (n + 1) * np.eye(n)
    return a.astype(dtype)


def symmetric(count, n, dtype):
    a = np.random.default_rng(1).uniform(-1, 1, (count, n, n))
    return (a + np.swapaxes(a, -1, -2)).astype(dtype)


CASES = [
    # name, kelm function, numpy function, operands(count), member that must exist
    ("inv 4x4 float32", kelm.inv, np.linalg.inv, lambda c: (stack(c, 4, np.float32),), None),
    ("inv 3x3 float64", kelm.inv, np.linalg.inv, lambda c: (stack(c, 3, np.float64),), None),
    ("det 3x3 float64", kelm.det, np.linalg.det, lambda c: (stack(c, 3, np.float64),), None),
    ("solve 4x4 float64, one b", kelm.solve, np.linalg.solve,
     lambda c: (stack(c, 4, np.float64), np.ones((c, 4))), None),
    ("eigh 3x3 float32", kelm.eigh, np.linalg.eigh, lambda c: (symmetric(c, 3, np.float32),),
     "kelmEigenValuesVectorsSym_ma_32f"),
    ("matmul 4x4 float32", kelm.matmul, np.matmul, lambda c: (stack(c, 4, np.float32), stack(c, 4, np.float32, 1)),
     None),
]


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--plot", help="PNG file for the plot of time per object against stack size")
    args = p.parse_args()
    kelm.set_num_threads(1)
    print("| Operation | count | kelm | numpy | ratio |")
    print("|---|---|---|---|---|")
    curves = {}
    for name, fk, fn, make, member in CASES:
        if member and not kelm.has_member(member):
            print(f"| {name} | | (no {member} in this build) | | |")
            continue
        for count in (1000, 100_000):
            ops = make(count)
            tk = best(lambda: fk(*ops), count)
            tn = best(lambda: fn(*ops), count)
            print(f"| {name} | {count:,} | {tk * 1e9:.1f} ns | {tn * 1e9:.1f} ns | {tn / tk:.1f}x |")
        if args.plot:
            sizes = [1, 10, 100, 1000, 10_000, 100_000]
            curves[name] = []
            for c in sizes:
                ops = make(c)
                curves[name].append((c, best(lambda: fk(*ops), c, 0.1), best(lambda: fn(*ops), c, 0.1)))
    print()
    one = stack(1, 4, np.float32)[0]
    print("One call on one 4x4 float32 matrix (the cost of a call):")
    for name, fk, fn in (("matmul", lambda: kelm.matmul(one, one), lambda: np.matmul(one, one)),
                         ("inv", lambda: kelm.inv(one), lambda: np.linalg.inv(one)),
                         ("det", lambda: kelm.det(one), lambda: np.linalg.det(one))):
        print(f"- {name}: kelm {best(fk, 1) * 1e6:.2f} us, numpy {best(fn, 1) * 1e6:.2f} us")
    for count in (1000, 100_000):
        a = stack(count, 4, np.float32)
        rev = a[::-1]
        single = np.broadcast_to(a[0], a.shape)
        print(f"inv 4x4 float32, {count:,}: contiguous {best(lambda: kelm.inv(a), count) * 1e9:.1f} ns, "
              f"negative step {best(lambda: kelm.inv(rev), count) * 1e9:.1f} ns per object")
        print(f"matmul 4x4 float32, {count:,}: both stacks {best(lambda: kelm.matmul(a, a), count) * 1e9:.1f} ns, "
              f"one broadcast operand {best(lambda: kelm.matmul(a, single), count) * 1e9:.1f} ns per object")
    if args.plot:
        import matplotlib
        matplotlib.use("Agg")
        import matplotlib.pyplot as plt
        fig, axes = plt.subplots(1, len(curves), figsize=(4 * len(curves), 3.5), squeeze=False)
        for ax, (name, pts) in zip(axes[0], curves.items()):
            c = [x[0] for x in pts]
            ax.loglog(c, [x[1] * 1e9 for x in pts], "o-", label="kelm")
            ax.loglog(c, [x[2] * 1e9 for x in pts], "s-", label="numpy")
            ax.set_title(name, fontsize=9)
            ax.set_xlabel("matrices in the stack")
            ax.set_ylabel("ns per matrix")
            ax.legend(fontsize=8)
        fig.tight_layout()
        fig.savefig(args.plot, dpi=90)


if __name__ == "__main__":
    main()
