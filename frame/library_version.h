// The library's version, as its package and its command give it.
#pragma once

#include <string_view>

namespace quelcnv {

std::string_view libraryVersion();

}  // namespace quelcnv
