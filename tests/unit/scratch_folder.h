// A fresh folder under the system's temporary folder, removed with everything
// in it when the test ends; and raw byte access to the files in it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <string_view>

#include "text/base/wide_string.h"

namespace NScrivolt::Testing {

class CScratchFolder {
 public:
  CScratchFolder() {
    std::random_device random;
    const std::filesystem::path base = std::filesystem::temp_directory_path();
    do {
      folder_ = base / ("scrivolt-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(folder_));
  }
  CScratchFolder(const CScratchFolder&) = delete;
  CScratchFolder& operator=(const CScratchFolder&) = delete;
  ~CScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::filesystem::path Native(std::string_view name) const { return folder_ / std::string(name); }
  WString Path(std::string_view name) const { return Native(name).u16string(); }
  WString Folder() const { return folder_.u16string(); }

  void Put(std::string_view name, std::string_view bytes) const {
    std::ofstream file(Native(name), std::ios::binary);
    file.write(bytes.data(), std::streamsize(bytes.size()));
  }

  std::string Get(std::string_view name) const {
    std::ifstream file(Native(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }

  // The names in the folder, to see that no temporary file was left behind.
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace NScrivolt::Testing
