#pragma once

#ifndef _WIN32
#include <unistd.h>
#endif

// Drops the privileges of root for its lifetime, because root may read and write every file.
// REQUIRES: all users may read what the test needs.
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

  // The saved user id stays root, to restore it. If that is not allowed, the test finds every file
  // accessible and is skipped.
  static void Become(uid_t user) {
    [[maybe_unused]] const int failed = setresuid(user, user, 0);
  }

  uid_t previous;
#endif
};
