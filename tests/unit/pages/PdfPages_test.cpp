#include "hosts/docx/pages/PdfPages.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <string>

namespace {

using Destinations = std::map<std::string, int, std::less<>>;

const std::string kHead = "%PDF-1.6\n";
const std::string kThreePages =
    "4 0 obj\n<</Type/Pages/Kids[ 10 0 R 5 0 R ]/Count 3>>\nendobj\n"
    "5 0 obj <</Type/Pages/Kids [11 0 R\n12 0 R]>> endobj\n"
    "10 0 obj<</Type/Page/Parent 4 0 R>>endobj\n11 0 obj<</Type/Page>>endobj 12 0 obj<</Type/Page>>endobj\n";

Destinations Read(const std::string& objects) { return docx::ReadPdfPages(kHead + objects).destinations; }

std::string Problem(const std::string& pdf) {
  try {
    docx::ReadPdfPages(pdf);
  } catch (const docx::PdfError& error) {
    return error.what();
  }
  return "read";
}

std::string Deflate(const std::string& text) {
  std::string packed(compressBound(text.size()), '\0');
  uLongf size = packed.size();
  compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(text.data()), text.size());
  packed.resize(size);
  return packed;
}

TEST(PdfPages, DestinationsOfADictionaryHaveTheirPages) {
  const std::string pdf = kThreePages +
                          "1 0 obj<</Type/Catalog/Pages 4 0 R/Dests 2 0 R>>endobj\n"
                          "2 0 obj<</kvxp1[12 0 R/XYZ 1.5 2 0]/kvxp#32[10 0 R /XYZ -1 +2 null]/lost[99 0 R/Fit]"
                          "/deep<</D[11 0 R/Fit]>>>>endobj\n";
  EXPECT_EQ(Read(pdf), (Destinations{{"kvxp1", 3}, {"kvxp2", 1}, {"deep", 2}}));
  EXPECT_EQ(docx::ReadPdfPages(kHead + pdf).count, 3);
}

TEST(PdfPages, ADestinationWhosePageIsNoPageIsPassedOver) {
  const std::string pdf = kThreePages +
                          "1 0 obj<</Type/Catalog/Pages 4 0 R/Dests 2 0 R>>endobj\n"
                          "2 0 obj<</number[11/Fit]/large[1e38/Fit]/none[]/name/Fit/kept[11 0 R/Fit]>>endobj\n";
  EXPECT_EQ(Read(pdf), (Destinations{{"kept", 2}}));
}

TEST(PdfPages, DestinationsOfANameTreeHaveTheirPages) {
  const std::string pdf = kThreePages +
                          "1 0 obj<</Type/Catalog/Pages 4 0 R/Names<</Dests 2 0 R>>>>endobj\n"
                          "2 0 obj<</Kids[3 0 R 6 0 R]>>endobj 3 0 obj<</Names[(a\\(b\\)\\101) 7 0 R]>>endobj\n"
                          "6 0 obj<</Names[<4b5>[12 0 R/Fit] (odd)]>>endobj 7 0 obj[11 0 R/Fit]endobj\n";
  EXPECT_EQ(Read(pdf), (Destinations{{"a(b)A", 2}, {"KP", 3}}));
}

TEST(PdfPages, ObjectsMayStandInPackedStreams) {
  const std::string inside = "1 0 2 40 <</Type/Catalog/Pages 4 0 R/Dests 2 0 R>><</x[12 0 R/Fit]>>";
  const std::string first = "9";
  const std::string packed = Deflate("1 0 2 41 " + inside.substr(9));
  const std::string pdf = kThreePages + "8 0 obj<</Type/ObjStm/N 2/First " + first + "/Filter/FlateDecode/Length " +
                          std::to_string(packed.size()) + ">>\nstream\r\n" + packed + "\nendstream endobj\n";
  EXPECT_EQ(Read(pdf), (Destinations{{"x", 3}}));
}

TEST(PdfPages, TheDataOfAStreamIsNotReadAsObjects) {
  const std::string data = "1 0 obj<</Type/Catalog>>endobj";
  for (const std::string& length : {std::to_string(data.size()), std::string("9 0 R"), std::string("100000")}) {
    const std::string pdf = kThreePages + "1 0 obj<</Type/Catalog/Pages 4 0 R/Dests<</x[10 0 R/Fit]>>>>endobj\n" +
                            "7 0 obj<</Length " + length + ">>stream\n" + data + "\nendstream\nendobj\n";
    EXPECT_EQ(Read(pdf), (Destinations{{"x", 1}})) << length;
  }
}

TEST(PdfPages, WhatIsNoPdfOrHasNoPagesIsSaid) {
  EXPECT_EQ(Problem(""), "it is no PDF");
  EXPECT_EQ(Problem("<html>"), "it is no PDF");
  EXPECT_EQ(Problem(kHead), "it has no pages");
  EXPECT_EQ(Problem(kHead + "1 0 obj<</Type/Catalog/Pages 4 0 R>>endobj"), "it has no pages");
}

TEST(PdfPages, CirclesAndDepthsEnd) {
  EXPECT_EQ(Problem(kHead + "1 0 obj<</Type/Catalog/Pages 4 0 R>>endobj 4 0 obj<</Kids[4 0 R 4 0 R]>>endobj"),
            "it has no pages");
  EXPECT_EQ(Problem(kHead + "1 0 obj 1 0 R endobj 2 0 obj<</Type/Catalog/Pages 1 0 R>>endobj"), "it has no pages");
  EXPECT_EQ(Problem(kHead + "1 0 obj" + std::string(100000, '[') + "endobj"), "it has no pages");
  EXPECT_EQ(Problem(kHead + "1 0 obj<</Type/ObjStm/N 1e9/First -1>>stream\nx"), "it has no pages");
}

}  // namespace
