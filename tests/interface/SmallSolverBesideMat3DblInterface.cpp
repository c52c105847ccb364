#include <vexor/matrices/Mat3Dbl.h> // alone: it brings the small solver

#include "Interface.h"

FREE(small_decompose, int(double*, unsigned char*, int));
FREE(small_substitution, void(double*, double*, unsigned char*, int, int));
