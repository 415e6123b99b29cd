#pragma once

#include <cstdlib>
#include <optional>
#include <string>

/// An environment variable for one test.
class Environment {
 public:
  Environment(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    Set(value);
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() { Set(before_); }

 private:
  void Set(const std::optional<std::string>& value) {
#ifdef _WIN32
    _putenv_s(name_, value ? value->c_str() : "");
#else
    if (value) {
      setenv(name_, value->c_str(), 1);
    } else {
      unsetenv(name_);
    }
#endif
  }

  const char* name_;
  std::optional<std::string> before_;
};
