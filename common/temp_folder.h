// A private folder under the system's temporary folder for files written
// only to be read back (an alignment taken out of a LandXML document, a
// format imported into the library's own), removed with it.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <string_view>

namespace quelcnv {

class TempFolder {
public:
    explicit TempFolder(std::string_view purpose) {
        namespace fs = std::filesystem;
        std::error_code error;
        fs::path base = fs::temp_directory_path(error);
        std::random_device random;
        for (int attempt = 0; attempt < 100 && folder_.empty(); ++attempt) {
            fs::path candidate =
                base / ("quelcnv-" + std::string(purpose) + "-" + std::to_string(random()));
            if (fs::create_directory(candidate, error)) folder_ = candidate;
        }
    }
    ~TempFolder() {
        std::error_code ignored;
        if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    std::string file(const char* name) const { return (folder_ / name).string(); }
    bool ready() const { return !folder_.empty(); }

private:
    std::filesystem::path folder_;
};

}  // namespace quelcnv
