#pragma once

#include <sys/wait.h>
#include <unistd.h>

// Runs the work in a child process and returns its status. The process ends by `_exit`, without
// flushing or destroying anything.
template <class Work>
int RunApart(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return status;
}
