#pragma once
// Runs `action` in a child process that dies at the given step (from 1) of the rewrites it
// makes, as a crash or a power cut would stop it; returns when the child has gone.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "Workspace.h"

inline void KillAtRewriteStep(int stop, const std::function<void()>& action) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    int steps = 0;
    Workspace::SetRewriteStepHook([&](int) {
      if (++steps == stop) _exit(0);
    });
    action();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
}
