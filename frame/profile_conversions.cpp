// The vertical profile and superelevation conversions: each runs one
// converter.
#include "frame/conversion.h"
#include "profile/cartomap_profile.h"
#include "profile/clip_superelevation.h"
#include "profile/ispol_profile.h"
#include "profile/ispol_superelevation.h"
#include "profile/istram_profile.h"
#include "profile/ruxo_profile.h"
#include "profile/velm_profile.h"

namespace quelcnv {

namespace {}  // namespace

QUELCNV_CONVERSION(ristram2nevo, fromFile<convertIstramProfileToNevo>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(rvelm2nevo, fromFile<convertVelmProfileToNevo>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(rispol2nevo, fromFile<convertIspolProfileToNevo>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(rasruxo2nevo, fromFile<convertRuxoProfileToVertexFile>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(rascartomap2ruxo, fromFile<convertCartomapProfileToVelm>,
                   HostResult::doneOrFailed)
QUELCNV_CONVERSION(peralteispol2nevo, fromFile<convertIspolSuperelevation>,
                   HostResult::doneOrFailed)
QUELCNV_CONVERSION(peralteClip2nevo, fromFile<convertClipSuperelevation>, HostResult::doneOrFailed)

}  // namespace quelcnv
