#include <elementary/Reference.h>
#include <elementary/Strata.h>
#include <elementary/Ways.h>
#include <support/Bits.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

// vexor_elementary_strata: compares sin, cos, acos and atan2 with MPFR, all bits, the fast steps
// with and without fused multiply-add separately.
//
//   --cases N   arguments a function (10000)
//   --seed S    of the arguments (1)
//   --fresh     draws the seed

using vexor_test::SameBits;

namespace {

long long differing = 0;

void Expect(char const* way, char const* function, double y, double x, double actual, double expected)
{
    if (SameBits(actual, expected))
        return;
    if (++differing <= 20)
        std::printf("%s, %s of %a %a: %a instead of %a\n", way, function, y, x, actual, expected);
}

} // namespace

int main(int count, char** arguments)
{
    long long cases = 10000;
    std::uint64_t seed = 1;
    for (int i = 1; i < count; ++i) {
        std::string const flag = arguments[i];
        if (flag == "--cases" && i + 1 < count) {
            cases = std::atoll(arguments[++i]);
        } else if (flag == "--seed" && i + 1 < count) {
            seed = std::strtoull(arguments[++i], nullptr, 0);
        } else if (flag == "--fresh") {
            std::random_device device;
            seed = (static_cast<std::uint64_t>(device()) << 32) | device();
        } else {
            std::fprintf(stderr, "usage: vexor_elementary_strata [--cases N] [--seed S] [--fresh]\n");
            return 2;
        }
    }

    auto const ways = vexor_test::Ways();
    vexor_test::Strata strata(seed);
    vexor_test::Reference reference;
    for (long long i = 0; i < cases; ++i) {
        double const angle = strata.Angle();
        double sine = 0.0, cosine = 0.0;
        reference.SinCos(angle, sine, cosine);
        double const x = strata.Cosine();
        double const arcCosine = reference.Acos(x);
        double ordinate = 0.0, abscissa = 0.0;
        strata.Point(ordinate, abscissa);
        double const arcTangent = reference.Atan2(ordinate, abscissa);
        for (vexor_test::Way const& way : ways) {
            Expect(way.name, "sin", 0.0, angle, way.sin(angle), sine);
            Expect(way.name, "cos", 0.0, angle, way.cos(angle), cosine);
            vexor::SineAndCosine const both = way.sinCos(angle);
            Expect(way.name, "sinCos", 0.0, angle, both.sine, sine);
            Expect(way.name, "sinCos", 0.0, angle, both.cosine, cosine);
            Expect(way.name, "acos", 0.0, x, way.acos(x), arcCosine);
            Expect(way.name, "atan2", ordinate, abscissa, way.atan2(ordinate, abscissa), arcTangent);
        }
    }
    std::printf("seed %llu, %lld arguments a function, %d ways, %lld differing\n",
                static_cast<unsigned long long>(seed), cases, static_cast<int>(ways.size()), differing);
    if (differing > 0 || cases <= 0)
        return 1;
    std::puts("vexor tests completed");
    return 0;
}
