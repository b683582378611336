#include "crosssection/section_point_table.h"

#include <limits>

namespace quelcnv {

void SectionPointTable::startSection(double station) { stations_.push_back(station); }

bool SectionPointTable::add(double offset, double elevation, std::string_view code) {
    if (points_.size() >= std::numeric_limits<std::uint32_t>::max()) {
        overflowed_ = true;
        return false;
    }
    if (stations_.empty()) stations_.push_back(0.0);
    auto section = static_cast<std::uint32_t>(stations_.size() - 1);
    points_.push_back({offset, elevation, section, codeIndex(code)});
    return true;
}

std::uint32_t SectionPointTable::codeIndex(std::string_view code) {
    if (!codes_.empty() && codes_[lastCode_] == code) return lastCode_;
    auto found = codeIndices_.find(code);
    if (found != codeIndices_.end()) return lastCode_ = found->second;
    std::string_view kept = codeTexts_.emplace_back(code);
    auto index = static_cast<std::uint32_t>(codes_.size());
    codes_.push_back(kept);
    codeIndices_.emplace(kept, index);
    return lastCode_ = index;
}

}  // namespace quelcnv
