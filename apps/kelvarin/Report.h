#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/kelvarin/Session.h"
#include "hosts/json/Json.h"

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
  void SetStatus(const char* status) { Set("status", status); }
  /// Why it failed, where no message says so.
  void AddReason(const std::string& text);
  void SetSeconds(double seconds) { Set("seconds", seconds); }

  std::string Line() const;

 private:
  struct Field {
    std::string name;
    std::string value;  ///< as it is written
  };

  void FillTerms(Session& session);
  /// Writes a field, which is there from the beginning, out: so what is long is done with before the end.
  void Set(std::string_view name, const json::Value& value);
  void AddMessage(const std::string& title, const std::string& text);

  std::vector<Field> fields_;  ///< in their order
  json::Value messages_;
};
