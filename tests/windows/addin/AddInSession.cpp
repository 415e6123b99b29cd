#include "AddInSession.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <span>

#include "hosts/win32/Wide.h"

namespace {

std::wstring FileIn(const char* variable, const wchar_t* name) {
  const char* const folder = std::getenv(variable);
  if (folder == nullptr) throw std::runtime_error(std::string(variable) + " is not set");
  std::string path = std::string("Z:") + folder;
  for (char& letter : path) letter = letter == '/' ? '\\' : letter;
  return std::wstring(path.begin(), path.end()) + L"\\" + name;
}

std::shared_ptr<menus::Item> Find(const std::vector<std::shared_ptr<menus::Item>>& items, std::u16string_view caption) {
  for (const std::shared_ptr<menus::Item>& item : items) {
    if (item->caption == caption) return item;
    if (std::shared_ptr<menus::Item> inside = Find(item->items, caption)) return inside;
  }
  return nullptr;
}

}  // namespace

std::wstring AddInLibrary() { return FileIn("KVX_LIBRARIES", L"KVXDLLCOM.dll"); }

std::wstring CompanionLibrary() { return FileIn("KVX_COMPANION", L"TermMarker.dll"); }

Registered::Registered(const std::wstring& file) : library_(LoadLibraryW(file.c_str())) {
  if (library_ == nullptr) throw std::runtime_error("the library cannot be loaded: " + std::to_string(GetLastError()));
  // Wine looks for classes among those for all users only.
  EXPECT_EQ(Install(TRUE), S_OK);
}

Registered::~Registered() {
  EXPECT_EQ(Install(FALSE), S_OK);
  EXPECT_EQ(CanUnload(), S_OK);
  FreeLibrary(library_);
}

template <class Function>
Function* Registered::Export(const char* name) const {
  const FARPROC found = GetProcAddress(library_, name);
  if (found == nullptr) throw std::runtime_error(std::string("the library has no ") + name);
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

HRESULT Registered::Install(BOOL install) const {
  return Export<HRESULT STDAPICALLTYPE(BOOL, LPCWSTR)>("DllInstall")(install, L"machine");
}

HRESULT Registered::CanUnload() const { return Export<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow")(); }

std::unique_ptr<docx::Package> Sample(const std::string& name) {
  return docx::Package::Open(std::filesystem::path("Z:" SAMPLES) / name);
}

AddInSession::AddInSession(const std::string& sample, int connectMode, std::uint64_t failing)
    : AddInSession(sample.empty() ? nullptr : Sample(sample), connectMode, failing) {}

AddInSession::AddInSession(std::unique_ptr<docx::Package> document, int connectMode, std::uint64_t failing) {
  context->failing = failing;
  processor.SetCommandBars(bars.CommandBars());
  if (document) {
    processor.Open(std::move(document), {.name = u"contract.docx", .path = u"C:\\Contracts"}, file_);
  }
  application_ = server::Give(processor.Application(), context).ToObject();
  CLSID id;
  com::Check(CLSIDFromProgID(L"KVXDLLCOM.Connect", &id), "KVXDLLCOM.Connect");
  void* made = nullptr;
  com::Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, kExtensibility, &made), "KVXDLLCOM.Connect");
  addIn_ = com::ComPtr<IDTExtensibility2>::Adopt(static_cast<IDTExtensibility2*>(made));
  EXPECT_EQ(addIn_->OnConnection(application_.Get(), connectMode, nullptr, nullptr), S_OK);
}

AddInSession::~AddInSession() { Shutdown(); }

void AddInSession::Connect() { EXPECT_EQ(addIn_->OnConnection(application_.Get(), 0, nullptr, nullptr), S_OK); }

void AddInSession::Start() { EXPECT_EQ(addIn_->OnStartupComplete(nullptr), S_OK); }

void AddInSession::Shutdown() {
  if (!addIn_) return;
  EXPECT_EQ(addIn_->OnBeginShutdown(nullptr), S_OK);
  EXPECT_EQ(addIn_->OnDisconnection(0, nullptr), S_OK);
  addIn_ = {};
  application_ = {};
  // Nothing of the word processor is held any more.
  EXPECT_EQ(context->live, 0);
}

std::vector<std::byte> AddInSession::File() const {
  std::vector<std::byte> file;
  processor.Updated().Write(
      [&](std::span<const std::byte> piece) { file.insert(file.end(), piece.begin(), piece.end()); });
  return file;
}

std::map<std::string, std::string> PartsOf(const docx::WordProcessor& processor) {
  std::map<std::string, std::string> parts;
  for (const std::string& name : processor.Updated().Names()) parts[name] = processor.Updated().Read(name);
  return parts;
}

bool AddInSession::Click(std::u16string_view caption) {
  const std::shared_ptr<menus::Item> item = Find(bars.Tools(), caption);
  return item && bars.Click(item);
}
