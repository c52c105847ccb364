// Replaces LAPACK on a platform that has none: the transcript calls no driver.

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void Refuse(char const* name)
{
    std::fprintf(stderr, "%s called: the transcript rests on no LAPACK\n", name);
    std::abort();
}

} // namespace

extern "C" {
void dgesv_()
{
    Refuse("dgesv");
}
void dgetrs_()
{
    Refuse("dgetrs");
}
void dsysv_()
{
    Refuse("dsysv");
}
void dsytrs_()
{
    Refuse("dsytrs");
}
void dgels_()
{
    Refuse("dgels");
}
void dgesvd_()
{
    Refuse("dgesvd");
}
void dsyevx_()
{
    Refuse("dsyevx");
}
}
