#pragma once

#include <string>
#include <string_view>

/// Pieces of WordprocessingML for documents made on the spot.

inline std::string TextRun(const std::string& text, const std::string& properties = {}) {
  const std::string formatting = properties.empty() ? "" : "<w:rPr>" + properties + "</w:rPr>";
  return "<w:r>" + formatting + "<w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}

inline std::string Paragraph(const std::string& content) { return "<w:p>" + content + "</w:p>"; }

inline std::string FieldMark(const std::string& type) {
  return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>";
}

inline std::string Code(const std::string& code) {
  return "<w:r><w:instrText xml:space=\"preserve\">" + code + "</w:instrText></w:r>";
}

inline std::string Field(const std::string& code, const std::string& result) {
  return FieldMark("begin") + Code(code) + FieldMark("separate") + TextRun(result) + FieldMark("end");
}

inline std::string SimpleField(const std::string& code, const std::string& content) {
  return "<w:fldSimple w:instr=\"" + code + "\">" + content + "</w:fldSimple>";
}

inline std::string EntryField(const std::string& code) { return FieldMark("begin") + Code(code) + FieldMark("end"); }

inline std::string Note(const std::string& kind, const std::string& content) {
  return "<w:" + kind + " w:id=\"2\">" + Paragraph("<w:r><w:" + kind + "Ref/></w:r>" + content) + "</w:" + kind + ">";
}

inline constexpr std::string_view kTracked = " w:id=\"9\" w:author=\"A\" w:date=\"2025-01-01T00:00:00Z\"";

inline std::string Tracked(const std::string& name, const std::string& content) {
  return "<w:" + name + std::string(kTracked) + ">" + content + "</w:" + name + ">";
}

inline std::string DeletedRun(const std::string& text) {
  return "<w:r><w:delText xml:space=\"preserve\">" + text + "</w:delText></w:r>";
}
