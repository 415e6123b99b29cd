#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "hosts/json/Json.h"

/// One page of HTML, which needs no other file, about all contracts of a run: a table of them, and the findings of
/// each. What it holds in memory does not grow with the findings.
class CheckPage {
 public:
  /// @throws Failure kUnreadable
  CheckPage();

  /// @param check as CheckReport.h describes it
  void Add(const json::Value& check);
  /// A contract that could not be checked.
  void AddFailure(const std::string& file, const std::string& reason);

  /// @throws Failure kUnreadable
  void Write(const std::filesystem::path& target);

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void Keep(const std::string& html);
  std::string NextAnchor() { return "c" + std::to_string(rows_.size() + 1); }

  /// The contracts' own parts, until all are known.
  std::unique_ptr<std::FILE, CloseFile> parts_;
  std::vector<std::string> rows_;
  std::size_t findings_{0};
  std::size_t failures_{0};
};
