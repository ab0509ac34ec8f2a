#pragma once

#ifndef _WIN32
#include <unistd.h>
#endif

// While it lives, the process has no more rights than a plain user, even if root runs the tests:
// for root no file is closed. What the test needs must be open to all.
class [[maybe_unused]] PlainUser {
 public:
#ifdef _WIN32
  PlainUser() = default;
#else
  PlainUser() : previous(geteuid()) {
    if (previous == 0) Become(nobody);
  }
  ~PlainUser() {
    if (previous == 0) Become(previous);
  }
#endif
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;

#ifndef _WIN32
 private:
  static constexpr uid_t nobody = 65534;

  // The saved user stays root, for the way back. Where that is not allowed, the test finds
  // everything open and skips itself.
  static void Become(uid_t user) {
    [[maybe_unused]] const int failed = setresuid(user, user, 0);
  }

  uid_t previous;
#endif
};
