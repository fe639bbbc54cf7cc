#pragma once
// Folders for the time of a test.

#include <chrono>
#include <filesystem>
#include <string>

namespace qmx::test {

// A new folder, deleted with all that is in it at the end of the scope.  Programs run side by side:
// a folder that exists is somebody else's.
class TemporaryFolder {
public:
    TemporaryFolder() {
        const auto now = std::chrono::system_clock::now().time_since_epoch().count();
        for (int i = 0; path.empty() || !std::filesystem::create_directories(path); ++i)
            path = std::filesystem::temp_directory_path() /
                   ("qmxexif-test-" + std::to_string(now) + "-" + std::to_string(i));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::filesystem::path path;
};

}  // namespace qmx::test
