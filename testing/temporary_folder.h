// A real folder that is gone when the test is.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace brelwin::test {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "brelwin-XXXXXX").string();
    if (::mkdtemp(name.data()) != nullptr) path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }

  const std::filesystem::path& Path() const { return path_; }

  // The full path of a file in it; of the folder itself for an empty name.
  std::string In(std::string_view name) const { return (name.empty() ? path_ : path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace brelwin::test
