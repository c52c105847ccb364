#include <vexor/vexor.h>

void Throw(int which);

/// The class of the exception: 0 null vector, 1 failed computation, 2 another of the family, −1 none.
__attribute__((visibility("default"))) int CatchInLibrary(int which)
{
    try {
        Throw(which);
    } catch (VexorNullVector const&) {
        return 0;
    } catch (VexorComputationFailed const&) {
        return 1;
    } catch (VexorException const&) {
        return 2;
    }
    return -1;
}

__attribute__((visibility("default"))) VexorTolerance* ToleranceSeenByCatcher()
{
    return &gVexorTolerance;
}
