#include <map>

#include "hostile/Case.h"

namespace {

constexpr const char* sorted = "properties and domains are listed in order";

HostileCase DomenSection(const char* input, std::size_t size,
                         std::function<std::string(std::size_t)> body,
                         std::function<void(Subject&)> ask, const char* rule = "",
                         double most = 2.2) {
  return {"==DOMEN",
          input,
          size,
          "domens.txt",
          [body](std::size_t count) { return "==DOMEN\n@@@ D\n" + body(count); },
          std::move(ask),
          rule,
          most};
}

void RequireOneProperty(Subject& subject) {
  Require(PropertyCount(subject, L"D") == 1, "one property");
}

void RequireOneField(Subject& subject) {
  Require(FieldCount(subject, L"D", L"P") == 1, "one field");
}

void RequireFields(Subject& subject) {
  Require(FieldCount(subject, L"D", L"P") == static_cast<int>(subject.size), "the fields");
}

void RequireProperties(Subject& subject) {
  Require(PropertyCount(subject, L"D") == static_cast<int>(subject.size), "the properties");
}

}  // namespace

HostileCases DomenCases() {
  return {
      DomenSection(
          "bytes on one line", 100'000'000,
          [](std::size_t size) { return "@ P 0 1 " + Times(size, "x"); }, RequireOneProperty),
      DomenSection(
          "semicolons", 10'000'000, [](std::size_t size) { return Times(size, ";") + "@ P 0 1"; },
          RequireOneProperty),
      DomenSection(
          "blanks of an entry", 40'000'000,
          [](std::size_t size) { return "@ P 0" + Times(size, " ") + "1"; }, RequireOneProperty),
      DomenSection(
          "words of a title", 10'000'000,
          [](std::size_t size) { return "@ P 0 1\nF int 0 1" + Times(size, " x"); },
          RequireOneField),
      DomenSection(
          "digits of an integer", 10'000'000,
          [](std::size_t size) { return "@ P 0 " + Times(size, "0") + "1"; }, RequireOneProperty),
      DomenSection(
          "digits of a real", 10'000'000,
          [](std::size_t size) { return "@ P 0 1\nF real 0 0." + Times(size, "0123456789"); },
          RequireOneField),
      DomenSection(
          "quotation marks of a string", 10'000'000,
          [](std::size_t size) { return "@ P 0 1\nF str 0 " + Times(size, "\""); },
          RequireOneField),
      DomenSection(
          "object types of one property", 4'000'000,
          [](std::size_t size) { return "@@" + Times(size, " Door") + "\n@ P 0 1\n"; },
          RequireOneProperty),
      DomenSection(
          "domains of one id", 1'000'000,
          [](std::size_t size) { return Times(size, "@@@ D\n") + "@ P 0 1\n"; },
          RequireOneProperty),
      DomenSection(
          "properties of one id", 1'000'000,
          [](std::size_t size) { return Times(size, "@ P 0 1\n"); }, RequireOneProperty),
      DomenSection(
          "fields of one name", 1'000'000,
          [](std::size_t size) { return "@ P 0 1\n" + Times(size, "F int 0 1\n"); },
          RequireOneField),
      DomenSection(
          "fields of one property", 1'000'000,
          [](std::size_t size) {
            return "@ P 0 1\n" +
                   Join(size, [](std::size_t i) { return LongName(i) + " int 0 1\n"; });
          },
          RequireFields),
      DomenSection(
          "returns to one property, each with a field", 1'000'000,
          [](std::size_t size) {
            return Join(size, [](std::size_t i) { return "@ P 0 1\nf" + Seven(i) + " int 0 1\n"; });
          },
          RequireFields),
      {"==DOMEN", "sections, each with a field of one property", 1'000'000, "domens.txt",
       [](std::size_t size) {
         return Join(size, [](std::size_t i) {
           return "==DOMEN\n@@@ D\n@ P 0 1\nf" + Seven(i) + " int 0 1\n";
         });
       },
       RequireFields},
      DomenSection(
          "properties that begin alike", 1'000'000,
          [](std::size_t size) {
            return Join(size, [](std::size_t i) { return "@ " + LongName(i) + " 0 1\n"; });
          },
          RequireProperties),
      DomenSection(
          "properties that begin alike, out of order", 1'000'000,
          [](std::size_t size) {
            return Join(size, [size](std::size_t i) {
              return "@ " + LongName(Shuffled(i, size)) + " 0 1\n";
            });
          },
          RequireProperties, sorted, 2.7),
      {"==DOMEN", "domains that begin alike, out of order", 1'000'000, "domens.txt",
       [](std::size_t size) {
         return "==DOMEN\n" + Join(size, [size](std::size_t i) {
                  return "@@@ " + LongName(Shuffled(i, size)) + "\n";
                });
       },
       [](Subject& subject) { Require(DomenIds(subject).size() == subject.size, "the domains"); },
       sorted, 2.7},
      // The cost of the same names without a reader.
      {"std::map", "names that begin alike, out of order", 1'000'000, "", nullptr,
       [](Subject& subject) {
         std::map<std::wstring, std::size_t> names;
         for (std::size_t i = 0; i < subject.size; ++i) {
           const std::string name = LongName(Shuffled(i, subject.size));
           names.emplace(std::wstring(name.begin(), name.end()), i);
         }
         Require(names.size() == subject.size, "all names");
       },
       "it keeps them in order", 2.7},
      DomenSection(
          "object types, and properties that take them", 2'000,
          [](std::size_t size) {
            return "@@" + Times(size, " Door") + "\n" +
                   Join(size, [](std::size_t i) { return "@ P" + Seven(i) + " 0 1\n"; });
          },
          RequireProperties, "each property has its object types for itself", 4.4),
  };
}
