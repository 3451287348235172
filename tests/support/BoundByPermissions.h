#pragma once
// Runs `call` in a child process that the file permissions bind, as they bind an engineer: run
// as root, the child becomes the user nobody first. Gives the child's status and what it wrote.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <sstream>
#include <string>

struct ChildRun {
  int status = -1;
  std::string output;
};

inline ChildRun RunBoundByPermissions(const std::function<int(std::ostream&)>& call) {
  int pipeEnds[2];
  if (pipe(pipeEnds) != 0) return {};
  const pid_t child = fork();
  if (child == 0) {
    close(pipeEnds[0]);
    constexpr uid_t kNobody = 65534;
    if (getuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 ||
                          setuid(kNobody) != 0))
      _exit(99);
    std::ostringstream out;
    const int status = call(out);
    const std::string text = out.str();
    if (write(pipeEnds[1], text.data(), text.size()) < 0) _exit(98);
    _exit(status);
  }
  close(pipeEnds[1]);
  ChildRun run;
  char buffer[4096];
  for (ssize_t n; (n = read(pipeEnds[0], buffer, sizeof buffer)) > 0;) run.output.append(buffer, n);
  close(pipeEnds[0]);
  int status = 0;
  if (child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status))
    run.status = WEXITSTATUS(status);
  return run;
}
