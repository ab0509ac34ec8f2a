// Cases for the export of a domain as a JSON5 file, which is read again.

#include <bit>

#include "hostile/Case.h"
#include "support/AlikeHashes.h"

namespace {

HostileCase Export(const char* input, std::size_t size,
                   std::function<std::string(std::size_t)> body,
                   std::function<void(Subject&)> ask) {
  return {"export",
          input,
          size,
          "domens.txt",
          [body](std::size_t count) { return "==DOMEN\n@@@ D\n" + body(count); },
          [ask](Subject& subject) {
            const std::wstring file = subject.folder + L"E.json";
            subject.editor.ExportJson(L"D", file.c_str());
            Require(subject.editor.CreateDomen(file.c_str()) == 0, "the exported file");
            ask(subject);
          }};
}

// The hashes are equal in all bits that a table with up to eight slots per property would use.
std::string PropertiesOfAlikeHashes(std::size_t count) {
  const auto bits = static_cast<unsigned>(std::bit_width(8 * count));
  std::string properties;
  for (const std::string& name : NamesOfAlikeHashes(count, bits)) {
    properties += "@ " + name + " 0 1\n";
  }
  return properties;
}

}  // namespace

HostileCases ExportCases() {
  const auto one = [](Subject& subject) {
    Require(PropertyCount(subject, L"E") == 1, "one property");
  };
  const auto all = [](Subject& subject) {
    Require(PropertyCount(subject, L"E") == static_cast<int>(subject.size), "the properties");
  };
  return {
      Export(
          "bytes of a name", 100'000'000,
          [](std::size_t size) { return "@ P 0 1 " + Times(size, "x"); }, one),
      Export(
          "units of a name that take an escape", 10'000'000,
          [](std::size_t size) { return "@ P 0 1 " + Times(size, "\x01") + "x"; }, one),
      Export(
          "properties", 200'000,
          [](std::size_t size) {
            return Join(size, [](std::size_t i) { return "@ " + LongName(i) + " 0 1\n"; });
          },
          all),
      Export("properties whose hashes are alike", 4'000, PropertiesOfAlikeHashes, all),
      Export(
          "fields of one property", 500'000,
          [](std::size_t size) {
            return "@ P 0 1\n" +
                   Join(size, [](std::size_t i) { return LongName(i) + " int 0 1\n"; });
          },
          [](Subject& subject) {
            Require(FieldCount(subject, L"E", L"P") == static_cast<int>(subject.size),
                    "the fields");
          }),
      Export(
          "object types of one property", 4'000'000,
          [](std::size_t size) { return "@@" + Times(size, " Door") + "\n@ P 0 1\n"; }, one),
  };
}
