#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "hosts/docx/WordProcessor.h"

/// The file of the document that is open: Save writes it, SaveAs another one, which then takes its place. At every
/// moment a file is the old one or the whole new one. It knows whether the document differs from its file.
class DesktopDocument : public docx::DocumentFile {
 public:
  explicit DesktopDocument(std::filesystem::path path);

  /// @throws word::HostError kCannotSaveFile
  void Save(const Current& current) override;
  void SaveAs(std::u16string_view fileName, const docx::Package& package) override;

  const std::filesystem::path& Path() const { return path_; }
  /// What the document's content was when it was last the file's.
  void Remember(const docx::Package& package);
  bool Differs(const docx::Package& package) const;
  /// Whether the file is another one than was read or saved here.
  bool ChangedOutside() const;

 private:
  struct Stamp {
    std::filesystem::file_time_type time;
    std::uintmax_t size;
    bool operator==(const Stamp&) const = default;
  };
  std::optional<Stamp> StampNow() const;
  void Write(const docx::Package& package, const std::filesystem::path& target, const char* member);

  std::filesystem::path path_;
  std::optional<Stamp> stamp_;
  std::uint64_t content_{0};
};
