#include "hosts/linux/IniText.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;

struct ReadCase {
  std::string name;
  std::string file;
  /// What key "Key" of section "Sec" reads; nothing when it is missing.
  std::optional<std::u16string> value;
};

void PrintTo(const ReadCase& given, std::ostream* stream) { *stream << given.name; }

class IniTextReading : public testing::TestWithParam<ReadCase> {};

TEST_P(IniTextReading, FollowsTheRules) {
  EXPECT_EQ(os::IniText(GetParam().file).Find(u"Sec", u"Key"), GetParam().value);
}

const std::vector<ReadCase> kReadCases = {
    {"PlainValue", "[Sec]\r\nKey=value\r\n", u"value"},
    {"EmptyFile", "", std::nullopt},
    {"MissingSection", "[Other]\r\nKey=value\r\n", std::nullopt},
    {"MissingKey", "[Sec]\r\nOther=value\r\n", std::nullopt},
    {"KeyBeforeAnySection", "Key=value\r\n[Sec]\r\n", std::nullopt},
    {"KeyOfTheNextSection", "[Sec]\r\n[Other]\r\nKey=value\r\n", std::nullopt},
    {"EmptyValue", "[Sec]\r\nKey=\r\n", u""},
    {"OnlyBlanks", "[Sec]\r\nKey= \t \r\n", u""},
    {"SectionAndKeyInAnyCase", "[sEC]\r\nkEY=Value\r\n", u"Value"},
    {"BlanksAroundEverything", " [ Sec ] \r\n\t Key \t=  value \t\r\n", u"value"},
    {"InnerBlanks", "[Sec]\r\nKey=a  b\r\n", u"a  b"},
    {"FirstEqualsSignEndsTheKey", "[Sec]\r\nKey=a=b\r\n", u"a=b"},
    {"DoubleQuotesDropped", "[Sec]\r\nKey=\":  {TAB}\"\r\n", u":  {TAB}"},
    {"SingleQuotesDropped", "[Sec]\r\nKey='a b'\r\n", u"a b"},
    {"OnlyOnePairOfQuotesDropped", "[Sec]\r\nKey=\"\"a\"\"\r\n", u"\"a\""},
    {"InnerPairOfTheOtherKindStays", "[Sec]\r\nKey=\"'a'\"\r\n", u"'a'"},
    {"QuoteInsideStays", "[Sec]\r\nKey=\"a\"b\"\r\n", u"a\"b"},
    {"BlanksInsideQuotesStay", "[Sec]\r\nKey=  \" a \"  \r\n", u" a "},
    {"LoneQuoteStays", "[Sec]\r\nKey=\"\r\n", u"\""},
    {"UnequalQuotesStay", "[Sec]\r\nKey=\"a'\r\n", u"\"a'"},
    {"QuoteOnOneSideStays", "[Sec]\r\nKey=\"a\r\n", u"\"a"},
    {"EmptyQuotes", "[Sec]\r\nKey=\"\"\r\n", u""},
    {"CommentLine", "[Sec]\r\n;Key=comment\r\n  ; Key=comment\r\nKey=value\r\n", u"value"},
    {"SemicolonInAValue", "[Sec]\r\nKey=a ;b\r\n", u"a ;b"},
    {"LineWithoutEqualsSign", "[Sec]\r\nKey\r\nKey=value\r\n", u"value"},
    {"FirstKeyWins", "[Sec]\r\nKey=first\r\nKey=second\r\n", u"first"},
    {"FirstSectionWins", "[Sec]\r\nKey=first\r\n[Sec]\r\nKey=second\r\n", u"first"},
    {"SectionsOfOneNameAreNotMerged", "[Sec]\r\nOther=1\r\n[Sec]\r\nKey=second\r\n", std::nullopt},
    {"LinesEndingInLf", "[Sec]\nKey=value\n", u"value"},
    {"LinesEndingInCr", "[Sec]\rKey=value\rOther=1\r", u"value"},
    {"LastLineWithoutEnd", "[Sec]\r\nKey=value", u"value"},
    {"BlankLinesBetween", "\r\n\r\n[Sec]\r\n\r\n\r\nKey=value\r\n", u"value"},
    {"BracketInAValue", "[Sec]\r\nOther=[x]\r\nKey=[value]\r\n", u"[value]"},
    {"OpenBracketWithoutACloseIsNoSection", "[Sec]\r\n[Other\r\nKey=value\r\n", u"value"},
    {"AnsiBytes", "[Sec]\r\nKey=\x93\xE9\x94\x81\r\n", u"\u201C\u00E9\u201D\u0081"},
    {"Utf16LittleEndian", "\xFF\xFE[\0S\0e\0c\0]\0\n\0K\0e\0y\0=\0\x1C\x20"s, u"\u201C"},
    {"Utf16BigEndian", "\xFE\xFF\0[\0S\0e\0c\0]\0\n\0K\0e\0y\0=\x20\x1C"s, u"\u201C"},
};

INSTANTIATE_TEST_SUITE_P(Profile, IniTextReading, testing::ValuesIn(kReadCases),
                         [](const auto& given) { return given.param.name; });

struct WriteCase {
  std::string name;
  std::string before;
  std::u16string value;
  std::string after;
};

void PrintTo(const WriteCase& given, std::ostream* stream) { *stream << given.name; }

class IniTextWriting : public testing::TestWithParam<WriteCase> {};

TEST_P(IniTextWriting, FollowsTheRules) {
  os::IniText text(GetParam().before);
  text.Set(u"Sec", u"Key", GetParam().value);
  EXPECT_EQ(text.Bytes(), GetParam().after);
}

const std::vector<WriteCase> kWriteCases = {
    {"NewFile", "", u"value", "[Sec]\r\nKey=value\r\n"},
    {"NewSectionAtTheEnd", "[A]\r\nx=1\r\n", u"value", "[A]\r\nx=1\r\n[Sec]\r\nKey=value\r\n"},
    {"NewSectionBehindALineWithoutEnd", "[A]\r\nx=1", u"value", "[A]\r\nx=1\r\n[Sec]\r\nKey=value\r\n"},
    {"NewSectionBehindBlankLines", "[A]\r\nx=1\r\n\r\n", u"value", "[A]\r\nx=1\r\n\r\n[Sec]\r\nKey=value\r\n"},
    {"NewKeyAtTheEndOfItsSection", "[Sec]\r\nx=1\r\n[B]\r\n", u"value", "[Sec]\r\nx=1\r\nKey=value\r\n[B]\r\n"},
    {"NewKeyBeforeTrailingBlankLines", "[Sec]\r\nx=1\r\n\r\n \r\n[B]\r\n", u"value",
     "[Sec]\r\nx=1\r\nKey=value\r\n\r\n \r\n[B]\r\n"},
    {"NewKeyOfAnEmptySection", "[Sec]\r\n[B]\r\n", u"value", "[Sec]\r\nKey=value\r\n[B]\r\n"},
    {"NewKeyBehindALineWithoutEnd", "[Sec]\r\nx=1", u"value", "[Sec]\r\nx=1\r\nKey=value\r\n"},
    {"NewKeyBehindAComment", "[Sec]\r\nx=1\r\n;c\r\n", u"value", "[Sec]\r\nx=1\r\n;c\r\nKey=value\r\n"},
    {"NewKeyGoesToTheFirstSection", "[Sec]\r\n[B]\r\n[Sec]\r\nKey=1\r\n", u"value",
     "[Sec]\r\nKey=value\r\n[B]\r\n[Sec]\r\nKey=1\r\n"},
    {"ValueInItsPlace", "; a\r\n[Sec]\r\nx=1\r\n\r\nKey=old\r\ny=2\r\n", u"new",
     "; a\r\n[Sec]\r\nx=1\r\n\r\nKey=new\r\ny=2\r\n"},
    {"OnlyTheFirstOfTwoKeys", "[Sec]\r\nKey=1\r\nKey=2\r\n", u"3", "[Sec]\r\nKey=3\r\nKey=2\r\n"},
    {"KeySpelledOtherwise", "[sec]\r\nKEY=old\r\n", u"new", "[sec]\r\nKEY=new\r\n"},
    {"OtherLineEndsStay", "[Sec]\nKey=old\nx=1\r", u"new", "[Sec]\nKey=new\nx=1\r"},
    {"QuotesAsGiven", "[Sec]\r\nKey=old\r\n", u"\";  {TAB}\"", "[Sec]\r\nKey=\";  {TAB}\"\r\n"},
    {"LeadingBlanksCut", "[Sec]\r\nKey=old\r\n", u"  a b ", "[Sec]\r\nKey=a b \r\n"},
    {"EmptyValue", "[Sec]\r\nKey=old\r\n", u"", "[Sec]\r\nKey=\r\n"},
    {"LastLineWithoutEnd", "[Sec]\r\nKey=old", u"new", "[Sec]\r\nKey=new"},
    {"AnsiBytes", "[A]\r\n\x81\x93=\x9D\r\n", u"\u201C", "[A]\r\n\x81\x93=\x9D\r\n[Sec]\r\nKey=\x93\r\n"},
    {"BestFitAndQuestionMark", "", u"\u0101\u4E00", "[Sec]\r\nKey=a?\r\n"},
    {"Utf16StaysUtf16", "\xFF\xFE[\0S\0e\0c\0]\0\n\0K\0e\0y\0=\0a\0\n\0"s, u"\u201C",
     "\xFF\xFE[\0S\0e\0c\0]\0\n\0K\0e\0y\0=\0\x1C\x20\n\0"s},
};

INSTANTIATE_TEST_SUITE_P(Profile, IniTextWriting, testing::ValuesIn(kWriteCases),
                         [](const auto& given) { return given.param.name; });

TEST(IniText, GivesBackEveryByteOfAFile) {
  std::string bytes;
  for (int c = 0; c < 256; ++c) bytes += static_cast<char>(c);
  EXPECT_EQ(os::IniText(bytes).Bytes(), bytes);
  EXPECT_EQ(os::IniText("\xFF\xFE"
                        "a\0b"s)
                .Bytes(),
            "\xFF\xFE"
            "a\0b"s);
}

}  // namespace
