// `ravolinette --recalculate` on a study of 200 sheets as a whole process, beside a process
// that only copies the same two files (cp), and beside the program started with nothing to do
// (--help). Prints the median of 9 runs of each.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "StudyMaker.h"
#include "TempFolder.h"

extern char** environ;

namespace {

// Runs a process with its output thrown away; the wall time in milliseconds.
double Run(const std::vector<std::string>& args) {
  std::vector<char*> argv;
  for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  const auto start = std::chrono::steady_clock::now();
  pid_t pid = 0;
  if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0)
    throw std::runtime_error("cannot start " + args[0]);
  int status = 0;
  waitpid(pid, &status, 0);
  const auto end = std::chrono::steady_clock::now();
  posix_spawn_file_actions_destroy(&actions);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) throw std::runtime_error(args[0] + " failed");
  return std::chrono::duration<double, std::milli>(end - start).count();
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

}  // namespace

// With a folder as argument, the program folder and its study are copied there for a profiler.
int main(int argc, char** argv) {
  setenv("RAVOLINETTE_PAUSE_MS", "0", 1);
  TempFolder home;
  Workspace ws(home.Path());
  ws.SetPauseMilliseconds(0);
  WriteStartFiles(home.Path());
  const auto study = MakeStudyOfCopies(
      ws, "Μελέτη", 200, {"950", "820", "1130", "640", "780", "1010", "560", "870"}, "III/905");
  const auto lps = study.parent_path() / "Μελέτη.lps";
  if (argc > 1)
    std::filesystem::copy(home.Path(), argv[1], std::filesystem::copy_options::recursive);
  std::filesystem::create_directory(home / "copy");
  std::vector<double> recalculate, copy, start;
  for (int i = 0; i < 9; ++i) {
    start.push_back(Run({RAVO_PROGRAM, "--help"}));
    recalculate.push_back(
        Run({RAVO_PROGRAM, "--home", home.Path().string(), "--recalculate", study.string()}));
    copy.push_back(Run({"/bin/cp", study.string(), lps.string(), (home / "copy").string()}));
  }
  const double r = Median(recalculate), c = Median(copy);
  std::printf("study of 200 sheets (%ju + %ju bytes)\n",
              static_cast<uintmax_t>(std::filesystem::file_size(study)),
              static_cast<uintmax_t>(std::filesystem::file_size(lps)));
  std::printf("ravolinette --recalculate   %8.1f ms\n", r);
  std::printf("cp of the same two files    %8.1f ms\n", c);
  std::printf("ratio                       %8.1f x\n", r / c);
  // What no batch run can go under: the program starting and ending with nothing to do.
  std::printf("ravolinette --help          %8.1f ms (%.1f x the copy)\n", Median(start),
              Median(start) / c);
  return 0;
}
