#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "hosts/docx/WordProcessor.h"
#include "hosts/json/Json.h"
#include "platform/os/Characters.h"

/// Where candidate terms stand in a document, for whoever judges them: an array with an object for each term, in the
/// order given. "story", "position" and "page" tell the first place where the text reads exactly so, "sentence" what is
/// said there, "occurrences" how many such places there are, each counted for the longest term at it, so that a term
/// that stands inside of longer ones only has none. "only" is "sentenceStart" or "heading" where nothing but that
/// explains the capital letter, otherwise null. A term that the text does not hold has no place: null.
/// @param processor its document is the file as it is
json::Value DescribeTerms(docx::WordProcessor& processor, os::Characters& characters,
                          const std::vector<std::u16string>& terms);
