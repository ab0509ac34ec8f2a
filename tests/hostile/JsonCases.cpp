// Cases for JSON5 files: the reader, and the domain that it fills.

#include "hostile/Case.h"

namespace {

// A case with a domain of one property, and something else in the file.
HostileCase Json(const char* input, std::size_t size, std::function<std::string(std::size_t)> value,
                 std::function<void(Subject&)> ask) {
  return {"JSON5",
          input,
          size,
          "D.json",
          [value](std::size_t count) {
            return "{Domen: {asFuncsNames: ['P']}, other: " + value(count) + "\n}";
          },
          std::move(ask)};
}

void RequireOneProperty(Subject& subject) {
  Require(PropertyCount(subject, L"D") == 1, "one property");
}

// Requires an empty domain, because the file is malformed.
void RequireNone(Subject& subject) {
  Require(PropertyCount(subject, L"D") == 0, "no properties");
}

void RequireProperties(Subject& subject) {
  Require(PropertyCount(subject, L"D") == static_cast<int>(subject.size), "the properties");
}

HostileCase Domain(const char* input, std::size_t size,
                   std::function<std::string(std::size_t)> file, std::function<void(Subject&)> ask,
                   const char* rule = "", double most = 2.2) {
  return {"JSON5 domain", input, size, "D.json", std::move(file), std::move(ask), rule, most};
}

// Returns the names in quotation marks, separated by commas.
std::string Names(std::size_t count, const std::function<std::string(std::size_t)>& name) {
  return Join(count, [&](std::size_t i) { return "'" + name(i) + "',"; });
}

std::string Members(std::size_t count, const std::function<std::string(std::size_t)>& member) {
  return "{" + Join(count, [&](std::size_t i) { return member(i) + ","; }) + "}";
}

}  // namespace

HostileCases JsonCases() {
  return {
      Json(
          "bytes of a string", 100'000'000,
          [](std::size_t size) { return "'" + Times(size, "x") + "'"; }, RequireOneProperty),
      Json(
          "bytes of a comment", 100'000'000,
          [](std::size_t size) { return "0 //" + Times(size, "x"); }, RequireOneProperty),
      Json(
          "strokes and stars of an open comment", 10'000'000,
          [](std::size_t size) { return "0" + Times(size / 2, "/*"); }, RequireNone),
      Json(
          "comments", 1'000'000, [](std::size_t size) { return Times(size, "/**/") + "0"; },
          RequireOneProperty),
      Json(
          "commas", 10'000'000, [](std::size_t size) { return "[" + Times(size, "0,") + "]"; },
          RequireOneProperty),
      Json(
          "levels of arrays", 1'000'000,
          [](std::size_t size) { return Times(size, "[") + Times(size, "]"); }, RequireNone),
      Json(
          "levels of objects", 1'000'000,
          [](std::size_t size) { return Times(size, "{a:") + "0" + Times(size, "}"); },
          RequireNone),
      Json(
          "brackets without end", 10'000'000, [](std::size_t size) { return Times(size, "["); },
          RequireNone),
      Json(
          "arrays, a thousand levels deep", 1'000'000,
          [](std::size_t size) {
            return "[" + Times(size / 990, Times(990, "[") + Times(990, "]") + ",") + "]";
          },
          RequireOneProperty),
      Json(
          "empty objects", 1'000'000,
          [](std::size_t size) { return "[" + Times(size, "{},") + "]"; }, RequireOneProperty),
      Json(
          "members of one key", 1'000'000,
          [](std::size_t size) { return Members(size, [](std::size_t) { return "a: 0"; }); },
          RequireOneProperty),
      {"JSON5", "members whose keys begin alike, out of order", 1'000'000, "D.json",
       [](std::size_t size) {
         return "{Domen: {asFuncsNames: ['P']}, other: " +
                Members(size,
                        [size](std::size_t i) { return LongName(Shuffled(i, size)) + ": 0"; }) +
                "}";
       },
       RequireOneProperty, "of equal keys the last counts, so that they are sorted", 2.7},
      Json(
          "escapes of a string", 10'000'000,
          [](std::size_t size) { return "'" + Times(size, "\\x41") + "'"; }, RequireOneProperty),
      Json(
          "escapes of a key", 10'000'000,
          [](std::size_t size) { return "{" + Times(size, "\\u0041") + ": 0}"; },
          RequireOneProperty),
      Json(
          "strings with an escape", 1'000'000,
          [](std::size_t size) { return "[" + Times(size, "'\\n',") + "]"; }, RequireOneProperty),
      Json(
          "digits of a number", 10'000'000,
          [](std::size_t size) { return "0." + Times(size, "1"); }, RequireOneProperty),
      Json(
          "digits of a number out of range", 10'000'000,
          [](std::size_t size) { return Times(size, "1"); }, RequireOneProperty),
      Json(
          "digits of an exponent", 10'000'000,
          [](std::size_t size) { return "1e" + Times(size, "1"); }, RequireOneProperty),
      Json(
          "hexadecimal digits", 10'000'000,
          [](std::size_t size) { return "0x" + Times(size, "F"); }, RequireOneProperty),
      Domain(
          "properties of one id", 1'000'000,
          [](std::size_t size) { return "{Domen: {asFuncsNames: [" + Times(size, "'P',") + "]}}"; },
          RequireOneProperty),
      Domain(
          "fields of one name", 1'000'000,
          [](std::size_t size) {
            return "{Domen: {asFuncsNames: ['P']}, Properties: {P: {asFuncsNames: [" +
                   Times(size, "'F',") + "]}}}";
          },
          [](Subject& subject) { Require(FieldCount(subject, L"D", L"P") == 1, "one field"); }),
      Domain(
          "fields of one property", 1'000'000,
          [](std::size_t size) {
            return "{Domen: {asFuncsNames: ['P']}, Properties: {P: {asFuncsNames: [" +
                   Names(size, LongName) + "]}}}";
          },
          [](Subject& subject) {
            Require(FieldCount(subject, L"D", L"P") == static_cast<int>(subject.size),
                    "the fields");
          }),
      Domain(
          "object types of one property", 1'000'000,
          [](std::size_t size) {
            return "{Domen: {asFuncsNames: ['P']}, Properties: {P: {asObjectTypes: [" +
                   Times(size, "'Door',") + "]}}}";
          },
          RequireOneProperty),
      Domain(
          "properties that begin alike, out of order", 400'000,
          [](std::size_t size) {
            const auto name = [size](std::size_t i) { return LongName(Shuffled(i, size)); };
            return "{Domen: {asFuncsNames: [" + Names(size, name) + "]}, Properties: " +
                   Members(size, [&](std::size_t i) { return name(i) + ": {iSortId: 1}"; }) + "}";
          },
          RequireProperties, "properties are listed in order", 2.7),
      Domain(
          "times that one property is named, and its fields", 1'000,
          [](std::size_t size) {
            return "{Domen: {asFuncsNames: [" + Times(size, "'P',") +
                   "]}, Properties: {P: {asFuncsNames: [" + Names(size, LongName) + "]}}}";
          },
          [](Subject& subject) {
            Require(FieldCount(subject, L"D", L"P") == static_cast<int>(subject.size),
                    "the fields");
          },
          "a property is read as often as the list names it", 4.4),
  };
}
