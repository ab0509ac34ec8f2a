// The alternatives for a lookup: libraries that search for many regular expressions at once. Their
// patterns and texts are converted to UTF-8 and capitals beforehand.

#pragma once

#include <hs/hs.h>
#include <re2/set.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/Words.h"

// Returns the regular expression that is equivalent to the tokens, like "^BASIC[^ ]* WALL".
std::string MakeExpression(const Tokens& tokens);

// Returns the words of a text in capitals, as the expressions expect them.
std::string MakeSubject(std::wstring_view text);

class Re2Peer {
 public:
  explicit Re2Peer(const std::vector<std::string>& expressions);

  // Returns the position of the first expression that matches, or -1.
  int Find(const std::string& subject);

 private:
  RE2::Set set;
  std::vector<int> matches;
};

// Copies share the compiled database, which a search doesn't change, so a copy is as good as new.
class HyperscanPeer {
 public:
  explicit HyperscanPeer(const std::vector<std::string>& expressions);

  // Returns the position of the first expression that matches, or -1.
  int Find(const std::string& subject) const;

 private:
  std::shared_ptr<hs_database_t> database;
  std::shared_ptr<hs_scratch_t> scratch;
};
