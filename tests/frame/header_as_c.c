/* Compiled as C: the public header must be usable from C, and every entry
 * point of the table must be declared in it. */
#include "quelcnv.h"

typedef void (*AnyEntryPoint)(void);

#define QUELCNV_ENTRY(name, result, arguments, state, output, help) (AnyEntryPoint) MyDll_##name,
static const AnyEntryPoint entryPoints[] = {
#include "entry_point_table.inc"
};
#undef QUELCNV_ENTRY

int quelcnvEntryPointsSeenFromC(void) { return (int)(sizeof entryPoints / sizeof entryPoints[0]); }
