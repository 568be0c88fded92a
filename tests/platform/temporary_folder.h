// A folder of its own for a test, gone with all its files when the test is over.
#pragma once

#include <fstream>
#include <iterator>
#include <random>

#include "tests/kit/test.h"

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() /
                ("vxd-" + std::to_string(random()) + std::to_string(random()));
        std::filesystem::create_directories(path_);
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::string operator/(std::string_view name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

inline void WriteBytes(const std::string& file, std::string_view bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
