// Writes the files that bench_memory loads: classificator_1.txt of one megabyte and so on,
// domain_10000.txt and domain_10000.json. It is a separate program, so that the memory for making
// them isn't counted.
//
//   bench_memory_files FOLDER [--brief]

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "support/Domains.h"
#include "support/Run.h"
#include "support/Schemes.h"

namespace {

void Write(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  Require(static_cast<bool>(file), path.string());
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  if (argumentCount != 2) {
    std::cerr << "bench_memory_files FOLDER [--brief]\n";
    return EXIT_FAILURE;
  }
  const std::filesystem::path folder = arguments[1];
  for (const std::size_t megabytes : {1, 10, 100}) {
    if (brief && megabytes > 1) break;
    Write(folder / ("classificator_" + std::to_string(megabytes) + ".txt"),
          MakeSchemeFile(megabytes * 1'000'000).text);
  }
  const DomainData domain = MakeDomain(brief ? 100 : 10'000);
  const std::string name = "domain_" + std::to_string(domain.size());
  Write(folder / (name + ".txt"), MakeDomainText(domain, "Domain"));
  Write(folder / (name + ".json"), MakeDomainJson(domain, "Domain"));
  return EXIT_SUCCESS;
}
