#include "support/Peers.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <stdexcept>

#include "base/Text.h"
#include "base/Utf8.h"

using TolvenLibs::RevitMappingEditorDll::EncodeUtf8;
using TolvenLibs::RevitMappingEditorDll::Trimmed;

namespace {

void AppendEscaped(std::string& expression, std::string_view token) {
  for (const char character : token) {
    if (std::string_view("\\^$.|?*+()[]{}").find(character) != std::string_view::npos) {
      expression += '\\';
    }
    expression += character;
  }
}

// Matching bytes instead of code points has the same answers here, with smaller automata. The
// memory bound is large enough that the automaton of 100,000 patterns is never discarded.
RE2::Options Re2Options() {
  RE2::Options options(RE2::Latin1);
  options.set_max_mem(std::int64_t{8} << 30);
  return options;
}

void Require(hs_error_t error) {
  if (error != HS_SUCCESS) throw std::runtime_error("Hyperscan fails");
}

hs_database_t* Compile(const std::vector<std::string>& expressions) {
  std::vector<const char*> texts;
  for (const std::string& expression : expressions) texts.push_back(expression.c_str());
  std::vector<unsigned> ids(expressions.size());
  std::iota(ids.begin(), ids.end(), 0u);
  hs_database_t* database = nullptr;
  hs_compile_error_t* error = nullptr;
  if (hs_compile_multi(texts.data(), nullptr, ids.data(), static_cast<unsigned>(texts.size()),
                       HS_MODE_BLOCK, nullptr, &database, &error) != HS_SUCCESS) {
    const std::string message = error->message;
    hs_free_compile_error(error);
    throw std::runtime_error("Hyperscan: " + message);
  }
  return database;
}

hs_scratch_t* MakeScratch(const hs_database_t* database) {
  hs_scratch_t* scratch = nullptr;
  Require(hs_alloc_scratch(database, &scratch));
  return scratch;
}

int KeepLeast(unsigned id, unsigned long long, unsigned long long, unsigned, void* least) {
  unsigned& kept = *static_cast<unsigned*>(least);
  kept = std::min(kept, id);
  return 0;
}

}  // namespace

std::string MakeExpression(const Tokens& tokens) {
  std::string expression = "^";
  for (const std::wstring& token : tokens) {
    if (&token != &tokens.front()) expression += "[^ ]* ";
    AppendEscaped(expression, EncodeUtf8(token).value());
  }
  return expression;
}

std::string MakeSubject(std::wstring_view text) {
  UpperWords words;
  std::string subject;
  for (const std::wstring_view word : words.Cut(text)) {
    subject += EncodeUtf8(Trimmed(word)).value() + " ";
  }
  subject.pop_back();
  return subject;
}

Re2Peer::Re2Peer(const std::vector<std::string>& expressions)
    : set(Re2Options(), RE2::ANCHOR_START) {
  for (const std::string& expression : expressions) {
    if (set.Add(expression, nullptr) < 0) throw std::runtime_error("RE2 refuses " + expression);
  }
  if (!set.Compile()) throw std::runtime_error("RE2 runs out of memory");
}

int Re2Peer::Find(const std::string& subject) {
  if (!set.Match(subject, &matches)) return -1;
  return *std::min_element(matches.begin(), matches.end());
}

HyperscanPeer::HyperscanPeer(const std::vector<std::string>& expressions)
    : database(Compile(expressions), hs_free_database),
      scratch(MakeScratch(database.get()), hs_free_scratch) {}

int HyperscanPeer::Find(const std::string& subject) const {
  constexpr unsigned none = std::numeric_limits<unsigned>::max();
  unsigned least = none;
  Require(hs_scan(database.get(), subject.data(), static_cast<unsigned>(subject.size()), 0,
                  scratch.get(), KeepLeast, &least));
  return least == none ? -1 : static_cast<int>(least);
}
