#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "hosts/docx/model/DocumentParts.h"
#include "hosts/docx/pages/Paginator.h"
#include "platform/word/Constants.h"
#include "tests/unit/package/RawZip.h"

namespace paged {

inline const std::string kUri = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
inline const std::string kMark = "<w:lastRenderedPageBreak/>";
inline const std::string kBreak = "<w:br w:type=\"page\"/>";

inline std::string Text(const std::string& text) { return "<w:t xml:space=\"preserve\">" + text + "</w:t>"; }
inline std::string InRun(const std::string& content) { return "<w:r>" + content + "</w:r>"; }
/// @param content of its only run
inline std::string P(const std::string& content, const std::string& properties = {}) {
  return "<w:p><w:pPr>" + properties + "</w:pPr>" + InRun(content) + "</w:p>";
}
inline std::string Section(const std::string& type, const std::string& more = {}) {
  return "<w:sectPr><w:type w:val=\"" + type + "\"/>" + more + "</w:sectPr>";
}
inline std::string FieldMark(const std::string& type) { return InRun("<w:fldChar w:fldCharType=\"" + type + "\"/>"); }
inline std::string Code(const std::string& code) { return InRun("<w:instrText>" + code + "</w:instrText>"); }

/// A document in memory and its pages.
class Document {
 public:
  explicit Document(const std::string& blocks) {
    const std::string xml = "<w:document xmlns:w=\"" + kUri + "\"><w:body>" + blocks + "</w:body></w:document>";
    package_ = docx::Package::Open(MinimalDocument(kContentTypes, kPackageRelationships, xml).Bytes());
  }

  /// @param kind "footnotes", "endnotes", "settings" or "styles"
  Document& With(const std::string& kind, const std::string& content) {
    const std::string name = "word/" + kind + ".xml";
    package_->Add(name, "<w:" + kind + " xmlns:w=\"" + kUri + "\">" + content + "</w:" + kind + ">",
                  "application/vnd.openxmlformats-officedocument.wordprocessingml." + kind + "+xml");
    package_->AddRelationship("word/document.xml",
                              "http://schemas.openxmlformats.org/officeDocument/2006/relationships/" + kind, name);
    return *this;
  }

  /// A header or footer, the first part that is added. @pre a section refers to it as rId1
  Document& WithHeader(const std::string& blocks) {
    package_->Add("word/header1.xml", "<w:hdr xmlns:w=\"" + kUri + "\">" + blocks + "</w:hdr>",
                  "application/vnd.openxmlformats-officedocument.wordprocessingml.header+xml");
    package_->AddRelationship("word/document.xml",
                              "http://schemas.openxmlformats.org/officeDocument/2006/relationships/header",
                              "word/header1.xml");
    return *this;
  }

  /// A picture, the first part that is added. @pre it is referred to as rId1
  Document& WithPicture(const std::string& bytes) {
    package_->Add("word/media/one.png", bytes, "image/png");
    package_->AddRelationship("word/document.xml",
                              "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image",
                              "word/media/one.png");
    return *this;
  }

  docx::DocumentParts& Parts() {
    if (!parts_) parts_ = std::make_unique<docx::DocumentParts>(std::move(package_));
    return *parts_;
  }
  docx::PageSource source{docx::PageSource::kFile};
  docx::PdfMaker* pdfMaker{nullptr};

  const docx::Paginator& Pages() {
    if (!pages_) pages_ = docx::MakePaginator(Parts(), source, pdfMaker, false, layoutMemory_);
    return *pages_;
  }
  int Count() { return Pages().PageCount(); }
  /// The page that a story has a text on for the first time; 0 when it is not there.
  int PageOf(std::u16string_view text, int type = word::wdMainTextStory) {
    for (const auto& story : Parts().Stories(type)) {
      const std::size_t at = story->Text(0, story->Length()).find(text);
      if (at != std::u16string::npos) return Pages().PageOf(*story, static_cast<docx::Position>(at));
    }
    return 0;
  }

 private:
  std::unique_ptr<docx::Package> package_;
  std::shared_ptr<docx::layout::LayoutMemory> layoutMemory_;
  std::unique_ptr<docx::DocumentParts> parts_;
  std::unique_ptr<docx::Paginator> pages_;
};

}  // namespace paged
