#include <vexor/points/Pnt2Dbl.h>
#include <vexor/points/Pnt2Flt.h>
#include <vexor/points/Pnt3Dbl.h>
#include <vexor/points/Pnt3Flt.h>

#include <support/ComponentRules.h>

namespace {

using PointClasses = testing::Types<Pnt3Dbl, Pnt3Flt, Pnt2Dbl, Pnt2Flt>;
INSTANTIATE_TYPED_TEST_SUITE_P(Points, ComponentRules, PointClasses, );

} // namespace
