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

namespace {

const Conversion conversions[] = {
    {"ristram2nevo", fromFile<convertIstramProfileToNevo>, HostResult::doneOrFailed},
    {"rvelm2nevo", fromFile<convertVelmProfileToNevo>, HostResult::doneOrFailed},
    {"rispol2nevo", fromFile<convertIspolProfileToNevo>, HostResult::doneOrFailed},
    {"rasruxo2nevo", fromFile<convertRuxoProfileToVertexFile>, HostResult::doneOrFailed},
    {"rascartomap2ruxo", fromFile<convertCartomapProfileToVelm>, HostResult::doneOrFailed},
    {"peralteispol2nevo", fromFile<convertIspolSuperelevation>, HostResult::doneOrFailed},
    {"peralteClip2nevo", fromFile<convertClipSuperelevation>, HostResult::doneOrFailed},
};

}  // namespace

std::span<const Conversion> profileConversions() { return conversions; }

}  // namespace quelcnv
