// General eigenproblem: 1000 packed n x n double matrices on one thread.
// kelm's EigenValues (ma) and EigenValuesVectorsRight (ma) against a
// textbook Householder reduction + Francis double-shift QR in plain C
// (values only), Eigen's EigenSolver on fixed-size matrices and LAPACK's
// dgeev per object.  Every peer reads the same matrices and writes values
// (and vectors) somewhere else.
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

#include "common.h"
#include "kelm.h"

#ifdef KELM_BENCH_EIGEN
#include <Eigen/Dense>
#endif

#ifdef KELM_BENCH_LAPACK
extern "C" void dgeev_(const char* jobvl, const char* jobvr, const int* n, double* a, const int* lda, double* wr,
                       double* wi, double* vl, const int* ldvl, double* vr, const int* ldvr, double* work,
                       const int* lwork, int* info, std::size_t, std::size_t);
#endif

namespace {

const kb::OneThread oneThread;
constexpr int kCount = 1000;

struct Problem {
    int n;
    std::vector<double> a, re, im, vec, buf;
    explicit Problem(int size)
        : n(size),
          a(kb::randomData<double>(std::size_t(size) * size * kCount, 5)),
          re(std::size_t(size) * kCount),
          im(re.size()),
          vec(a.size()),
          buf(std::size_t(size) * (3 * size + 5))
    {
    }
};

// ---- kelm ---------------------------------------------------------------------

void kelmValues(benchmark::State& state)
{
    Problem p(static_cast<int>(state.range(0)));
    const int n = p.n, row = n * 8, obj = n * row;
    for (auto _ : state) {
        if (kelmEigenValues_ma_64f(p.a.data(), obj, row, 8, p.re.data(), p.im.data(), n, kCount, p.buf.data()))
            state.SkipWithError("kelm did not converge");
        benchmark::DoNotOptimize(p.re.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n + 2 * n) * 8);
}

void kelmRight(benchmark::State& state)
{
    Problem p(static_cast<int>(state.range(0)));
    const int n = p.n, row = n * 8, obj = n * row;
    for (auto _ : state) {
        if (kelmEigenValuesVectorsRight_ma_64f(p.a.data(), obj, row, 8, p.vec.data(), obj, row, 8, p.re.data(),
                                               p.im.data(), n, kCount, p.buf.data()))
            state.SkipWithError("kelm did not converge");
        benchmark::DoNotOptimize(p.vec.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (2 * n * n + 2 * n) * 8);
}

// ---- textbook C: Householder to Hessenberg, Francis double shift (values) ----------

template <int N>
int textbookValues(const double* src, double* wr, double* wi)
{
    double a[N][N];
    std::memcpy(a, src, sizeof a);
    for (int k = 0; k < N - 2; ++k) {
        double alpha = 0;
        for (int i = k + 1; i < N; ++i) alpha += a[i][k] * a[i][k];
        alpha = std::sqrt(alpha);
        if (alpha == 0) continue;
        if (a[k + 1][k] > 0) alpha = -alpha;
        double v[N] = {};
        v[k + 1] = a[k + 1][k] - alpha;
        for (int i = k + 2; i < N; ++i) v[i] = a[i][k];
        double vv = 0;
        for (int i = k + 1; i < N; ++i) vv += v[i] * v[i];
        if (vv == 0) continue;
        for (int j = 0; j < N; ++j) {  // a = (I - 2vv'/v'v) a
            double s = 0;
            for (int i = k + 1; i < N; ++i) s += v[i] * a[i][j];
            s = 2 * s / vv;
            for (int i = k + 1; i < N; ++i) a[i][j] -= s * v[i];
        }
        for (int i = 0; i < N; ++i) {  // a = a (I - 2vv'/v'v)
            double s = 0;
            for (int j = k + 1; j < N; ++j) s += a[i][j] * v[j];
            s = 2 * s / vv;
            for (int j = k + 1; j < N; ++j) a[i][j] -= s * v[j];
        }
    }
    // hqr: Francis double-shift iteration on the Hessenberg matrix.
    int nn = N - 1, its = 0;
    double t = 0, anorm = 0;
    for (int i = 0; i < N; ++i)
        for (int j = i > 0 ? i - 1 : 0; j < N; ++j) anorm += std::fabs(a[i][j]);
    while (nn >= 0) {
        int l;
        for (l = nn; l >= 1; --l) {
            double s = std::fabs(a[l - 1][l - 1]) + std::fabs(a[l][l]);
            if (s == 0) s = anorm;
            if (std::fabs(a[l][l - 1]) + s == s) {
                a[l][l - 1] = 0;
                break;
            }
        }
        double x = a[nn][nn];
        if (l == nn) {
            wr[nn] = x + t, wi[nn--] = 0, its = 0;
            continue;
        }
        double y = a[nn - 1][nn - 1], w = a[nn][nn - 1] * a[nn - 1][nn];
        if (l == nn - 1) {
            double p = 0.5 * (y - x), q = p * p + w, z = std::sqrt(std::fabs(q));
            x += t;
            if (q >= 0) {
                z = p + (p >= 0 ? std::fabs(z) : -std::fabs(z));
                wr[nn - 1] = wr[nn] = x + z;
                if (z != 0) wr[nn] = x - w / z;
                wi[nn - 1] = wi[nn] = 0;
            } else {
                wr[nn - 1] = wr[nn] = x + p;
                wi[nn - 1] = z, wi[nn] = -z;
            }
            nn -= 2, its = 0;
            continue;
        }
        if (its == 30) return -1;
        if (its == 10 || its == 20) {
            t += x;
            for (int i = 0; i <= nn; ++i) a[i][i] -= x;
            double s = std::fabs(a[nn][nn - 1]) + std::fabs(a[nn - 1][nn - 2]);
            y = x = 0.75 * s, w = -0.4375 * s * s;
        }
        ++its;
        int m;
        double p = 0, q = 0, r = 0, z;
        for (m = nn - 2; m >= l; --m) {
            z = a[m][m];
            r = x - z;
            double s = y - z;
            p = (r * s - w) / a[m + 1][m] + a[m][m + 1];
            q = a[m + 1][m + 1] - z - r - s;
            r = a[m + 2][m + 1];
            s = std::fabs(p) + std::fabs(q) + std::fabs(r);
            p /= s, q /= s, r /= s;
            if (m == l) break;
            double u = std::fabs(a[m][m - 1]) * (std::fabs(q) + std::fabs(r));
            double v = std::fabs(p) * (std::fabs(a[m - 1][m - 1]) + std::fabs(z) + std::fabs(a[m + 1][m + 1]));
            if (u + v == v) break;
        }
        for (int i = m + 2; i <= nn; ++i) {
            a[i][i - 2] = 0;
            if (i != m + 2) a[i][i - 3] = 0;
        }
        for (int k = m; k <= nn - 1; ++k) {
            if (k != m) {
                p = a[k][k - 1], q = a[k + 1][k - 1], r = 0;
                if (k != nn - 1) r = a[k + 2][k - 1];
                if ((x = std::fabs(p) + std::fabs(q) + std::fabs(r)) != 0) p /= x, q /= x, r /= x;
            }
            double s = std::sqrt(p * p + q * q + r * r);
            if (p < 0) s = -s;
            if (s == 0) continue;
            if (k == m) {
                if (l != m) a[k][k - 1] = -a[k][k - 1];
            } else {
                a[k][k - 1] = -s * x;
            }
            p += s, x = p / s, y = q / s, z = r / s, q /= p, r /= p;
            for (int j = k; j <= nn; ++j) {
                p = a[k][j] + q * a[k + 1][j];
                if (k != nn - 1) p += r * a[k + 2][j], a[k + 2][j] -= p * z;
                a[k + 1][j] -= p * y, a[k][j] -= p * x;
            }
            int mmin = nn < k + 3 ? nn : k + 3;
            for (int i = l; i <= mmin; ++i) {
                p = x * a[i][k] + y * a[i][k + 1];
                if (k != nn - 1) p += z * a[i][k + 2], a[i][k + 2] -= p * r;
                a[i][k + 1] -= p * q, a[i][k] -= p;
            }
        }
    }
    return 0;
}

template <int N>
void textbook(benchmark::State& state)
{
    Problem p(N);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k)
            if (textbookValues<N>(&p.a[std::size_t(k) * N * N], &p.re[std::size_t(k) * N], &p.im[std::size_t(k) * N]))
                state.SkipWithError("no convergence");
        benchmark::DoNotOptimize(p.re.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N + 2 * N) * 8);
}

// ---- Eigen --------------------------------------------------------------------------

#ifdef KELM_BENCH_EIGEN
template <int N, bool Vectors>
void eigen(benchmark::State& state)
{
    Problem p(N);
    using Mat = Eigen::Matrix<double, N, N, Eigen::RowMajor>;
    Eigen::EigenSolver<Eigen::Matrix<double, N, N>> solver;
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            solver.compute(Eigen::Map<const Mat>(&p.a[std::size_t(k) * N * N]), Vectors);
            const auto& v = solver.eigenvalues();
            for (int i = 0; i < N; ++i) p.re[k * N + i] = v[i].real(), p.im[k * N + i] = v[i].imag();
            if constexpr (Vectors) {
                const auto x = solver.eigenvectors();
                for (int i = 0; i < N * N; ++i) p.vec[std::size_t(k) * N * N + i] = x(i / N, i % N).real();
            }
        }
        benchmark::DoNotOptimize(p.re.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (N * N * (Vectors ? 2 : 1) + 2 * N) * 8);
}
#endif

// ---- LAPACK -------------------------------------------------------------------------

#ifdef KELM_BENCH_LAPACK
template <bool Vectors>
void lapack(benchmark::State& state)
{
    Problem p(static_cast<int>(state.range(0)));
    const int n = p.n, lwork = 8 * n, one = 1;
    std::vector<double> work(lwork), copy(n * n), vr(n * n);
    for (auto _ : state) {
        for (int k = 0; k < kCount; ++k) {
            std::memcpy(copy.data(), &p.a[std::size_t(k) * n * n], sizeof(double) * n * n);
            int info = 0;
            dgeev_("N", Vectors ? "V" : "N", &n, copy.data(), &n, &p.re[k * n], &p.im[k * n], nullptr, &one,
                   Vectors ? &p.vec[std::size_t(k) * n * n] : nullptr, Vectors ? &n : &one, work.data(), &lwork,
                   &info, 1, 1);
            if (info) state.SkipWithError("dgeev failed");
        }
        benchmark::DoNotOptimize(p.re.data());
        benchmark::ClobberMemory();
    }
    kb::report(state, kCount, (n * n * (Vectors ? 2 : 1) + 2 * n) * 8);
}
#endif

BENCHMARK(kelmValues)->Name("EigenValues_64f/kelm")->Arg(4)->Arg(6);
BENCHMARK(textbook<4>)->Name("EigenValues_64f/textbookC/4");
BENCHMARK(textbook<6>)->Name("EigenValues_64f/textbookC/6");
#ifdef KELM_BENCH_EIGEN
BENCHMARK(eigen<4, false>)->Name("EigenValues_64f/Eigen/4");
BENCHMARK(eigen<6, false>)->Name("EigenValues_64f/Eigen/6");
BENCHMARK(eigen<4, true>)->Name("EigenValuesVectorsRight_64f/Eigen/4");
#endif
#ifdef KELM_BENCH_LAPACK
BENCHMARK(lapack<false>)->Name("EigenValues_64f/dgeev")->Arg(4)->Arg(6);
BENCHMARK(lapack<true>)->Name("EigenValuesVectorsRight_64f/dgeev")->Arg(4);
#endif
BENCHMARK(kelmRight)->Name("EigenValuesVectorsRight_64f/kelm")->Arg(4);

}  // namespace
