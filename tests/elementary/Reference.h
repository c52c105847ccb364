#pragma once
#include <mpfr.h>

#include <initializer_list>

namespace vexor_test {

/// The double nearest to the true value, from MPFR. Use one object in each thread.
class Reference {
public:
    Reference()
    {
        mpfr_set_emin(-1073); // a double's exponents; denormals are handled below
        mpfr_set_emax(1024);
        for (mpfr_ptr number : {x_, y_, result_, second_})
            mpfr_init2(number, 53);
    }
    Reference(Reference const&) = delete;
    Reference& operator=(Reference const&) = delete;
    ~Reference()
    {
        for (mpfr_ptr number : {x_, y_, result_, second_})
            mpfr_clear(number);
    }

    void SinCos(double x, double& sine, double& cosine)
    {
        mpfr_set_d(x_, x, MPFR_RNDN);
        int const status = mpfr_sin_cos(result_, second_, x_, MPFR_RNDN);
        sine = Finish(result_, status & 3);
        cosine = mpfr_get_d(second_, MPFR_RNDN);
    }

    double Acos(double x)
    {
        mpfr_set_d(x_, x, MPFR_RNDN);
        return Finish(result_, mpfr_acos(result_, x_, MPFR_RNDN));
    }

    double Atan2(double y, double x)
    {
        mpfr_set_d(x_, x, MPFR_RNDN);
        mpfr_set_d(y_, y, MPFR_RNDN);
        return Finish(result_, mpfr_atan2(result_, y_, x_, MPFR_RNDN));
    }

private:
    /// The ternary value of two results together is 0, 1 or 2 for exact, rounded up and rounded down.
    static double Finish(mpfr_ptr value, int status)
    {
        mpfr_subnormalize(value, status == 2 ? -1 : status, MPFR_RNDN);
        return mpfr_get_d(value, MPFR_RNDN);
    }

    mpfr_t x_, y_, result_, second_;
};

} // namespace vexor_test
