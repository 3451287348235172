#pragma once
// Helpers shared by the workspace tests: an environment variable set for one test, and files
// written and read by name in a program folder.
#include <cstdlib>
#include <optional>
#include <string>

#include "TempFolder.h"
#include "Workspace.h"

class ScopedEnv {
 public:
  ScopedEnv(const char* name, std::optional<std::string> value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    Set(value);
  }
  ~ScopedEnv() { Set(old_); }
  ScopedEnv(const ScopedEnv&) = delete;
  ScopedEnv& operator=(const ScopedEnv&) = delete;

 private:
  void Set(const std::optional<std::string>& value) {
    value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
  }
  const char* name_;
  std::optional<std::string> old_;
};

inline void Put(const Workspace& ws, const std::string& name, const std::string& bytes) {
  WriteAllBytes(ws.PathOf(name), bytes);
}

inline std::string Get(const Workspace& ws, const std::string& name) {
  return ReadAllBytes(ws.PathOf(name));
}
