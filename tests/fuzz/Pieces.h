#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// An element that holds others, or a piece of XML that stands by itself when it closes nothing. In `open` each "#"
/// stands for a number, each "@" for a word.
struct Piece {
  std::string_view open;
  std::string_view close;
};

/// XML whose elements are all closed: each byte adds a piece, or closes what was opened last. The numbers and words of
/// a piece are chosen by the bytes behind it.
std::string XmlOf(std::span<const Piece> pieces, std::span<const std::uint8_t> bytes);

/// Bytes for documents of several parts: what stands between the bytes that go on to the next part.
/// @return as many as there are parts at most; the last has all that is left
std::vector<std::span<const std::uint8_t>> Divided(std::span<const std::uint8_t> bytes, std::size_t parts);
