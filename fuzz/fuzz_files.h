// The files a fuzz target converts between: the input holding the bytes of
// one run and an output, both private to the process and removed afterwards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace quelcnv::fuzz {

class FuzzFiles {
public:
    FuzzFiles(const std::uint8_t* data, std::size_t size)
        : input_(path("input")), output_(path("output")) {
        if (std::FILE* file = std::fopen(input_.c_str(), "wb")) {
            if (size > 0) std::fwrite(data, 1, size, file);
            std::fclose(file);
        }
    }
    FuzzFiles(const FuzzFiles&) = delete;
    FuzzFiles& operator=(const FuzzFiles&) = delete;
    ~FuzzFiles() {
        std::remove(input_.c_str());
        std::remove(output_.c_str());
    }
    const std::string& input() const { return input_; }
    const std::string& output() const { return output_; }

private:
    static std::string path(const char* name) {
        std::string file = "quelcnv-fuzz-" + std::to_string(::getpid());
        file += '-';
        file += name;
        return (std::filesystem::temp_directory_path() / file).string();
    }

    std::string input_;
    std::string output_;
};

}  // namespace quelcnv::fuzz
