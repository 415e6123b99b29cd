#include "DocxDocument.h"

#include "platform/word/Document.h"
#include "platform/word/Range.h"

#include <zip.h>
#include <pugixml.hpp>

#include <cstddef>
#include <span>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

constexpr const char* kNamespaces =
    " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
    " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"";
constexpr const char* kTypePrefix = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
constexpr const char* kRelationPrefix = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

std::string Element(const std::string& name, const std::string& content) {
  return "<w:" + name + kNamespaces + ">" + content + "</w:" + name + ">";
}

std::vector<std::byte> Zip(const std::vector<std::pair<std::string, std::string>>& files) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, &error);
  zip_source_keep(target);
  zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
  if (archive == nullptr) throw std::runtime_error("no archive could be made");
  for (const auto& [name, content] : files) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    if (zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8) < 0) throw std::runtime_error(name);
  }
  if (zip_close(archive) != 0) throw std::runtime_error("the archive could not be written");
  zip_stat_t stat;
  zip_stat_init(&stat);
  zip_source_stat(target, &stat);
  std::vector<std::byte> bytes(stat.size);
  zip_source_open(target);
  zip_source_read(target, bytes.data(), bytes.size());
  zip_source_close(target);
  zip_source_free(target);
  return bytes;
}

std::unique_ptr<docx::Package> Pack(const DocxDocument::Parts& parts) {
  std::string types =
      "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
      "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
      "<Default Extension=\"xml\" ContentType=\"application/xml\"/>";
  std::string relations = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  std::vector<std::pair<std::string, std::string>> files;
  int number = 0;
  const auto add = [&](const std::string& name, const std::string& type, const std::string& content) {
    types += "<Override PartName=\"/word/" + name + ".xml\" ContentType=\"" + kTypePrefix + type + "+xml\"/>";
    files.emplace_back("word/" + name + ".xml", content);
    if (name == "document") return;
    relations += "<Relationship Id=\"rId" + std::to_string(++number) + "\" Type=\"" + kRelationPrefix + name +
                 "\" Target=\"" + name + ".xml\"/>";
  };
  add("document", "document.main",
      Element("document", "<w:body>" + parts.body + "<w:sectPr>" + parts.section + "</w:sectPr></w:body>"));
  add("styles", "styles",
      Element("styles",
              "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/>"
              "</w:style>" +
                  parts.styles));
  add("settings", "settings", Element("settings", parts.settings));
  if (!parts.header.empty()) add("header", "header", Element("hdr", parts.header));
  if (!parts.footnotes.empty()) add("footnotes", "footnotes", Element("footnotes", parts.footnotes));
  if (!parts.endnotes.empty()) add("endnotes", "endnotes", Element("endnotes", parts.endnotes));
  if (!parts.comments.empty()) add("comments", "comments", Element("comments", parts.comments));
  files.emplace_back("[Content_Types].xml", types + "</Types>");
  files.emplace_back("word/_rels/document.xml.rels", relations + "</Relationships>");
  files.emplace_back("_rels/.rels",
                     "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                     "<Relationship Id=\"rId1\" Type=\"" +
                         std::string(kRelationPrefix) +
                         "officeDocument\" Target=\"word/document.xml\"/></Relationships>");
  return docx::Package::Open(Zip(files));
}

std::string CanonicalXml(const std::string& xml) {
  pugi::xml_document document;
  if (!document.load_buffer(xml.data(), xml.size(),
                            (pugi::parse_full & ~pugi::parse_declaration) | pugi::parse_ws_pcdata))
    return xml;
  std::ostringstream out;
  document.save(out, "", pugi::format_raw | pugi::format_no_declaration);
  return out.str();
}

}  // namespace

DocxDocument::DocxDocument(const Parts& parts, docx::PageSource pages) : DocxDocument(Pack(parts), pages) {}

DocxDocument::DocxDocument(std::unique_ptr<docx::Package> package, docx::PageSource pages) {
  processor_.Open(std::move(package), {.name = u"contract.docx", .path = u"", .pages = pages}, file_);
}

std::map<std::string, std::string> DocxDocument::Canonical() const {
  std::map<std::string, std::string> parts;
  const docx::Package& package = processor_.Updated();
  for (const std::string& name : package.Names()) parts[name] = CanonicalXml(package.Read(name));
  return parts;
}

std::string DocxDocument::Part(const std::string& name) const { return CanonicalXml(processor_.Updated().Read(name)); }

std::vector<std::byte> DocxDocument::File() const {
  std::vector<std::byte> file;
  processor_.Updated().Write(
      [&](std::span<const std::byte> piece) { file.insert(file.end(), piece.begin(), piece.end()); });
  return file;
}

word::RangePtr DocxDocument::Story(int storyType) const {
  const word::StoryRangesPtr stories = Document()->StoryRanges();
  for (int index = 1; index <= stories->Count(); ++index) {
    if (stories->Item(index)->StoryType() == storyType) return stories->Item(index);
  }
  return nullptr;
}

std::u16string DocxDocument::Text(int storyType) const {
  const word::RangePtr story = Story(storyType);
  story->TextRetrievalMode()->SetIncludeFieldCodes(true);
  story->TextRetrievalMode()->SetIncludeHiddenText(true);
  return story->Text();
}
