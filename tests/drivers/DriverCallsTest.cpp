// The arguments of each LAPACK driver, and the state of the operands after a driver reports a failure. The
// drivers here record their arguments, write what a test specifies and report the INFO that it specifies: no
// known matrix makes the iterations of the real drivers fail.

#include <vexor/dynamic/private/Lapack.h>

#include <dynamic/Allocations.h>
#include <dynamic/Elements.h>

#include <vexor/foundation/VexorException.h>
#include <vexor/matrices/Mat3Dbl.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

using namespace vexor_test;

namespace {

struct Call {
    std::string driver;
    std::string letters;      // the options, in order
    std::vector<int> numbers; // the integers except INFO, in order
    double* matrix;
    int* pivots = nullptr;
    double* result = nullptr;  // right-hand side or values
    double* vectors = nullptr; // DSYEVX only
};

std::vector<Call> calls;
std::function<void(Call const&)> effect; // what else the driver does
int reported = 0;                        // the INFO that it reports

void Answer(Call const& call, int* info)
{
    EXPECT_EQ(*info, 0) << "before the call";
    calls.push_back(call);
    if (effect)
        effect(call);
    *info = reported;
}

/// The only call that was made.
Call TheCall()
{
    EXPECT_EQ(calls.size(), 1u);
    return calls.empty() ? Call{} : calls[0];
}

/// On every path, failing ones included, a test has freed all its storage when it ends.
class DriverCalls : public testing::Test {
protected:
    void SetUp() override
    {
        Forget();
        blocksBefore = LiveBlocks();
    }
    void TearDown() override
    {
        Forget();
        EXPECT_EQ(LiveBlocks(), blocksBefore);
    }

private:
    static void Forget()
    {
        std::vector<Call>().swap(calls);
        effect = nullptr;
        reported = 0;
    }

    long blocksBefore = 0;
};

using Numbers = std::vector<int>;

} // namespace

namespace vexor::detail {

extern "C" {

void dgesv_(int const* n, int const* nrhs, double* a, int const* lda, int* ipiv, double* b, int const* ldb,
            int* info)
{
    Answer({"dgesv", "", {*n, *nrhs, *lda, *ldb}, a, ipiv, b}, info);
}

void dgetrs_(char const* trans, int const* n, int const* nrhs, double const* a, int const* lda,
             int const* ipiv, double* b, int const* ldb, int* info, FortranLength transLength)
{
    EXPECT_EQ(transLength, 1u);
    Answer({"dgetrs",
            std::string(1, *trans),
            {*n, *nrhs, *lda, *ldb},
            const_cast<double*>(a),
            const_cast<int*>(ipiv),
            b},
           info);
}

void dsysv_(char const* uplo, int const* n, int const* nrhs, double* a, int const* lda, int* ipiv, double* b,
            int const* ldb, double* work, int const* lwork, int* info, FortranLength uploLength)
{
    EXPECT_EQ(uploLength, 1u);
    work[*lwork - 1] = 0.0; // all of its elements are there
    Answer({"dsysv", std::string(1, *uplo), {*n, *nrhs, *lda, *ldb, *lwork}, a, ipiv, b}, info);
}

void dsytrs_(char const* uplo, int const* n, int const* nrhs, double const* a, int const* lda,
             int const* ipiv, double* b, int const* ldb, int* info, FortranLength uploLength)
{
    EXPECT_EQ(uploLength, 1u);
    Answer({"dsytrs",
            std::string(1, *uplo),
            {*n, *nrhs, *lda, *ldb},
            const_cast<double*>(a),
            const_cast<int*>(ipiv),
            b},
           info);
}

void dgels_(char const* trans, int const* m, int const* n, int const* nrhs, double* a, int const* lda,
            double* b, int const* ldb, double* work, int const* lwork, int* info, FortranLength transLength)
{
    EXPECT_EQ(transLength, 1u);
    work[*lwork - 1] = 0.0;
    Answer({"dgels", std::string(1, *trans), {*m, *n, *nrhs, *lda, *ldb, *lwork}, a, nullptr, b}, info);
}

void dgesvd_(char const* jobu, char const* jobvt, int const* m, int const* n, double* a, int const* lda,
             double* s, double* u, int const* ldu, double* vt, int const* ldvt, double* work,
             int const* lwork, int* info, FortranLength jobuLength, FortranLength jobvtLength)
{
    EXPECT_EQ(jobuLength, 1u);
    EXPECT_EQ(jobvtLength, 1u);
    EXPECT_NE(u, nullptr);
    EXPECT_NE(vt, nullptr);
    work[*lwork - 1] = 0.0;
    Answer({"dgesvd", {*jobu, *jobvt}, {*m, *n, *lda, *ldu, *ldvt, *lwork}, a, nullptr, s}, info);
}

void dsyevx_(char const* jobz, char const* range, char const* uplo, int const* n, double* a, int const* lda,
             double const* vl, double const* vu, int const* il, int const* iu, double const* abstol, int* m,
             double* w, double* z, int const* ldz, double* work, int const* lwork, int* iwork, int* ifail,
             int* info, FortranLength jobzLength, FortranLength rangeLength, FortranLength uploLength)
{
    EXPECT_EQ(jobzLength, 1u);
    EXPECT_EQ(rangeLength, 1u);
    EXPECT_EQ(uploLength, 1u);
    EXPECT_NE(vl, nullptr);
    EXPECT_NE(vu, nullptr);
    EXPECT_SAME_BITS(*abstol, 0.0); // the default tolerance
    work[*lwork - 1] = 0.0;
    iwork[5 * *n - 1] = 0;
    ifail[*n - 1] = 0;
    *m = *iu - *il + 1;
    Answer({"dsyevx", {*jobz, *range, *uplo}, {*n, *lda, *il, *iu, *ldz, *lwork}, a, nullptr, w, z}, info);
}

} // extern "C"

} // namespace vexor::detail

namespace {

// ---- Arguments -------------------------------------------------------------------------------------

TEST_F(DriverCalls, Solve)
{
    MatDbl a = Mat({{4, 1, 2}, {1, 5, 3}, {2, 3, 6}});
    VecDbl b = Dbl({1, 2, 3});
    a.Solve(b);
    Call const call = TheCall();
    EXPECT_EQ(call.driver, "dgesv");
    EXPECT_EQ(call.numbers, (Numbers{3, 1, 3, 3}));
    EXPECT_EQ(call.matrix, &a(0, 0));
    EXPECT_EQ(call.result, &b[0]);

    calls.clear();
    MatDbl many = Mat({{1, 2}, {3, 4}, {5, 6}});
    a.Solve(many);
    EXPECT_EQ(TheCall().numbers, (Numbers{3, 2, 3, 3}));
    EXPECT_EQ(TheCall().result, &many(0, 0));
    EXPECT_EQ(TheCall().pivots, call.pivots) << "the array of the former call serves again";
}

TEST_F(DriverCalls, ReSolve)
{
    MatDbl a = Mat({{4, 1}, {1, 5}});
    VecDbl b = Dbl({1, 2});
    a.Solve(b);
    int* const pivots = TheCall().pivots;

    calls.clear();
    a.ReSolve(b);
    EXPECT_EQ(TheCall().driver, "dgetrs");
    EXPECT_EQ(TheCall().letters, "N");
    EXPECT_EQ(TheCall().numbers, (Numbers{2, 1, 2, 2}));
    EXPECT_EQ(TheCall().matrix, &a(0, 0));
    EXPECT_EQ(TheCall().pivots, pivots);
    EXPECT_EQ(TheCall().result, &b[0]);

    calls.clear();
    MatDbl many = Mat({{1, 2, 3}, {3, 4, 5}});
    a.ReSolve(many);
    EXPECT_EQ(TheCall().numbers, (Numbers{2, 3, 2, 2}));
    EXPECT_EQ(TheCall().result, &many(0, 0));
}

// ReSolve refuses a pivot below 1, with which DGETRS would write outside the right-hand side. It passes every
// other pivot on unchanged, and ReSolveSym passes on all pivots.
TEST_F(DriverCalls, ReSolveRefusesPivotsBelowOne)
{
    struct Case {
        int pivots[3];
        bool serves;
    };
    int const most = std::numeric_limits<int>::max();
    int const least = std::numeric_limits<int>::min();
    for (Case const& one : {Case{{1, 1, 1}, true},
                            {{3, 2, 1}, true},
                            {{4, 2, most}, true},
                            {{0, 2, 3}, false},
                            {{1, 0, 3}, false},
                            {{1, 2, 0}, false},
                            {{-2, -2, 3}, false},
                            {{1, 2, least}, false}}) {
        for (bool symmetric : {false, true}) {
            MatDbl a = Mat({{4, 1, 2}, {1, 5, 3}, {2, 3, 6}});
            VecDbl b = Dbl({1, 2, 3});
            MatDbl many = Mat({{1, 2}, {3, 4}, {5, 6}});
            effect = [&one](Call const& call) {
                if (call.driver == "dgesv" || call.driver == "dsysv")
                    std::copy(one.pivots, one.pivots + 3, call.pivots);
                else
                    EXPECT_TRUE(std::equal(one.pivots, one.pivots + 3, call.pivots));
            };
            symmetric ? a.SolveSym(b) : a.Solve(b);
            calls.clear();
            if (symmetric) {
                a.ReSolveSym(b);
                a.ReSolveSym(many);
            } else if (one.serves) {
                a.ReSolve(b);
                a.ReSolve(many);
            } else {
                EXPECT_THROW(a.ReSolve(b), VexorComputationFailed);
                EXPECT_THROW(a.ReSolve(many), VexorComputationFailed);
            }
            EXPECT_EQ(calls.size(), symmetric || one.serves ? 2u : 0u) << testing::PrintToString(one.pivots);
        }
    }
}

TEST_F(DriverCalls, SolveSym)
{
    MatDbl a = Mat({{4, 1, 2}, {1, 5, 3}, {2, 3, 6}});
    VecDbl b = Dbl({1, 2, 3});
    a.SolveSym(b);
    EXPECT_EQ(TheCall().driver, "dsysv");
    EXPECT_EQ(TheCall().letters, "U");
    EXPECT_EQ(TheCall().numbers, (Numbers{3, 1, 3, 3, 128 * 3}));
    EXPECT_EQ(TheCall().matrix, &a(0, 0));
    EXPECT_EQ(TheCall().result, &b[0]);

    calls.clear();
    MatDbl many = Mat({{1, 2}, {3, 4}, {5, 6}});
    a.SolveSym(many);
    EXPECT_EQ(TheCall().numbers, (Numbers{3, 2, 3, 3, 128 * 3}));
}

TEST_F(DriverCalls, ReSolveSym)
{
    MatDbl a = Mat({{4, 1}, {1, 5}});
    VecDbl b = Dbl({1, 2});
    a.SolveSym(b);
    int* const pivots = TheCall().pivots;

    calls.clear();
    a.ReSolveSym(b);
    EXPECT_EQ(TheCall().driver, "dsytrs");
    EXPECT_EQ(TheCall().letters, "U");
    EXPECT_EQ(TheCall().numbers, (Numbers{2, 1, 2, 2}));
    EXPECT_EQ(TheCall().matrix, &a(0, 0));
    EXPECT_EQ(TheCall().pivots, pivots);

    calls.clear();
    MatDbl many = Mat({{1, 2, 3}, {3, 4, 5}});
    a.ReSolveSym(many);
    EXPECT_EQ(TheCall().numbers, (Numbers{2, 3, 2, 2}));
    EXPECT_EQ(TheCall().result, &many(0, 0));
}

// The right-hand side has room for the larger dimension while the driver runs, and its rows come first.
TEST_F(DriverCalls, SolveLinearLeastSquares)
{
    MatDbl tall = Mat({{1, 2}, {3, 4}, {5, 6}, {7, 8}});
    VecDbl b = Dbl({1, 2, 3, 4});
    effect = [](Call const& call) {
        EXPECT_TRUE(SameElements(std::vector<double>(call.result, call.result + 4), {1, 2, 3, 4}));
    };
    tall.SolveLinearLeastSquares(b);
    EXPECT_EQ(TheCall().driver, "dgels");
    EXPECT_EQ(TheCall().letters, "N");
    EXPECT_EQ(TheCall().numbers, (Numbers{4, 2, 1, 4, 4, 128 * 4}));
    EXPECT_EQ(TheCall().matrix, &tall(0, 0));
    EXPECT_TRUE(Holds(b, {1, 2}));

    calls.clear();
    MatDbl wide = Mat({{1, 2, 3}, {4, 5, 6}});
    MatDbl many = Mat({{1, 2}, {3, 4}});
    effect = [](Call const& call) {
        EXPECT_EQ(call.result[0], 1);
        EXPECT_EQ(call.result[1], 3);
        EXPECT_EQ(call.result[3], 2);
        EXPECT_EQ(call.result[4], 4);
        call.result[2] = 5;
        call.result[5] = 6;
    };
    wide.SolveLinearLeastSquares(many);
    EXPECT_EQ(TheCall().numbers, (Numbers{2, 3, 2, 2, 3, 128 * 3}));
    EXPECT_TRUE(HoldsRows(many, {{1, 2}, {3, 4}, {5, 6}}));
}

// DGELS needs min(m, n) + max(min(m, n), right-hand sides) elements of workspace. With fewer it calls XERBLA,
// which ends the process in some LAPACKs: so the library does not call it then.
TEST_F(DriverCalls, SolveLinearLeastSquaresBeyondTheWorkspace)
{
    int const shapes[][3] = {{1, 1, 127}, {4, 2, 510}, {2, 4, 510}, {5, 5, 635}}; // the largest counts
    for (auto const& shape : shapes) {
        int const rows = shape[0];
        int const columns = shape[1];
        for (int count : {shape[2], shape[2] + 1}) {
            calls.clear();
            MatDbl a(rows, columns, 1.0);
            MatDbl b(rows, count, 2.0);
            bool const fits = count == shape[2];
            if (fits) {
                a.SolveLinearLeastSquares(b);
                EXPECT_EQ(calls.size(), 1u);
                EXPECT_EQ(b.RowCount(), columns);
            } else {
                EXPECT_THROW(a.SolveLinearLeastSquares(b), VexorComputationFailed);
                EXPECT_TRUE(calls.empty());
                EXPECT_EQ(b.RowCount(), std::max(rows, columns)); // the state after a driver that fails
                EXPECT_EQ(a(0, 0), 1.0);
            }
            EXPECT_EQ(b.ColumnCount(), count);
            EXPECT_EQ(b(0, count - 1), 2.0);
        }
    }
}

TEST_F(DriverCalls, Invert)
{
    double block[4] = {4, 1, 2, 5};
    MatDbl a(2, 2, block);
    effect = [](Call const& call) {
        EXPECT_TRUE(SameElements(std::vector<double>(call.result, call.result + 4), {1, 0, 0, 1}));
    };
    a.Invert();
    EXPECT_EQ(TheCall().driver, "dgesv");
    EXPECT_EQ(TheCall().numbers, (Numbers{2, 2, 2, 2}));
    EXPECT_EQ(TheCall().matrix, block);
    EXPECT_TRUE(HoldsRows(a, {{1, 0}, {0, 1}})); // the solution replaces the matrix
}

TEST_F(DriverCalls, Svd)
{
    MatDbl a = Mat({{1, 2, 3}, {4, 5, 6}});
    VecDbl values;
    a.Svd(values);
    EXPECT_EQ(TheCall().driver, "dgesvd");
    EXPECT_EQ(TheCall().letters, "NO");
    EXPECT_EQ(TheCall().numbers, (Numbers{2, 3, 2, 1, 1, 128 * 3}));
    EXPECT_EQ(TheCall().matrix, &a(0, 0));
    EXPECT_EQ(TheCall().result, &values[0]);

    calls.clear();
    MatDbl tall = Mat({{1}, {2}, {3}, {4}});
    tall.Svd(values);
    EXPECT_EQ(TheCall().numbers, (Numbers{4, 1, 4, 1, 1, 128 * 4}));
}

TEST_F(DriverCalls, EigenSym)
{
    struct Selection {
        int wantVectors;
        int first;
        int last;
        char const* letters;
    };
    for (Selection const& wanted : {Selection{0, 0, 2, "NAU"},
                                    {1, 0, 2, "VAU"},
                                    {-1, 0, 2, "VAU"},
                                    {0, 0, 1, "NIU"},
                                    {1, 1, 2, "VIU"}}) {
        calls.clear();
        MatDbl a = Mat({{4, 1, 2}, {1, 5, 3}, {2, 3, 6}});
        VecDbl values;
        a.EigenSym(values, wanted.wantVectors, wanted.first, wanted.last);
        EXPECT_EQ(TheCall().driver, "dsyevx");
        EXPECT_EQ(TheCall().letters, wanted.letters);
        EXPECT_EQ(TheCall().numbers, (Numbers{3, 3, wanted.first + 1, wanted.last + 1, 3, 140 * 3}));
        EXPECT_EQ(TheCall().matrix, &a(0, 0));
        EXPECT_EQ(TheCall().result, &values[0]);
    }
}

// If the driver finds fewer values than were selected, a NaN stands for each missing one. The elements after
// the selected ones, and without vectors the matrix, are unchanged.
TEST_F(DriverCalls, EigenSymLeavesWhatTheDriverDoesNotWrite)
{
    for (int selected : {1, 2, 3, 4}) {
        for (int found : {0, 1, selected}) {
            MatDbl a(4, 4, 5.0);
            VecDbl values = Dbl({71, 72, 73, 74});
            effect = [found](Call const& call) { std::fill_n(call.result, found, 80.0); };
            a.EigenSym(values, 0, 0, selected - 1);
            for (int i = 0; i < 4; ++i) {
                if (i < found)
                    EXPECT_EQ(values[i], 80.0);
                else if (i < selected)
                    EXPECT_TRUE(std::isnan(values[i]));
                else
                    EXPECT_EQ(values[i], 71.0 + i);
            }
            EXPECT_TRUE(a == MatDbl(4, 4, 5.0));
        }
    }
}

// ---- Failures --------------------------------------------------------------------------------------

// A rejected argument and an iteration that did not converge are reported in the same way.
TEST_F(DriverCalls, AnyInfoButZeroIsAFailure)
{
    for (int info : {-10, -1, 1, 4}) {
        calls.clear();
        VecDbl b = Dbl({1, 2});
        MatDbl many = Mat({{1, 2}, {3, 4}});
        VecDbl values;
        MatDbl a = Mat({{4, 1}, {1, 5}});
        reported = info;
        EXPECT_THROW(a.Solve(b), VexorComputationFailed);
        EXPECT_THROW(a.ReSolve(b), VexorComputationFailed);
        EXPECT_THROW(a.Solve(many), VexorComputationFailed);
        EXPECT_THROW(a.ReSolve(many), VexorComputationFailed);
        EXPECT_THROW(a.SolveSym(b), VexorComputationFailed);
        EXPECT_THROW(a.ReSolveSym(b), VexorComputationFailed);
        EXPECT_THROW(a.SolveSym(many), VexorComputationFailed);
        EXPECT_THROW(a.ReSolveSym(many), VexorComputationFailed);
        EXPECT_THROW(a.SolveLinearLeastSquares(b), VexorComputationFailed);
        EXPECT_THROW(a.SolveLinearLeastSquares(many), VexorComputationFailed);
        EXPECT_THROW(a.Invert(), VexorComputationFailed);
        EXPECT_THROW(a.GetInvertedCopy(), VexorComputationFailed);
        EXPECT_THROW(a.Svd(values), VexorComputationFailed);
        EXPECT_THROW(a.EigenSym(values, 0, 0, 1), VexorComputationFailed);
        EXPECT_THROW(a.EigenSym(values, 1, 0, 1), VexorComputationFailed);
        EXPECT_EQ(calls.size(), 15u);

        Mat3Dbl const before(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 10));
        Mat3Dbl fixed(before);
        Vec3Dbl fixedValues(7, 8, 9);
        EXPECT_THROW(fixed.Svd(fixedValues), VexorComputationFailed);
        EXPECT_EQ(fixed, before);
        EXPECT_EQ(fixedValues, Vec3Dbl(7, 8, 9));
    }
}

// The matrix and the right-hand side hold what the driver left, and the pivots are kept.
TEST_F(DriverCalls, SolveThatFails)
{
    for (bool symmetric : {false, true}) {
        MatDbl a = Mat({{4, 1}, {1, 5}});
        VecDbl b = Dbl({1, 2});
        reported = 1;
        effect = [](Call const& call) {
            call.matrix[1] = 70;
            call.result[0] = 80;
        };
        EXPECT_THROW(symmetric ? a.SolveSym(b) : a.Solve(b), VexorComputationFailed);
        EXPECT_TRUE(HoldsRows(a, {{4, 1}, {70, 5}}));
        EXPECT_TRUE(Holds(b, {80, 2}));

        reported = 0;
        effect = nullptr;
        EXPECT_NO_THROW(symmetric ? a.ReSolveSym(b) : a.ReSolve(b));
    }
}

// The factors are in the matrix, and its pivots are kept.
TEST_F(DriverCalls, InvertThatFails)
{
    MatDbl a = Mat({{4, 1}, {1, 5}});
    reported = 2;
    effect = [](Call const& call) { call.matrix[1] = 70; };
    EXPECT_THROW(a.Invert(), VexorComputationFailed);
    EXPECT_TRUE(HoldsRows(a, {{4, 1}, {70, 5}}));

    MatDbl const source = Mat({{4, 1}, {1, 5}});
    EXPECT_THROW(source.GetInvertedCopy(), VexorComputationFailed);
    EXPECT_TRUE(HoldsRows(source, {{4, 1}, {1, 5}}));

    reported = 0;
    effect = nullptr;
    EXPECT_TRUE(HasPivots(a));
    EXPECT_FALSE(HasPivots(source));
}

// A right-hand side that was too short has grown by then; one that was too long has not shrunk yet.
TEST_F(DriverCalls, SolveLinearLeastSquaresThatFails)
{
    reported = -10;
    effect = [](Call const& call) { call.result[1] = 80; };
    MatDbl tall = Mat({{1, 2}, {3, 4}, {5, 6}});
    VecDbl b = Dbl({1, 2, 3});
    EXPECT_THROW(tall.SolveLinearLeastSquares(b), VexorComputationFailed);
    EXPECT_TRUE(Holds(b, {1, 80, 3}));

    MatDbl wide = Mat({{1, 2, 3}, {4, 5, 6}});
    VecDbl c = Dbl({1, 2});
    EXPECT_THROW(wide.SolveLinearLeastSquares(c), VexorComputationFailed);
    ASSERT_EQ(c.Size(), 3);
    EXPECT_EQ(c[0], 1);
    EXPECT_EQ(c[1], 80);
}

TEST_F(DriverCalls, SvdThatFails)
{
    MatDbl a = Mat({{1, 2, 3}, {4, 5, 6}});
    VecDbl values = Dbl({7, 7, 7, 7});
    reported = 1;
    effect = [](Call const& call) {
        call.matrix[1] = 70;
        call.result[0] = 80;
        call.result[1] = 90;
    };
    EXPECT_THROW(a.Svd(values), VexorComputationFailed);
    EXPECT_TRUE(HoldsRows(a, {{1, 2, 3}, {70, 5, 6}}));
    EXPECT_TRUE(Holds(values, {80, 90}));
}

// The vectors that the driver left have been copied into the rows by then.
TEST_F(DriverCalls, EigenSymThatFails)
{
    MatDbl a = Mat({{4, 1, 2}, {1, 5, 3}, {2, 3, 6}});
    VecDbl values;
    reported = 1;
    effect = [](Call const& call) {
        call.matrix[0] = 70;
        call.matrix[5] = 71;
        call.result[0] = 80;
        call.result[1] = 90;
        for (int i = 0; i < 6; ++i)
            call.vectors[i] = 11 + i;
    };
    EXPECT_THROW(a.EigenSym(values, 1, 1, 2), VexorComputationFailed);
    EXPECT_TRUE(HoldsRows(a, {{11, 12, 13}, {14, 15, 16}, {2, 71, 6}}));
    ASSERT_EQ(values.Size(), 3);
    EXPECT_EQ(values[0], 80);
    EXPECT_EQ(values[1], 90);
}

} // namespace
