#include "hosts/docx/package/Package.h"

#include <zip.h>

#include "hosts/docx/package/Deflated.h"
#include "hosts/docx/package/PartName.h"
#include "hosts/docx/package/XmlCheck.h"
#include "hosts/docx/package/ZipMemory.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <fstream>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace docx {

namespace {

constexpr char kTooLarge[] = "is too large for a Word document: more than 512 MiB";
static_assert(kMaxFileSize == 512ULL << 20 && kMaxEntries == 20'000 && kMaxPartSize == 256ULL << 20 &&
                  kMaxTotalSize == 384ULL << 20 && kMaxRatio == 300,
              "the messages name the limits");

constexpr std::string_view kContentTypesPart = "[Content_Types].xml";

using Signature = std::array<unsigned char, 8>;
constexpr Signature kCompoundFile = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};

bool StartsWith(std::span<const std::byte> bytes, std::span<const unsigned char> signature) {
  return bytes.size() >= signature.size() && std::memcmp(bytes.data(), signature.data(), signature.size()) == 0;
}

bool Contains(std::span<const std::byte> bytes, std::u16string_view text) {
  std::vector<std::byte> pattern;
  for (const char16_t unit : text) {
    pattern.push_back(static_cast<std::byte>(unit & 0xFF));
    pattern.push_back(static_cast<std::byte>(unit >> 8));
  }
  return std::search(bytes.begin(), bytes.end(), pattern.begin(), pattern.end()) != bytes.end();
}

/// Names of streams in the directory of a compound file tell its kind.
[[noreturn]] void RefuseCompoundFile(std::span<const std::byte> bytes) {
  if (Contains(bytes, u"EncryptedPackage")) throw PackageError("is encrypted: it needs a password to open");
  if (Contains(bytes, u"WordDocument")) {
    throw PackageError("is not a .docx document: it is in the older binary format of Word (.doc)");
  }
  throw PackageError("is not a Word document: it is a compound file of another program");
}

void CheckSignature(std::span<const std::byte> bytes) {
  if (bytes.empty()) throw PackageError("is not a Word document: it is empty");
  if (StartsWith(bytes, kCompoundFile)) RefuseCompoundFile(bytes);
  if (!StartsWith(bytes, std::array<unsigned char, 2>{'P', 'K'})) {
    throw PackageError("is not a Word document: it is not a zip archive");
  }
}

std::string Printable(std::string_view name) {
  std::string text = "\"";
  for (const char c : name.substr(0, 100)) text += c >= 0x20 && c < 0x7F ? c : '?';
  return text + "\"";
}

class ZipError {
 public:
  ZipError() { zip_error_init(&error_); }
  ZipError(const ZipError&) = delete;
  ZipError& operator=(const ZipError&) = delete;
  ~ZipError() { zip_error_fini(&error_); }

  zip_error_t* Get() { return &error_; }
  std::string Text() { return zip_error_strerror(&error_); }

 private:
  zip_error_t error_;
};

struct Discard {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
using ZipPtr = std::unique_ptr<zip_t, Discard>;

struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using ZipFilePtr = std::unique_ptr<zip_file_t, CloseFile>;

ZipPtr OpenZip(ZipMemory& memory, int flags) {
  ZipError error;
  zip_source_t* const source = memory.MakeSource(error.Get());
  if (source == nullptr) throw std::bad_alloc();
  ZipPtr archive(zip_open_from_source(source, flags, error.Get()));
  if (!archive) {
    zip_source_free(source);
    throw PackageError("is truncated or damaged: its zip directory cannot be read (" + error.Text() + ")");
  }
  return archive;
}

std::vector<std::byte> ReadFile(const std::filesystem::path& path) {
  std::error_code failure;
  const auto status = std::filesystem::status(path, failure);
  if (status.type() == std::filesystem::file_type::not_found) {
    throw PackageError("cannot be read: there is no such file");
  }
  if (!std::filesystem::exists(status)) throw PackageError("cannot be read: " + failure.message());
  if (!std::filesystem::is_regular_file(status)) throw PackageError("cannot be read: it is not a file");
  const std::uintmax_t size = std::filesystem::file_size(path, failure);
  std::ifstream stream(path, std::ios::binary);
  if (failure || !stream) throw PackageError(std::string("cannot be read: ") + std::strerror(errno));

  // What is no package is told by its first bytes; only a compound file is read on, for a better message.
  Signature head{};
  stream.read(reinterpret_cast<char*>(head.data()), head.size());
  const auto headSize = static_cast<std::size_t>(stream.gcount());
  if (std::memcmp(head.data(), kCompoundFile.data(), head.size()) != 0) {
    CheckSignature(std::as_bytes(std::span(head).first(headSize)));
  }
  if (size > kMaxFileSize) throw PackageError(kTooLarge);

  std::vector<std::byte> bytes(size);
  stream.clear();
  stream.seekg(0);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  if (stream.bad()) throw PackageError(std::string("cannot be read: ") + std::strerror(errno));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

}  // namespace

struct Package::Archive {
  explicit Archive(std::span<const std::byte> file) : memory(file), zip(OpenZip(memory, ZIP_RDONLY)) {}

  ZipMemory memory;
  ZipPtr zip;
};

struct Package::Entry {
  std::string name;
  /// In the archive that was opened; absent when added since.
  std::optional<zip_uint64_t> archived;
  /// What takes the place of the archived bytes.
  std::unique_ptr<Deflated> content;
  bool folder = false;
  bool removed = false;
  /// Its size is part of inflated_.
  bool counted = false;
  zip_uint64_t size = 0;
  zip_uint64_t packedSize = 0;
  std::uint16_t method = ZIP_CM_STORE;
  std::uint32_t checksum = 0;
  std::time_t modified = 0;
};

Package::Package(std::vector<std::byte> file) : file_(std::move(file)) {}

Package::~Package() = default;

std::unique_ptr<Package> Package::Open(std::vector<std::byte> file) {
  CheckSignature(file);
  if (file.size() > kMaxFileSize) throw PackageError(kTooLarge);
  std::unique_ptr<Package> package(new Package(std::move(file)));
  package->ReadDirectory();
  package->FindMainDocument();
  return package;
}

std::unique_ptr<Package> Package::Open(const std::filesystem::path& file) { return Open(ReadFile(file)); }

void Package::ReadDirectory() {
  archive_ = std::make_unique<Archive>(file_);
  zip_t* zip = archive_->zip.get();
  const zip_int64_t count = zip_get_num_entries(zip, 0);
  if (count > static_cast<zip_int64_t>(kMaxEntries))
    throw PackageError("is not accepted: it has more than 20,000 parts");

  for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
    zip_stat_t stat;
    if (zip_stat_index(zip, i, ZIP_FL_ENC_RAW, &stat) != 0 || stat.name == nullptr) {
      throw PackageError("is truncated or damaged: its zip directory cannot be read");
    }
    Entry& entry = *entries_.emplace_back(std::make_unique<Entry>());
    entry.name = stat.name;
    if (!IsSafePartName(entry.name)) {
      throw PackageError("is not accepted: it has a part with an unsafe name, " + Printable(entry.name));
    }
    if ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && stat.encryption_method != ZIP_EM_NONE) {
      throw PackageError("is encrypted: its parts need a password to open");
    }
    if (stat.comp_size > file_.size()) {
      throw PackageError("is truncated or damaged: " + Printable(entry.name) + " is not there as a whole");
    }
    entry.archived = i;
    entry.folder = entry.name.back() == '/';
    entry.size = stat.size;
    entry.packedSize = stat.comp_size;
    entry.method = stat.comp_method;
    entry.checksum = stat.crc;
    entry.modified = stat.mtime;
    if (!index_.emplace(FoldPartName(entry.name), &entry).second) {
      throw PackageError("is not accepted: it has two parts named " + Printable(entry.name));
    }
  }
}

void Package::FindMainDocument() {
  if (!Has(kContentTypesPart)) {
    if (Has("mimetype") && Has("META-INF/manifest.xml")) {
      throw PackageError("is not a Word document: it is an OpenDocument file");
    }
    throw PackageError("is not a Word document: the archive has no [Content_Types].xml");
  }
  for (const Relationship& relationship : Relationships("")) {
    if (relationship.external || !(relationship.type.ends_with("/2006/relationships/officeDocument") ||
                                   relationship.type.ends_with("/ooxml/officeDocument/relationships/officeDocument"))) {
      continue;
    }
    const Entry* entry = Find(relationship.target);
    if (entry == nullptr) {
      throw PackageError("is not a Word document: its main document part, " + Printable(relationship.target) +
                         ", is missing");
    }
    const std::string type = FoldPartName(ContentType(entry->name));
    const auto is = [&type](std::string_view part) { return type.find(part) != std::string::npos; };
    if (is("spreadsheet") || is("ms-excel")) throw PackageError("is not a Word document: it is a spreadsheet");
    if (is("presentation") || is("ms-powerpoint")) throw PackageError("is not a Word document: it is a presentation");
    constexpr std::array<std::string_view, 4> kMainTypes = {
        "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml",
        "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml",
        "application/vnd.ms-word.document.macroenabled.main+xml",
        "application/vnd.ms-word.template.macroenabledtemplate.main+xml"};
    if (std::find(kMainTypes.begin(), kMainTypes.end(), type) == kMainTypes.end()) {
      throw PackageError("is not a Word document: its main part has the content type " + Printable(type));
    }
    mainDocument_ = entry->name;
    return;
  }
  throw PackageError("is not a Word document: it has no main document part");
}

Package::Entry* Package::Find(std::string_view name) const {
  const auto found = index_.find(FoldPartName(name));
  return found == index_.end() || found->second->folder ? nullptr : found->second;
}

Package::Entry& Package::At(std::string_view name) const {
  Entry* entry = Find(name);
  if (entry == nullptr) throw std::out_of_range("no part " + Printable(name));
  return *entry;
}

std::vector<std::string> Package::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : entries_) {
    if (!entry->removed && !entry->folder) names.push_back(entry->name);
  }
  return names;
}

bool Package::Has(std::string_view name) const { return Find(name) != nullptr; }

std::string Package::Read(std::string_view name) const {
  Entry& entry = At(name);
  return entry.content ? entry.content->Content() : Inflate(entry);
}

std::string Package::ReadXml(std::string_view name) const {
  std::string xml = ToUtf8(Read(name), At(name).name);
  CheckXml(xml, At(name).name);
  return xml;
}

std::string Package::Inflate(Entry& entry) const {
  // The directory's size is a claim. It is held against the limits first; then exactly so many bytes must come.
  const auto tooLarge = [&] {
    throw PackageError("is not accepted: " + Printable(entry.name) +
                       " is too large when unpacked: more than 256 MiB, or 300 times" +
                       " its packed size, or 384 MiB with the other parts");
  };
  if (entry.size > kMaxPartSize) tooLarge();
  if (entry.size > kRatioFreeSize && entry.size / kMaxRatio > entry.packedSize) tooLarge();
  if (!entry.counted) {
    if (inflated_ + entry.size > kMaxTotalSize) tooLarge();
    inflated_ += entry.size;
    entry.counted = true;
  }

  const auto damaged = [&](const std::string& why) {
    throw PackageError("is truncated or damaged: " + Printable(entry.name) + " cannot be unpacked" +
                       (why.empty() ? why : " (" + why + ")"));
  };
  zip_t* zip = archive_->zip.get();
  const bool isDeflated = entry.method == ZIP_CM_DEFLATE;
  ZipFilePtr file(zip_fopen_index(zip, *entry.archived, isDeflated ? ZIP_FL_COMPRESSED : 0));
  if (!file) damaged(zip_strerror(zip));
  const auto read = [&](zip_uint64_t size) {
    std::string bytes(size, '\0');
    const zip_int64_t got = size == 0 ? 0 : zip_fread(file.get(), bytes.data(), size);
    if (got < 0) damaged(zip_file_strerror(file.get()));
    // Only the read that meets the end compares the checksum.
    char beyond = 0;
    const zip_int64_t rest = zip_fread(file.get(), &beyond, 1);
    if (rest < 0) damaged(zip_file_strerror(file.get()));
    if (rest > 0 || static_cast<zip_uint64_t>(got) != size) damaged("its size is not as stated");
    return bytes;
  };
  if (!isDeflated) return read(entry.size);
  // libzip would have zlib do it, in more than twice the time.
  const std::string packed = read(entry.packedSize);
  std::string bytes(entry.size, '\0');
  if (!Unpack(std::as_bytes(std::span(packed)), bytes)) damaged("its content is no deflated text of the size stated");
  if (Checksum(bytes) != entry.checksum) damaged("CRC error");
  return bytes;
}

void Package::Replace(std::string_view name, std::string content) { Put(At(name), std::move(content)); }

void Package::Put(Entry& entry, std::string content) {
  if (content.size() > kMaxPartSize) {
    throw PackageError("would become too large: " + Printable(entry.name) + " more than 256 MiB");
  }
  // A content that is what the archive holds undoes earlier changes, so the part is copied again, not packed.
  const bool same = entry.archived && entry.size == content.size() && entry.checksum == Checksum(content) &&
                    Inflate(entry) == content;
  entry.content = same ? nullptr : std::make_unique<Deflated>(std::move(content));
  relationships_.erase(&entry);
}

void Package::Add(std::string_view name, std::string content, std::string_view contentType) {
  if (Has(name)) throw std::invalid_argument("there is a part " + Printable(name) + " already");
  Append(name, std::move(content));
  AddContentType(name, contentType);
}

Package::Entry& Package::Append(std::string_view name, std::string content) {
  if (!IsSafePartName(name)) throw std::invalid_argument("no name for a part: " + Printable(name));
  // A part removed before comes back to its place.
  const auto former = std::find_if(entries_.begin(), entries_.end(),
                                   [name](const auto& entry) { return entry->removed && entry->name == name; });
  Entry* entry = (former == entries_.end() ? entries_.emplace_back(std::make_unique<Entry>()) : *former).get();
  entry->removed = false;
  if (entry->name.empty()) {
    entry->name = name;
    entry->modified = mainDocument_.empty() ? 0 : At(mainDocument_).modified;
  }
  Put(*entry, std::move(content));
  index_.emplace(FoldPartName(name), entry);
  return *entry;
}

void Package::Remove(std::string_view name) {
  Entry& entry = At(name);
  RemoveContentType(entry.name);
  if (Entry* relationships = Find(RelationshipsPartName(entry.name))) {
    RemoveContentType(relationships->name);
    Drop(*relationships);
  }
  Drop(entry);
}

void Package::Drop(Entry& entry) {
  index_.erase(FoldPartName(entry.name));
  entry.content.reset();
  entry.removed = true;
  relationships_.erase(&entry);
}

bool Package::Changed() const {
  return std::any_of(entries_.begin(), entries_.end(), [](const auto& entry) {
    return entry->archived ? entry->removed || entry->content != nullptr : !entry->removed;
  });
}

void Package::Write(const Sink& sink) const {
  if (!Changed()) {
    sink(file_);
    return;
  }
  // libzip copies untouched entries without unpacking them and keeps the order.
  ZipMemory memory(file_);
  ZipPtr zip = OpenZip(memory, 0);
  const auto check = [&zip](bool good) {
    if (!good) throw PackageError(std::string("cannot be written: ") + zip_strerror(zip.get()));
  };
  std::size_t expected = file_.size();
  for (const auto& listed : entries_) {
    const Entry& entry = *listed;
    if (entry.removed) {
      if (entry.archived) check(zip_delete(zip.get(), *entry.archived) == 0);
      continue;
    }
    if (!entry.content) continue;
    expected += entry.content->PackedSize();
    zip_source_t* const content = entry.content->MakeSource(zip.get(), entry.modified);
    check(content != nullptr);
    zip_int64_t added = 0;
    if (entry.archived) {
      added = zip_file_replace(zip.get(), *entry.archived, content, 0);
    } else {
      added = zip_file_add(zip.get(), entry.name.c_str(), content, ZIP_FL_ENC_UTF_8);
    }
    if (added < 0) zip_source_free(content);
    check(added >= 0);
    const zip_uint64_t index = entry.archived.value_or(static_cast<zip_uint64_t>(added));
    check(zip_set_file_compression(zip.get(), index, entry.content->Method(), 0) == 0);
    check(zip_file_set_mtime(zip.get(), index, entry.modified, 0) == 0);
  }
  memory.Expect(expected);
  check(zip_close(zip.get()) == 0);
  static_cast<void>(zip.release());

  sink(memory.Output());
}

}  // namespace docx
