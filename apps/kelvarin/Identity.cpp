#include "apps/kelvarin/Identity.h"

#include <zlib.h>

#include <array>
#include <fstream>
#include <system_error>

std::uint32_t Checksum(std::string_view text) {
  return static_cast<std::uint32_t>(
      crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size())));
}

std::optional<Identity> IdentityOf(const std::filesystem::path& file) {
  std::error_code error;
  // A device or a pipe might never end.
  if (!std::filesystem::is_regular_file(file, error)) return {};
  std::ifstream in(file, std::ios::binary);
  if (!in) return {};
  constexpr std::size_t kPiece = 1U << 16;
  std::array<char, kPiece> piece{};
  Identity identity;
  uLong checksum = crc32(0, nullptr, 0);
  while (in.read(piece.data(), piece.size()), in.gcount() > 0) {
    const auto size = static_cast<uInt>(in.gcount());
    checksum = crc32(checksum, reinterpret_cast<const Bytef*>(piece.data()), size);
    identity.size += size;
  }
  if (in.bad()) return {};
  identity.checksum = static_cast<std::uint32_t>(checksum);
  return identity;
}
