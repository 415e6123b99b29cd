#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

/// What a file's content is known by again. Moving, copying or touching the file does not change it.
struct Identity {
  std::uint64_t size{0};
  std::uint32_t checksum{0};  ///< CRC-32

  bool operator==(const Identity&) const = default;
};

/// CRC-32
std::uint32_t Checksum(std::string_view text);

/// Absent when the file cannot be read.
std::optional<Identity> IdentityOf(const std::filesystem::path& file);
