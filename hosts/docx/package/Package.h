#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace docx {

/// Why a file is refused. what() is a predicate in plain words, to be put behind the file's name:
/// "is not a Word document: it is not a zip archive".
class PackageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a package may cost at most; beyond it the file is refused. Real contracts stay far below.
inline constexpr std::uint64_t kMaxFileSize = 512ULL << 20;
inline constexpr std::size_t kMaxEntries = 20'000;
/// Inflated size of one part, and of everything read of one package together.
inline constexpr std::uint64_t kMaxPartSize = 256ULL << 20;
inline constexpr std::uint64_t kMaxTotalSize = 384ULL << 20;
/// A part that grows beyond the size by more than the factor is a bomb, whatever its header says.
inline constexpr std::uint64_t kRatioFreeSize = 8ULL << 20;
inline constexpr std::uint64_t kMaxRatio = 300;

struct Relationship {
  std::string id;
  std::string type;
  /// The part's name when internal, whether or not there is such a part; the address as it stands when external.
  std::string target;
  bool external = false;
};

/// A Word document's parts, in the container that holds them. Parts that nobody replaces are written back as they
/// were, still compressed. Part names have no "/" at their beginning ("word/document.xml"), are compared without
/// regard to ASCII case, and come out spelled as in the package.
///
/// Everything throws PackageError when the package itself is at fault, std::out_of_range for a part that is not there.
/// One thread at a time.
class Package {
 public:
  /// Owns the file's bytes from then on. Checks the container (names, sizes, encryption) and that it is a Word
  /// document; parts are inflated, and so checked, only when they are read.
  static std::unique_ptr<Package> Open(std::vector<std::byte> file);
  static std::unique_ptr<Package> Open(const std::filesystem::path& file);

  Package(const Package&) = delete;
  Package& operator=(const Package&) = delete;
  ~Package();

  /// All parts in the container's order, the added ones last; "[Content_Types].xml" and relationship parts included,
  /// folders not.
  std::vector<std::string> Names() const;
  bool Has(std::string_view name) const;
  /// The part's bytes, as they are after earlier changes.
  std::string Read(std::string_view name) const;
  /// The same for XML: converted to UTF-8 where needed, and safe to hand to the parser (see XmlCheck.h).
  std::string ReadXml(std::string_view name) const;
  /// Empty when the package states none.
  std::string ContentType(std::string_view name) const;

  /// What is too large to be read again is refused, here and by Add.
  void Replace(std::string_view name, std::string content);
  /// @param name must not exist yet
  void Add(std::string_view name, std::string content, std::string_view contentType);
  /// The part, its content type and its own relationships; relationships of others to it are left to the caller.
  void Remove(std::string_view name);

  /// Read once; what comes is good until a relationship of the part is added or removed.
  /// @param part the source; "" is the package itself
  const std::vector<Relationship>& Relationships(std::string_view part) const;
  /// @param target a part's name, or an address when external
  /// @return the new relationship's id, unlike any other of the part
  std::string AddRelationship(std::string_view part, std::string_view type, std::string_view target,
                              bool external = false);
  void RemoveRelationship(std::string_view part, std::string_view id);

  /// The name of the main document part.
  const std::string& MainDocument() const { return mainDocument_; }

  /// Whether Write would give anything but the bytes that were opened.
  bool Changed() const;

  using Sink = std::function<void(std::span<const std::byte>)>;
  /// Hands out the container, in one or more pieces. Nothing changed: exactly the bytes that were opened. May be called
  /// again.
  /// What the sink throws passes through.
  void Write(const Sink& sink) const;

 private:
  struct Archive;
  struct Entry;

  explicit Package(std::vector<std::byte> file);

  void ReadDirectory();
  void FindMainDocument();
  Entry* Find(std::string_view name) const;
  Entry& At(std::string_view name) const;
  std::string Inflate(Entry& entry) const;
  void Put(Entry& entry, std::string content);
  /// Without a content type.
  Entry& Append(std::string_view name, std::string content);
  void Drop(Entry& entry);
  void AddContentType(std::string_view name, std::string_view contentType);
  void RemoveContentType(std::string_view name);

  std::vector<std::byte> file_;
  std::unique_ptr<Archive> archive_;
  /// In the container's order, the added ones last, the removed ones too.
  std::vector<std::unique_ptr<Entry>> entries_;
  /// By the name in lower case; what was removed is not in it.
  std::map<std::string, Entry*, std::less<>> index_;
  std::string mainDocument_;
  /// By the parts that list them, those that were asked for.
  mutable std::map<const Entry*, std::vector<Relationship>> relationships_;
  mutable std::uint64_t inflated_ = 0;
};

}  // namespace docx
