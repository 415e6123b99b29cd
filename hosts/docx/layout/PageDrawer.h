#pragma once

#include <span>

#include "hosts/docx/layout/LineDrawer.h"
#include "hosts/docx/layout/PageFiller.h"
#include "platform/page/Display.h"

namespace docx::layout {

/// Turns what was placed on a page into what is drawn: lines, the boxes of paragraphs, the cells of tables.
class PageDrawer {
 public:
  /// @param room of the page @param flows lays out what stands in text boxes @param into they outlive the drawer
  PageDrawer(const LineSettings& settings, const PageFiller::PageRoom& room, FlowBuilder& flows, page::Display& into)
      : settings_(settings), lines_(settings, into), room_(room), flows_(flows), into_(into) {}

  /// @param story of the lines that are not endnotes; 0 for what no cursor comes to
  /// @param down how much lower everything stands than it was placed, in twips
  void Add(std::span<const PageFiller::Placed> lines, std::span<const PageFiller::PlacedCell> cells, int story,
           double down = 0);

 private:
  void AddCell(const PageFiller::PlacedCell& cell, double down);
  /// The text of a cell that runs up or down. @param lines, cells, story, down as they were given @param begin where
  /// the lines drawn of them begin
  void AddSideways(const PageFiller::PlacedCell& cell, std::span<const PageFiller::PlacedCell> cells, int story,
                   double down, std::size_t begin);
  /// The box around paragraphs that have one border or shading, from the first of some lines on.
  /// @return behind the last line in it
  std::size_t AddBox(std::span<const PageFiller::Placed> lines, std::size_t first, double down);
  void AddFloat(const Floating& floating, const PageFiller::Placed& line, double down);
  void AddTextBox(const TextBox& text, const page::Rect& area);
  page::Color GroundOf(const PageFiller::Placed& line, double down) const;

  LineSettings settings_;
  LineDrawer lines_;
  PageFiller::PageRoom room_;
  FlowBuilder& flows_;
  page::Display& into_;
};

/// The borders of a cell in its place in the table.
BoxBorders BordersOf(const Table& table, std::size_t row, const Cell& cell);

}  // namespace docx::layout
