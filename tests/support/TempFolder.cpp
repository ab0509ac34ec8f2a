#include "support/TempFolder.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "support/PathTexts.h"

namespace fs = std::filesystem;

TempFolder::TempFolder() {
  static std::atomic<int> made = 0;
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  do {
    path_ = fs::temp_directory_path() /
            ("mapping-editor-" + std::to_string(now) + "-" + std::to_string(made++));
  } while (!fs::create_directory(path_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::wstring TempFolder::Wide() const {
  return WideText(path_);
}

std::wstring TempFolder::Write(std::string_view name, std::string_view bytes) const {
  const fs::path inFolder = Utf8Path(name);
  std::ofstream file(path_ / inFolder, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("can't write a test's file");
  return Wide() + L"/" + WideText(inFolder);
}
