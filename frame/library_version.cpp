#include "frame/library_version.h"

namespace quelcnv {

std::string_view libraryVersion() { return QUELCNV_LIBRARY_VERSION; }

}  // namespace quelcnv
