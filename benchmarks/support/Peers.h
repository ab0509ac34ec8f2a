// What a user would pick for a lookup otherwise: libraries that search for many regular expressions
// at once. They get their patterns and texts in UTF-8 and in capitals, made beforehand.

#pragma once

#include <hs/hs.h>
#include <re2/set.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/Words.h"

// The regular expression that finds what the tokens find: "^BASIC[^ ]* WALL".
std::string MakeExpression(const Tokens& tokens);

// The words of a text in capitals, as the expressions expect them.
std::string MakeSubject(std::wstring_view text);

class Re2Peer {
 public:
  explicit Re2Peer(const std::vector<std::string>& expressions);

  // The position of the first expression that fits, or -1.
  int Find(const std::string& subject);

 private:
  RE2::Set set;
  std::vector<int> matches;
};

// Copies share what was compiled. It doesn't change in a search, so that a copy is as good as new.
class HyperscanPeer {
 public:
  explicit HyperscanPeer(const std::vector<std::string>& expressions);

  // The position of the first expression that fits, or -1.
  int Find(const std::string& subject) const;

 private:
  std::shared_ptr<hs_database_t> database;
  std::shared_ptr<hs_scratch_t> scratch;
};
