// A pipe, or anything that is not a file, where the program expects one of its files: the start
// goes on at once, and what it reads there is refused with a message instead of waited on.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "MainScreen.h"

namespace {

TEST(NotAFileTest, APipeInPlaceOfAFileNeverHoldsTheStartUp) {
  for (const char* name : {"RavoPipes.txt", kSectionFamilyMaster, "SHEETS.TMP", "LOOPS.TMP"}) {
    MainScreen screen;
    screen.WritePipes({"Φ16x1"});
    screen.WriteSectionFamilyMaster();
    std::filesystem::remove(screen.folder / name);
    ASSERT_EQ(::mkfifo((screen.folder / name).c_str(), 0644), 0) << name;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::alarm(10);  // a start that waits on the pipe dies here, and the test says so
      screen.Load();
      const bool told = !screen.prompter.History().empty();
      _exit(std::string(name).ends_with(".TMP") || told ? 0 : 3);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status)) << name << ": the start waited on the pipe";
    EXPECT_EQ(WEXITSTATUS(status), 0) << name << ": nothing was said";
  }
}

}  // namespace
