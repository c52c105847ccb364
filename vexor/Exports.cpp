// Puts every inline function of the headers into the library's export table as well, for clients
// that do not inline. It is the only source that emits them.
#define VEXOR_EMITTING_INLINES
#include <vexor/vexor.h>
