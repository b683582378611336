#include "crosssection/section_point_table.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quelcnv {

void SectionPointTable::startSection(double station) { stations_.push_back(station); }

bool SectionPointTable::add(double offset, double elevation, std::string_view code) {
    if (size_ >= std::numeric_limits<std::uint32_t>::max()) {
        overflowed_ = true;
        return false;
    }
    if (stations_.empty()) stations_.push_back(0.0);
    if ((size_ & (blockSize - 1)) == 0) blocks_.push_back(std::make_unique<Point[]>(blockSize));
    auto section = static_cast<std::uint32_t>(stations_.size() - 1);
    blocks_.back()[size_ & (blockSize - 1)] = {offset, elevation, section, codeIndex(code)};
    ++size_;
    return true;
}

bool SectionPointTable::inStationOrder(double tolerance) const {
    double station = 0.0, highestOffset = 0.0;
    for (std::size_t i = 0; i < size_; ++i) {
        SectionPointText p = at(i);
        if (std::isnan(p.station) || std::isnan(p.offset)) return false;
        if (i == 0 || p.station != station) {
            if (i > 0 && !(p.station - station >= tolerance)) return false;
            station = p.station;
            highestOffset = p.offset;
        } else if (highestOffset - p.offset >= tolerance) {
            return false;
        }
        highestOffset = std::max(highestOffset, p.offset);
    }
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
