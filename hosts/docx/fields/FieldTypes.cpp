#include <algorithm>
#include <array>

#include "hosts/docx/fields/FieldCode.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

struct NumberedKeyword {
  std::u16string_view keyword;
  int number;
};

/// WdFieldType, by the keyword that a code has for each.
constexpr std::array kKeywords{
    NumberedKeyword{u"REF", 3},
    NumberedKeyword{u"XE", word::wdFieldIndexEntry},
    NumberedKeyword{u"FTNREF", 5},
    NumberedKeyword{u"SET", 6},
    NumberedKeyword{u"IF", 7},
    NumberedKeyword{u"INDEX", word::wdFieldIndex},
    NumberedKeyword{u"TC", 9},
    NumberedKeyword{u"STYLEREF", 10},
    NumberedKeyword{u"RD", 11},
    NumberedKeyword{u"SEQ", 12},
    NumberedKeyword{u"TOC", 13},
    NumberedKeyword{u"INFO", 14},
    NumberedKeyword{u"TITLE", 15},
    NumberedKeyword{u"SUBJECT", 16},
    NumberedKeyword{u"AUTHOR", 17},
    NumberedKeyword{u"KEYWORDS", 18},
    NumberedKeyword{u"COMMENTS", 19},
    NumberedKeyword{u"LASTSAVEDBY", 20},
    NumberedKeyword{u"CREATEDATE", 21},
    NumberedKeyword{u"SAVEDATE", 22},
    NumberedKeyword{u"PRINTDATE", 23},
    NumberedKeyword{u"REVNUM", 24},
    NumberedKeyword{u"EDITTIME", 25},
    NumberedKeyword{u"NUMPAGES", 26},
    NumberedKeyword{u"NUMWORDS", 27},
    NumberedKeyword{u"NUMCHARS", 28},
    NumberedKeyword{u"FILENAME", 29},
    NumberedKeyword{u"TEMPLATE", 30},
    NumberedKeyword{u"DATE", 31},
    NumberedKeyword{u"TIME", 32},
    NumberedKeyword{u"PAGE", 33},
    NumberedKeyword{u"=", 34},
    NumberedKeyword{u"QUOTE", 35},
    NumberedKeyword{u"INCLUDE", 36},
    NumberedKeyword{u"PAGEREF", 37},
    NumberedKeyword{u"ASK", 38},
    NumberedKeyword{u"FILLIN", 39},
    NumberedKeyword{u"DATA", 40},
    NumberedKeyword{u"NEXT", 41},
    NumberedKeyword{u"NEXTIF", 42},
    NumberedKeyword{u"SKIPIF", 43},
    NumberedKeyword{u"MERGEREC", 44},
    NumberedKeyword{u"DDE", 45},
    NumberedKeyword{u"DDEAUTO", 46},
    NumberedKeyword{u"GLOSSARY", 47},
    NumberedKeyword{u"PRINT", 48},
    NumberedKeyword{u"EQ", 49},
    NumberedKeyword{u"GOTOBUTTON", 50},
    NumberedKeyword{u"MACROBUTTON", 51},
    NumberedKeyword{u"AUTONUMOUT", 52},
    NumberedKeyword{u"AUTONUMLGL", 53},
    NumberedKeyword{u"AUTONUM", 54},
    NumberedKeyword{u"IMPORT", 55},
    NumberedKeyword{u"LINK", 56},
    NumberedKeyword{u"SYMBOL", 57},
    NumberedKeyword{u"EMBED", 58},
    NumberedKeyword{u"MERGEFIELD", 59},
    NumberedKeyword{u"USERNAME", 60},
    NumberedKeyword{u"USERINITIALS", 61},
    NumberedKeyword{u"USERADDRESS", 62},
    NumberedKeyword{u"BARCODE", 63},
    NumberedKeyword{u"DOCVARIABLE", 64},
    NumberedKeyword{u"SECTION", 65},
    NumberedKeyword{u"SECTIONPAGES", 66},
    NumberedKeyword{u"INCLUDEPICTURE", 67},
    NumberedKeyword{u"INCLUDETEXT", 68},
    NumberedKeyword{u"FILESIZE", 69},
    NumberedKeyword{u"FORMTEXT", 70},
    NumberedKeyword{u"FORMCHECKBOX", 71},
    NumberedKeyword{u"NOTEREF", 72},
    NumberedKeyword{u"TOA", 73},
    NumberedKeyword{u"TA", 74},
    NumberedKeyword{u"MERGESEQ", 75},
    NumberedKeyword{u"PRIVATE", 77},
    NumberedKeyword{u"DATABASE", 78},
    NumberedKeyword{u"AUTOTEXT", 79},
    NumberedKeyword{u"COMPARE", 80},
    NumberedKeyword{u"ADDIN", 81},
    NumberedKeyword{u"FORMDROPDOWN", 83},
    NumberedKeyword{u"ADVANCE", 84},
    NumberedKeyword{u"DOCPROPERTY", 85},
    NumberedKeyword{u"CONTROL", 87},
    NumberedKeyword{u"HYPERLINK", 88},
    NumberedKeyword{u"AUTOTEXTLIST", 89},
    NumberedKeyword{u"LISTNUM", 90},
    NumberedKeyword{u"HTMLCONTROL", 91},
    NumberedKeyword{u"BIDIOUTLINE", 92},
    NumberedKeyword{u"ADDRESSBLOCK", 93},
    NumberedKeyword{u"GREETINGLINE", 94},
    NumberedKeyword{u"SHAPE", 95},
    NumberedKeyword{u"CITATION", 96},
    NumberedKeyword{u"BIBLIOGRAPHY", 97},
    NumberedKeyword{u"MERGEBARCODE", 98},
    NumberedKeyword{u"DISPLAYBARCODE", 99},
};

bool SameKeyword(std::u16string_view known, std::u16string_view given) {
  return std::equal(known.begin(), known.end(), given.begin(), given.end(), [](char16_t left, char16_t right) {
    return left == right || (right >= u'a' && right <= u'z' && left == right - 32);
  });
}

}  // namespace

int FieldTypeOfKeyword(std::u16string_view keyword) {
  for (const NumberedKeyword& known : kKeywords) {
    if (SameKeyword(known.keyword, keyword)) return known.number;
  }
  // An expression needs no blank behind its sign.
  if (keyword.size() > 1 && keyword.starts_with(u'=')) return FieldTypeOfKeyword(u"=");
  return word::wdFieldEmpty;
}

}  // namespace docx
