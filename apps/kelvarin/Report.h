#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "apps/kelvarin/Session.h"

/// The report of one file's run, in one line. All texts are UTF-8.
class Report {
 public:
  explicit Report(const std::filesystem::path& file);

  void SetOutput(const std::filesystem::path& output);
  /// What the run found, chose and marked, what it showed, and, when there is an index, where the entries are.
  void Fill(Session& session);
  /// How many pages there are, and what says so.
  void SetPages(const docx::WordProcessor& processor);
  /// @param status "done", "stopped" or "failed"
  void SetStatus(const char* status) { report_["status"] = status; }
  /// Why it failed, where no message says so.
  void AddReason(const std::string& text);
  void SetSeconds(double seconds) { report_["seconds"] = seconds; }

  std::string Line() const;

 private:
  void FillTerms(Session& session);

  nlohmann::ordered_json report_;
};
