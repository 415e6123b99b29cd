#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/KVXDLLCOM/Extensibility.h"
#include "hosts/com/ComPtr.h"
#include "hosts/docx/WordProcessor.h"
#include "hosts/menus/MenuBars.h"
#include "tests/windows/server/ServedObject.h"

/// The library that a class lives in, registered as long as this object lives.
class Registered {
 public:
  explicit Registered(const std::wstring& file);
  ~Registered();
  Registered(const Registered&) = delete;
  Registered& operator=(const Registered&) = delete;

 private:
  template <class Function>
  Function* Export(const char* name) const;
  HRESULT Install(BOOL install) const;
  HRESULT CanUnload() const;

  HMODULE library_;
};

/// The parts of the open document by their names.
std::map<std::string, std::string> PartsOf(const docx::WordProcessor& processor);

/// A Word that has loaded the add-in: the word processor of the .docx host behind automation.
class AddInSession {
 public:
  /// @param sample a document's file among the samples; empty: no document is open
  /// @param failing the call that fails, from 1; 0: none does
  explicit AddInSession(const std::string& sample = "", int connectMode = 1, std::uint64_t failing = 0);
  /// @param document nullptr: no document is open
  explicit AddInSession(std::unique_ptr<docx::Package> document, int connectMode = 1, std::uint64_t failing = 0);
  ~AddInSession();
  AddInSession(const AddInSession&) = delete;
  AddInSession& operator=(const AddInSession&) = delete;

  /// Connects once more, as when somebody loads the add-in from Word's list.
  void Connect();
  void Start();
  /// Twice does nothing more.
  void Shutdown();
  /// @return false when there is no such button. @param caption with its accelerator
  bool Click(std::u16string_view caption);

  /// The document as it is now, and its parts by their names.
  std::vector<std::byte> File() const;
  std::map<std::string, std::string> Parts() const { return PartsOf(processor); }

  menus::MenuBars bars;
  docx::WordProcessor processor;
  server::ContextPtr context = std::make_shared<server::Context>();

 private:
  class NoFile : public docx::DocumentFile {
   public:
    void Save(const Current&) override {}
    void SaveAs(std::u16string_view, const docx::Package&) override {}
  };

  NoFile file_;
  com::ComPtr<IDispatch> application_;
  com::ComPtr<IDTExtensibility2> addIn_;
};

/// A document among the samples.
std::unique_ptr<docx::Package> Sample(const std::string& name);

/// Where the libraries lie.
std::wstring AddInLibrary();
std::wstring CompanionLibrary();
