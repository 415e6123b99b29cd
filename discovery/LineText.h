#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/Characters.h"

/// How the text of a story reads, line by line. A line ends with the mark of a paragraph or a cell, a break of a line,
/// a page, a column or a section, or a tab.

/// The first double quotation mark at an index or behind it; npos when there is none.
std::size_t FindDoubleQuote(std::u16string_view text, std::size_t index);

/// A stretch of a line.
struct QuotedText {
  std::size_t begin{0};
  std::size_t end{0};
};

/// The texts of a line that begin with a letter or digit and stand in double quotation marks of any style, without the
/// marks and without blanks behind the first of them. The line is as it reads.
std::vector<QuotedText> FindQuotedTexts(std::u16string_view line, os::Characters& characters);

/// Behind the article that begins at an index, and its blank; the index when there is none.
std::size_t AfterArticle(std::u16string_view text, std::size_t index);

/// Where the line that holds an index ends; the text's length when it does not.
std::size_t LineEnd(std::u16string_view text, std::size_t index);

/// Adds a text as it reads: a blank for a non-breaking one, a hyphen for a non-breaking one, nothing for an optional
/// hyphen or the mark of a comment.
void AppendAsRead(std::u16string_view text, std::u16string& line);

/// Whether a sentence ends within a text, or a separator of phrases stands in it.
bool EndsSentenceInside(std::u16string_view text);

/// Whether a text holds an opening bracket, round or square, and no closing one of its kind.
bool OpensBracketOnly(std::u16string_view text);

/// Whether a code unit belongs to a word: a letter, a digit or a mark on one, or half of a character beyond the first
/// 65,536.
bool IsWordUnit(os::Characters& characters, char16_t unit);
