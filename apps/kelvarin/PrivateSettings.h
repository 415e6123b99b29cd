#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "apps/kelvarin/PrivateFolder.h"

/// A person's own Application Data folder; empty when there is none.
std::filesystem::path PersonsApplicationData();

/// A person's own settings file, which need not exist; empty when there is none.
std::filesystem::path PersonsSettingsFile();

/// The settings file and the per-user values that one run reads and writes: a private copy of a person's, or of the
/// file that was named, or those of a folder that stands for Application Data as it is.
class PrivateSettings {
 public:
  struct Source {
    /// The settings file that was named; it need not exist yet.
    std::optional<std::filesystem::path> file{};
    /// Whether what a run writes goes back to it.
    bool writeBack{false};
    /// Application Data, UTF-8, to be used in place when no file is named, unless it is the person's own.
    std::optional<std::string> applicationData{};
  };

  /// @throws Failure kUnreadable
  explicit PrivateSettings(Source source);

  /// What stands for Application Data in the run.
  const std::filesystem::path& ApplicationData() const { return applicationData_; }
  std::filesystem::path Folder() const;
  std::filesystem::path File() const;

  /// Gives the named file what the run wrote, when it is to have it. @throws Failure kUnreadable
  void WriteBack() const;

 private:
  void CopyIn(const std::filesystem::path& from, const std::filesystem::path& to) const;

  Source source_;
  std::optional<PrivateFolder> folder_;
  std::filesystem::path applicationData_;
};
