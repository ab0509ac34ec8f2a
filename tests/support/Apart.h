#pragma once

#include <sys/wait.h>
#include <unistd.h>

// Runs the work in a process of its own and gives the status of its end. The process ends without
// a word, whatever the work does.
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
