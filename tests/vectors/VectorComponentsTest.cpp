#include <vexor/vectors/Vec2Dbl.h>
#include <vexor/vectors/Vec2Flt.h>
#include <vexor/vectors/Vec3Dbl.h>
#include <vexor/vectors/Vec3Flt.h>

#include <support/ComponentRules.h>

namespace {

using VectorClasses = testing::Types<Vec3Dbl, Vec3Flt, Vec2Dbl, Vec2Flt>;
INSTANTIATE_TYPED_TEST_SUITE_P(Vectors, ComponentRules, VectorClasses, );

/// Rules that the vectors share, but not with the points.
template <class Class>
class VectorComponents : public ComponentRules<Class> {};
TYPED_TEST_SUITE(VectorComponents, VectorClasses, );

TYPED_TEST(VectorComponents, Add)
{
    COMPONENT_RULES_TYPES;
    N const unit = std::numeric_limits<N>::epsilon(); // of the numbers from 1 to 2
    auto const add = [](C const& v, C const& w) { return v + w; };
    auto const addAssign = [](C v, C const& w) { return v += w; };
    for (Three const& to : {Three{3, N(-0.0), 1}}) {
        F::ExpectEach({1, -0.0, 1}, {2, -0.0, unit / 2}, to, add);
        F::ExpectEach({1, -0.0, 1}, {2, -0.0, unit / 2}, to, addAssign);
    }
    for (Three const& to : {Three{21, 75, 1 + unit}}) {
        F::ExpectEach({1, 5, 1}, {20, 70, unit * 3 / 4}, to, add);
        F::ExpectEach({1, 5, 1}, {20, 70, unit * 3 / 4}, to, addAssign);
    }
    C object = F::Make({1, 2, -0.0});
    EXPECT_EQ(&(object += F::Make({10, -2, -0.0})), &object);
    C const& same = object;
    object += same;
    F::ExpectBits(object, {22, 0, -0.0});
}

TYPED_TEST(VectorComponents, Subtract)
{
    COMPONENT_RULES_TYPES;
    N const unit = std::numeric_limits<N>::epsilon();
    auto const subtract = [](C const& v, C const& w) { return v - w; };
    auto const subtractAssign = [](C v, C const& w) { return v -= w; };
    for (Three const& to : {Three{-1, N(-0.0), 1}}) {
        F::ExpectEach({1, -0.0, 1}, {2, 0, unit / 4}, to, subtract);
        F::ExpectEach({1, -0.0, 1}, {2, 0, unit / 4}, to, subtractAssign);
    }
    for (Three const& to : {Three{-19, -65, 0}}) {
        F::ExpectEach({1, 5, 1}, {20, 70, 1}, to, subtract);
        F::ExpectEach({1, 5, 1}, {20, 70, 1}, to, subtractAssign);
    }
    C object = F::Make({1, 2, -0.0});
    EXPECT_EQ(&(object -= F::Make({10, 2, 0})), &object);
    C const& same = object;
    object -= same;
    F::ExpectBits(object, {0, 0, 0});
}

TYPED_TEST(VectorComponents, Negate)
{
    COMPONENT_RULES_TYPES;
    C object(N(1));
    EXPECT_EQ(&object.Negate(), &object);
    F::ExpectEach({0, -0.0, 5}, {-0.0, 0, -5}, [](C v) { return v.Negate(); });
    F::ExpectEach({-0.0, infinity, -5}, {0, -infinity, 5}, [](C const& v) {
        C const before(v);
        C const negated = v.GetNegatedCopy();
        EXPECT_TRUE(v == before);
        return negated;
    });
    F::ExpectEach({0, -0.0, 3}, {-0.0, 0, -3}, [](C const& v) { return -v; });
}

TYPED_TEST(VectorComponents, ElemMultAndElemDiv)
{
    COMPONENT_RULES_TYPES;
    auto const multiply = [](C const& v, C const& w) { return v.ElemMult(w); };
    F::ExpectEach({1, -2, 0}, {4, 5, -6}, {4, -10, -0.0}, multiply);
    F::ExpectEach({0, 3, F::nearOne}, {-4, 7, F::nearOne}, {-0.0, 21, F::itsSquare}, multiply);
    F::ExpectEach({7, -1, 0}, {Opaque(N(3)), Opaque(N(0)), Opaque(N(0))}, {F::quotients[0], -infinity, nan},
                  [](C const& v, C const& w) { return v.ElemDiv(w); });
}

TYPED_TEST(VectorComponents, IsNull)
{
    COMPONENT_RULES_TYPES;
    EXPECT_EQ(C(N(0)).IsNull(), 1);
    EXPECT_EQ(F::Make({-0.0, 0, -0.0}).IsNull(), 1);
    N const least = std::numeric_limits<N>::denorm_min();
    for (N other : {least, -least, nan, infinity}) {
        for (int i = 0; i < size; ++i) {
            C object(N(0));
            object[i] = other;
            EXPECT_EQ(object.IsNull(), 0) << other << ' ' << i;
        }
    }
}

} // namespace
