#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/pages/PageSetup.h"

namespace docx {

/// A page number as Word prints it.
/// @param format the w:fmt of a w:pgNumType; decimal for one that is empty, unknown or cannot show the number
std::u16string FormatPageNumber(std::string_view format, int number);

/// The numbering of the pages from one section start to the next.
struct PageNumbering {
  int firstPage{1};   ///< the page that the section begins on, which may be another section's too
  int labelsFrom{1};  ///< the first page whose label this section decides: the first that begins with its text
  int number{1};      ///< of firstPage
  std::string format;

  int NumberOf(int page) const { return number + (page - firstPage); }
};

/// The number of a section's first page, and whether a blank page comes before it.
struct FirstNumber {
  int number{1};
  bool blank{false};
};

/// For a section that begins a page. @param last the number of the page before; 0 for none
FirstNumber NumberAfter(int last, const PageSetup& setup);

/// The numbering of a document's first section.
PageNumbering NumberFirstSection(const PageSetup& setup);
/// The numbering of a section that begins on a page.
/// @param before the section before it @param beginsPage nothing of that section stands on the page
PageNumbering NumberNextSection(const PageNumbering& before, const PageSetup& setup, int page, bool beginsPage);

/// @param numberings in the order of the sections; pages before the first one are numbered from 1
int PageNumber(const std::vector<PageNumbering>& numberings, int page);
/// The same as it is printed.
std::u16string PageLabel(const std::vector<PageNumbering>& numberings, int page);

}  // namespace docx
