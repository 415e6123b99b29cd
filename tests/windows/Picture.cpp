#include "tests/windows/Picture.h"

#include <zlib.h>

#include <cstdint>
#include <fstream>
#include <vector>

namespace {

constexpr int kBytesAPixel = 4;

SIZE SizeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return {place.right - place.left, place.bottom - place.top};
}

std::string Number(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
  return bytes;
}

std::string Chunk(const std::string& kind, const std::string& content) {
  const std::string checked = kind + content;
  const uLong sum = crc32(0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<uInt>(checked.size()));
  return Number(static_cast<std::uint32_t>(content.size())) + checked + Number(static_cast<std::uint32_t>(sum));
}

}  // namespace

std::vector<unsigned char> PixelsOf(HWND window) {
  const auto [width, height] = SizeOf(window);
  const HDC from = GetWindowDC(window);
  const HDC to = CreateCompatibleDC(from);
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = width;
  format.bmiHeader.biHeight = -height;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 8 * kBytesAPixel;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(to, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(to, bitmap);
  BitBlt(to, 0, 0, width, height, from, 0, 0, SRCCOPY);
  GdiFlush();
  const auto* const first = static_cast<const unsigned char*>(bits);
  std::vector<unsigned char> pixels(first, first + static_cast<std::ptrdiff_t>(width) * height * kBytesAPixel);
  SelectObject(to, before);
  DeleteObject(bitmap);
  DeleteDC(to);
  ReleaseDC(window, from);
  return pixels;
}

bool SavePicture(HWND window, const std::string& file) {
  const auto [width, height] = SizeOf(window);
  const std::vector<unsigned char> pixels = PixelsOf(window);
  std::string rows;
  for (std::size_t i = 0; i < pixels.size(); i += kBytesAPixel) {
    // Each row begins with the number of its filter: none.
    if (i % (static_cast<std::size_t>(width) * kBytesAPixel) == 0) rows += '\0';
    for (const std::size_t color : {i + 2, i + 1, i}) rows += static_cast<char>(pixels[color]);
  }
  uLongf size = compressBound(static_cast<uLong>(rows.size()));
  std::string packed(size, '\0');
  compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(rows.data()),
           static_cast<uLong>(rows.size()));
  packed.resize(size);
  // Eight bits a colour, three colours.
  const std::string header = Number(static_cast<std::uint32_t>(width)) + Number(static_cast<std::uint32_t>(height)) +
                             std::string("\x08\x02\x00\x00\x00", 5);
  std::ofstream out(file, std::ios::binary);
  out << "\x89PNG\r\n\x1a\n" << Chunk("IHDR", header) << Chunk("IDAT", packed) << Chunk("IEND", "");
  out.close();
  return out.good();
}
