// Files that a check has much to say about: it may cost no more than their size either.

#include <algorithm>

#include "authoring/Check.h"
#include "hostile/Case.h"

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;

std::size_t CountOf(const Report& report, int number) {
  return static_cast<std::size_t>(
      std::count_if(report.findings.begin(), report.findings.end(),
                    [number](const Finding& finding) { return finding.number == number; }));
}

std::size_t CountOf(const Report& report, Fate fate) {
  return static_cast<std::size_t>(
      std::count_if(report.statements.begin(), report.statements.end(),
                    [fate](const Statement& statement) { return statement.fate == fate; }));
}

using Requirement = std::function<void(const Report& report, std::size_t size)>;

HostileCase Checked(const char* input, std::size_t size,
                    std::function<std::string(std::size_t)> bytes, Requirement require) {
  return {"check", input, size, "scheme.txt", std::move(bytes), [require](Subject& subject) {
            LoadedFiles loaded;
            Require(!LoadFiles({{subject.folder + L"scheme.txt"}, {}}, loaded), "the load");
            require(CheckFiles(loaded), subject.size);
          }};
}

// All of so many findings, or all but the one statement that counts.
Requirement Findings(int number, std::size_t without = 0) {
  return [number, without](const Report& report, std::size_t size) {
    Require(CountOf(report, number) == size - without, "the findings");
  };
}

Requirement Fates(Fate fate) {
  return [fate](const Report& report, std::size_t size) {
    Require(CountOf(report, fate) >= size - 1, "the fates");
  };
}

HostileCase Repeated(const char* input, std::size_t size, const std::string& head,
                     const std::string& statement, Requirement require) {
  return Checked(
      input, size, [=](std::size_t count) { return head + Times(count, statement); },
      std::move(require));
}

}  // namespace

HostileCases CheckCases() {
  const std::string property = "==DOMEN\n@@@ D\n@ P 0 1\n";
  return {
      Repeated("bytes on one line", 20'000'000, "==MAPTEXT\n", "x",
               [](const Report& report, std::size_t) {
                 Require(report.statements.size() == 2, "the statements");
               }),
      Repeated("statements on one line", 500'000, "==MAPTEXT\n", "wall;", Findings(209, 1)),
      Checked(
          "statements of two lengths on one line", 200'000,
          [](std::size_t size) {
            return "==MAPTEXT\nwall;" +
                   Join(size / 2, [](std::size_t i) { return "wall " + Seven(i) + ";wall;"; });
          },
          Findings(209)),
      Repeated("empty statements", 1'000'000, "==MAPTEXT\n", ";", Fates(Fate::blank)),
      Repeated("blank lines", 1'000'000, "==MAPTEXT\n", "\n", Fates(Fate::blank)),
      Repeated("lines outside all sections", 500'000, "", "x\n", Fates(Fate::ignored)),
      Checked(
          "patterns that shadow one another", 100'000,
          [](std::size_t size) {
            return "==MAPTEXT\n@A\nwall\n" +
                   Join(size, [](std::size_t i) { return "wall " + Seven(i) + "\n"; });
          },
          Findings(209)),
      Repeated("default codes", 200'000, "==MAPTEXT\n", "$ Z\n", Findings(204, 1)),
      Repeated("domain lists", 200'000, "==MAPTEXT\n", "@@ (D)\n", Findings(202, 1)),
      Repeated("headers without a pattern", 200'000, "==MAPTEXT\n", "@A\n", Findings(207)),
      Repeated("blocks on one line", 100'000, "==MAPTEXT\n@@ (D)\nwall\n@A", " {P=1}",
               [](const Report& report, std::size_t) {
                 Require(CountOf(report, 207) == 1, "the header");
               }),
      Checked(
          "items of one header that no domain has", 100'000,
          [](std::size_t size) {
            return "==MAPTEXT\n@@ (D)\n@A" + Times(size, " {P=1}") + "\nwall";
          },
          Findings(301)),
      Checked(
          "headers with an item that no domain has", 100'000,
          [](std::size_t size) {
            return "==MAPTEXT\n@@ (D)\n" + Join(size, [](std::size_t i) {
                     return "@A {P" + Seven(i) + "=1}\nwall" + Seven(i) + "\n";
                   });
          },
          Findings(301)),
      Repeated("sections that replace one another", 100'000, "", "==MAPTEXT\n@A\nwall\n",
               Findings(110, 1)),
      Repeated("sections of no known kind", 200'000, "", "==X\nx\n", Findings(105)),
      Repeated("definitions of one domain", 200'000, "==DOMEN\n", "@@@ D\n", Fates(Fate::used)),
      Repeated("definitions of one property", 200'000, property, "@ P 0 1\n", Findings(405)),
      Repeated("definitions of one field", 200'000, property + "F int 0 1\n", "F int 0 1\n",
               Findings(410)),
      Repeated("refused fields", 200'000, property, "F num 0 1\n", Findings(408)),
      Repeated("colours of one key text", 200'000, "==COLORAT\n@c C\n", "k 1 2 3 4\n",
               Findings(604, 1)),
      Repeated("colour lines of no colour", 200'000, "==COLORAT\n@c C\n", "k 1\n", Findings(603)),
      Repeated("blocks of a Colorat on one line", 200'000, "==COLORAT\n", "@c", Findings(601)),
  };
}
