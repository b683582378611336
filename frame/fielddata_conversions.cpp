// The field data conversions: the level book, the points files, the Medrix
// files and the header of robotic readings.
#include "fielddata/ign_level_book.h"
#include "fielddata/lea_medrix.h"
#include "fielddata/level_upload.h"
#include "fielddata/nevo_medrix.h"
#include "fielddata/nevo_points.h"
#include "fielddata/robotic_header.h"
#include "frame/conversion.h"

namespace quelcnv {

namespace {

// entrada, salida, then the texts of the book's header.
Outcome anivel2ing(Call& a) { return convertLevelBook(a[0], a[1], {a[2], a[3], a[4], a[5], a[6]}); }

// Processing robotic readings into a report is not provided in this version.
Outcome procesaRobotizada(Call&) { return Outcome::failed(Failure::notProvided); }

}  // namespace

QUELCNV_CONVERSION(puntos2nevo, fromFile<convertPointsToNevo>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(anivel2ing, anivel2ing, HostResult::levelBook)
QUELCNV_CONVERSION(puntos2nivel, fromFile<convertPointsToLevelUpload>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(topoLea2Medrix, fromFile<convertLeaToMedrix>, HostResult::doneOrFailed,
                   std::nullopt, "cod")
QUELCNV_CONVERSION(lectnevo2medrix, fromFile<convertNevoToMedrix>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(procesaRobotizada, procesaRobotizada, HostResult::doneOrFailed)
QUELCNV_CONVERSION(procesaCabecera, fromFile<convertRoboticHeader>, HostResult::doneOrFailed)

}  // namespace quelcnv
