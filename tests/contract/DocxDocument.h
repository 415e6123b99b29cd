#pragma once

#include "hosts/docx/WordProcessor.h"
#include "tests/contract/Reach.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// A document open in the word processor of the .docx host, made of blocks of WordprocessingML.
class DocxDocument {
 public:
  struct Parts {
    std::string body;         ///< the blocks, with prefix "w"; section properties are added
    std::string footnotes{};  ///< w:footnote elements; empty: no footnotes
    std::string endnotes{};   ///< w:endnote elements
    std::string section{};    ///< the content of the last w:sectPr
    std::string styles{};     ///< w:style elements beside the default paragraph style
    std::string settings{};   ///< the content of w:settings
    std::string comments{};   ///< w:comment elements
    std::string header{};     ///< the blocks of a header, which section properties refer to as "rId3"
  };

  explicit DocxDocument(const Parts& parts, docx::PageSource pages = docx::PageSource::kFile);
  explicit DocxDocument(std::unique_ptr<docx::Package> package, docx::PageSource pages = docx::PageSource::kFile);

  /// As the test program reaches it.
  word::ApplicationPtr Application() const { return reach::Application(processor_.Application()); }
  word::DocumentPtr Document() const { return Application()->ActiveDocument(); }
  /// Every part as it is now, XML written anew so that only its content counts.
  std::map<std::string, std::string> Canonical() const;
  std::string Part(const std::string& name) const;
  /// The file that saving would write.
  std::vector<std::byte> File() const;
  /// The text of a story, field codes included.
  std::u16string Text(int storyType = 1) const;
  /// nullptr when there is none.
  word::RangePtr Story(int storyType = 1) const;

 private:
  class NoFile : public docx::DocumentFile {
   public:
    void Save(const Current&) override {}
    void SaveAs(std::u16string_view, const docx::Package&) override {}
  };

  NoFile file_;
  docx::WordProcessor processor_;
};
