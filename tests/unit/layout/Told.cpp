#include "tests/unit/layout/Told.h"

#include <ios>
#include <sstream>

#include "hosts/docx/xml/Utf.h"
#include "platform/page/Display.h"
#include "platform/word/Constants.h"

namespace laid {

namespace {

void Tell(const page::Rect& rect, std::ostream& out) {
  out << ' ' << rect.x << ' ' << rect.y << ' ' << rect.width << ' ' << rect.height;
}

void Tell(const page::Line& line, const page::Display& display, std::ostream& out) {
  out << "line " << line.story << ' ' << line.start << ' ' << line.end << ' ' << line.endsParagraph << ' '
      << line.baseline << ' ' << static_cast<int>(line.turn) << ' ' << line.originX << ' ' << line.originY;
  Tell(line.area, out);
  out << '\n';
  for (const page::Run& run : line.runs) {
    const page::Face& face = display.faces.at(run.face);
    out << "  run " << run.position << ' ' << run.solid << run.places << run.rightToLeft << run.strike << run.shaped
        << ' ' << docx::ToUtf8(run.text) << ' ' << run.baseline << ' ' << run.color << ' ' << run.background << ' '
        << static_cast<int>(run.underline) << ' ' << static_cast<int>(run.leader) << ' ' << face.family << ' '
        << face.size << ' ' << face.stretch << face.bold << face.italic;
    for (const float edge : run.edges) out << ' ' << edge;
    out << '\n';
  }
}

void Tell(const page::Display& display, std::ostream& out) {
  out << display.width << ' ' << display.height << '\n';
  for (const page::Fill& fill : display.fills) {
    out << "fill " << fill.color;
    Tell(fill.area, out);
    out << '\n';
  }
  for (const page::Rule& rule : display.rules) {
    out << "rule " << rule.x << ' ' << rule.y << ' ' << rule.toX << ' ' << rule.toY << ' ' << rule.width << ' '
        << rule.color << ' ' << static_cast<int>(rule.stroke) << '\n';
  }
  for (const page::Picture& picture : display.pictures) {
    out << "picture " << picture.name << ' ' << docx::ToUtf8(picture.instead);
    Tell(picture.area, out);
    out << '\n';
  }
  for (const page::Line& line : display.lines) Tell(line, display, out);
}

}  // namespace

std::string Told(const docx::layout::DocumentLayout& layout) {
  std::ostringstream out;
  out << std::hexfloat << layout.PageCount() << " pages\n";
  for (const auto& line : layout.Placed()) {
    out << "placed " << line.position << ' ' << line.page << ' ' << line.endnote << line.repeated << ' ' << line.top
        << ' ' << line.left << ' ' << line.height << ' ' << line.shown.from << ' ' << line.shown.to << ' '
        << line.shown.width << ' ' << line.shown.height << ' ' << line.shown.baseline << '\n';
  }
  for (const int story : {word::wdMainTextStory, word::wdFootnotesStory, word::wdEndnotesStory}) {
    for (const docx::PageStart& start : layout.Starts(story)) {
      out << "start " << story << ' ' << start.position << ' ' << start.page << '\n';
    }
  }
  for (int page = 1; page <= layout.PageCount(); ++page) {
    out << "page " << page << '\n';
    Tell(layout.Draw(page), out);
  }
  return out.str();
}

}  // namespace laid
