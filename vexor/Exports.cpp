// Puts every inline function of the headers into the library's export table too, for clients
// that do not inline. No other source emits them.
#define VEXOR_EMITTING_INLINES
#include <vexor/vexor.h>
