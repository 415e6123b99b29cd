#include "hosts/docx/xml/XmlDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hosts/docx/package/Package.h"

namespace {

using docx::XmlDocument;
using docx::XmlNode;
using docx::XmlType;

/// What a tree holds, each node in brackets, as its nodes tell it.
std::string Told(XmlNode node) {
  switch (node.Type()) {
    case XmlType::kText:
      return "[" + std::string(node.Value()) + "]";
    case XmlType::kCData:
      return "[cdata " + std::string(node.Value()) + "]";
    case XmlType::kComment:
      return "[comment " + std::string(node.Value()) + "]";
    case XmlType::kInstruction:
      return "[?" + std::string(node.Name()) + " " + std::string(node.Value()) + "]";
    default:
      break;
  }
  std::string told = "[<" + std::string(node.Name());
  for (const docx::XmlAttribute& attribute : node.Attributes()) {
    told.append(" ").append(attribute.Name()).append("=").append(attribute.Value());
  }
  told += ">";
  for (const XmlNode child : node.Children()) told += Told(child);
  return told + "]";
}

TEST(XmlDocument, WritesWhatItReadToTheByte) {
  const std::string texts[] = {
      "<a/>",
      "<a></a>",
      "<?xml version='1.0'  encoding=\"UTF-8\" ?>\r\n<!-- c --><?p  q ?>\n<a  b = '1'\n c=\"&quot;2\" >x</a>\n<!---->",
      "<a>\r\n <b/> <b></b><c ><d e=''/></c>&amp;&#x41;&gt;><![CDATA[<&]]><?p?><?p q?></a>",
      "\xEF\xBB\xBF<a/>",
  };
  for (const std::string& text : texts) {
    XmlDocument document(text, "part.xml");
    EXPECT_EQ(document.Serialize(), text);
    Told(document.Root());
    EXPECT_EQ(document.Serialize(), text) << "after a look at every node";
  }
}

TEST(XmlDocument, TellsEntitiesResolvedAndLineEndsAsOne) {
  XmlDocument document("<a b='&lt;&#65;&#x1F600;\r\n\t'>x &amp; &apos;y&apos;\r\nz\r<b>&#x20AC;</b></a>", "part.xml");
  EXPECT_EQ(Told(document.Root()), "[<a b=<A\xF0\x9F\x98\x80  >[x & 'y'\nz\n][<b>[\xE2\x82\xAC]]]");
}

TEST(XmlDocument, TellsCommentsInstructionsAndCData) {
  XmlDocument document("<a><!-- x & --><?kelvarin  apart ?><?p?><![CDATA[<&]]></a>", "part.xml");
  EXPECT_EQ(Told(document.Root()), "[<a>[comment  x & ][?kelvarin apart ][?p ][cdata <&]]");
}

TEST(XmlDocument, RefusesWhatIsNotWellFormed) {
  EXPECT_THROW(XmlDocument("<a><b></a>", "part.xml"), docx::PackageError);
}

TEST(XmlDocument, SaysWhetherNamespacesAreDeclaredBelowTheRoot) {
  EXPECT_FALSE(XmlDocument("<a xmlns:w='x'><b/></a>", "p").DeclaresBelowRoot());
  EXPECT_TRUE(XmlDocument("<a><b><c xmlns:w='x'/></b></a>", "p").DeclaresBelowRoot());
}

TEST(XmlDocument, SaysWhereAnElementBegins) {
  XmlDocument document("<a><b/><c d='e'>f</c></a>", "part.xml");
  EXPECT_EQ(document.OffsetOf(document.Root().FirstChild().NextSibling()), 7U);
}

TEST(XmlNode, KnowsItsNeighbours) {
  XmlDocument document("<a><b/><c/><d/></a>", "part.xml");
  const XmlNode root = document.Root();
  EXPECT_EQ(root.FirstChild().Name(), "b");
  EXPECT_EQ(root.LastChild().Name(), "d");
  EXPECT_EQ(root.LastChild().PreviousSibling().Name(), "c");
  EXPECT_TRUE(root.FirstChild().PreviousSibling().Empty());
  EXPECT_TRUE(root.LastChild().NextSibling().Empty());
  EXPECT_EQ(root.FirstChild().Parent(), root);
  EXPECT_EQ(root.Child("c"), root.FirstChild().NextSibling());
  EXPECT_TRUE(root.Child("x").Empty());
  EXPECT_TRUE(XmlNode().FirstChild().Empty());
}

TEST(XmlNode, AChangeIsWrittenAndNothingElseChanges) {
  XmlDocument document("<a ><b x='1'  y=\"2\"/><c><d/>t</c><e></e></a>", "part.xml");
  document.Root().FirstChild().SetAttribute("x", "<\"&\n");
  EXPECT_EQ(document.Serialize(), "<a ><b x=\"&lt;&quot;&amp;&#10;\"  y=\"2\"/><c><d/>t</c><e></e></a>");
  EXPECT_EQ(document.Root().FirstChild().Attribute("x").Value(), "<\"&\n");
}

TEST(XmlNode, AttributesAreAddedAtTheEndAndRemoved) {
  XmlDocument document("<a><b x='1' y='2' z='3'/></a>", "part.xml");
  XmlNode b = document.Root().FirstChild();
  b.SetAttribute("n", 7);
  b.RemoveAttribute("y");
  b.RemoveAttribute("none");
  EXPECT_EQ(document.Serialize(), "<a><b x='1' z='3' n=\"7\"/></a>");
  EXPECT_EQ(b.Attribute("n").AsInt(), 7);
  EXPECT_EQ(b.Attribute("y").AsInt(5), 5);
}

TEST(XmlNode, ADecimalNumberIsAlwaysOne) {
  const auto number = [](const std::string& value) {
    return XmlDocument("<a n='" + value + "'/>", "part.xml").Root().Attribute("n").AsDouble();
  };
  EXPECT_EQ(number("12.5"), 12.5);
  EXPECT_EQ(number(" +7pt"), 7);
  EXPECT_EQ(number("-.5"), -.5);
  EXPECT_EQ(number("2e3"), 2000);
  for (const char* none : {"", "x", "nan", "inf", "-INF", "1e400", "+", ","}) EXPECT_EQ(number(none), 0) << none;
  EXPECT_EQ(XmlDocument("<a/>", "part.xml").Root().Attribute("n").AsDouble(), 0);
}

TEST(XmlNode, BlanksBehindTheAttributesGoWhenOneIsSetAndStayWhenItIsThere) {
  XmlDocument document("<a><b x='1' /><b x=\"1\" /><b /></a>", "part.xml");
  const XmlNode first = document.Root().FirstChild();
  first.NextSibling().SetAttribute("x", "1");
  XmlNode(first).SetAttribute("y", "2");
  document.Root().LastChild().SetAttribute("z", "3");
  EXPECT_EQ(document.Serialize(), "<a><b x='1' y=\"2\"/><b x=\"1\" /><b z=\"3\"/></a>");
}

TEST(XmlNode, ASettledContentCanBeGivenToAnotherElement) {
  XmlDocument document("<a><b><c x='1'/><d/></b><b/></a>", "part.xml");
  XmlNode b = document.Root().FirstChild();
  b.FirstChild().SetAttribute("x", "2");
  b.FirstChild().NextSibling().SetOnlyText("<t>");
  XmlNode other = document.Root().LastChild();
  other.SetContentText(b.SettleContent());
  const std::string content = "<c x=\"2\"/><d>&lt;t&gt;</d>";
  EXPECT_EQ(document.Serialize(), "<a><b>" + content + "</b><b>" + content + "</b></a>");
  EXPECT_EQ(b.SettleContent(), content);
  b.FirstChild().SetAttribute("x", "3");
  EXPECT_EQ(b.FirstChild().NextSibling().OnlyText(), "<t>");
  EXPECT_EQ(document.Serialize(), "<a><b><c x=\"3\"/><d>&lt;t&gt;</d></b><b>" + content + "</b></a>");
}

TEST(XmlNode, APartOfATextIsSharedOrEscaped) {
  XmlDocument document("<a><b>one two</b><b>1 &lt; 2</b></a>", "part.xml");
  for (XmlNode b : document.Root().Children()) b.ShareOnlyText(b.OnlyText()->substr(2));
  EXPECT_EQ(document.Serialize(), "<a><b>e two</b><b>&lt; 2</b></a>");
  EXPECT_EQ(document.Root().LastChild().OnlyText(), "< 2");
}

TEST(XmlNode, ATextWithNothingToEscapeIsSharedWithoutLookingAtItAgain) {
  XmlDocument document("<a><b>one two</b><b>1 > 2</b><b>1 &lt; 2</b><b/><b>x<c/></b></a>", "part.xml");
  XmlNode b = document.Root().FirstChild();
  EXPECT_TRUE(b.HoldsPlainText());
  for (XmlNode other = b.NextSibling(); other; other = other.NextSibling()) EXPECT_FALSE(other.HoldsPlainText());
  b.SharePlainText(b.OnlyText()->substr(2));
  EXPECT_EQ(b.OnlyText(), "e two");
  EXPECT_TRUE(b.HoldsPlainText());
  b.FirstChild().SetValue("<");
  EXPECT_FALSE(b.HoldsPlainText());
  EXPECT_EQ(b.OnlyText(), "<");
  EXPECT_EQ(document.Serialize(), "<a><b>&lt;</b><b>1 > 2</b><b>1 &lt; 2</b><b/><b>x<c/></b></a>");
  b.SetOnlyText("a & b");
  EXPECT_EQ(b.OnlyText(), "a & b");
}

TEST(XmlNode, TellsWhatAnElementMayHoldUntilItChanges) {
  XmlDocument document("<a><b><c/></b></a>", "part.xml");
  XmlNode b = document.Root().FirstChild();
  EXPECT_TRUE(b.MayHold("c"));
  EXPECT_FALSE(b.MayHold("d"));
  b.AppendChild(document.Name("d"));
  EXPECT_TRUE(b.MayHold("d"));
}

TEST(XmlNode, TellsWhetherItWasChangedInAPeriod) {
  XmlDocument document("<a><b x=\"1\"><c>text</c></b><d/></a>", "part.xml");
  const XmlNode a = document.Root();
  XmlNode b = a.FirstChild();
  XmlNode c = b.FirstChild();
  const XmlNode d = b.NextSibling();
  const std::uint32_t first = document.BeginPeriod();
  for (const XmlNode node : {a, b, c, d}) EXPECT_FALSE(node.ChangedSince(first));
  c.SetOnlyText("other");
  for (const XmlNode node : {a, b, c}) EXPECT_TRUE(node.ChangedSince(first));
  EXPECT_FALSE(d.ChangedSince(first));
  const std::uint32_t second = document.BeginPeriod();
  EXPECT_TRUE(b.ChangedSince(first));
  EXPECT_FALSE(b.ChangedSince(second));
  b.SetAttribute("x", "2");
  EXPECT_TRUE(a.ChangedSince(second));
  EXPECT_TRUE(b.ChangedSince(second));
  EXPECT_FALSE(c.ChangedSince(second));
  const std::uint32_t third = document.BeginPeriod();
  c.AppendChild(document.Name("e"));
  for (const XmlNode node : {a, b, c}) EXPECT_TRUE(node.ChangedSince(third));
  const std::uint32_t fourth = document.BeginPeriod();
  b.RemoveChild(c);
  for (const XmlNode node : {a, b}) EXPECT_TRUE(node.ChangedSince(fourth));
  // What is moved is told of where it came from and where it went.
  XmlNode(d).AppendMove(b);
  EXPECT_TRUE(d.ChangedSince(fourth));
}

TEST(XmlNode, ChildrenGoInAtTheirPlaces) {
  XmlDocument document("<a><b/></a>", "part.xml");
  XmlNode root = document.Root();
  const XmlNode b = root.FirstChild();
  root.AppendChild(document.Name("z"));
  root.PrependChild(document.Name("p"));
  root.InsertChildBefore(document.Name("x"), b);
  root.InsertChildAfter(document.Name("y"), b).SetAttribute("k", "v");
  EXPECT_EQ(document.Serialize(), "<a><p/><x/><b/><y k=\"v\"/><z/></a>");
}

TEST(XmlNode, RemovingTheLastChildLeavesAnEmptyElement) {
  XmlDocument document("<a><b>t</b></a>", "part.xml");
  XmlNode b = document.Root().FirstChild();
  EXPECT_TRUE(b.RemoveChild(b.FirstChild()));
  EXPECT_FALSE(b.RemoveChild(XmlNode()));
  EXPECT_EQ(document.Serialize(), "<a><b></b></a>");
}

TEST(XmlNode, WhatIsPutInAndTakenOutLeavesTheElementAsItWas) {
  const std::string text = "<a><b></b><c/><d>t</d></a>";
  XmlDocument document(text, "part.xml");
  for (XmlNode node : document.Root().Children()) node.RemoveChild(node.AppendChild(document.Name("x")));
  EXPECT_EQ(document.Serialize(), text);
}

TEST(XmlNode, WhatIsNoElementHasNoChildren) {
  XmlDocument document("<a>t<!--c--><?p q?><![CDATA[d]]></a>", "part.xml");
  for (const XmlNode node : document.Root().Children()) EXPECT_TRUE(node.FirstChild().Empty());
}

TEST(XmlNode, ChildrenAreRemovedFromEveryPlace) {
  for (const std::string_view gone : {"b", "c", "d"}) {
    XmlDocument document("<a><b/><c/><d/></a>", "part.xml");
    XmlNode root = document.Root();
    root.RemoveChild(root.Child(gone));
    std::string expected = "<a><b/><c/><d/></a>";
    expected.erase(expected.find(std::string(gone) + "/") - 1, 4);
    EXPECT_EQ(document.Serialize(), expected);
    EXPECT_EQ(root.LastChild().PreviousSibling(), root.FirstChild());
    root.AppendChild(document.Name("e"));
    EXPECT_EQ(root.LastChild().Name(), "e");
  }
}

TEST(XmlNode, TextIsSetWithOrWithoutALookAtIt) {
  for (const bool look : {false, true}) {
    XmlDocument document("<a><t>one</t><t/><t></t></a>", "part.xml");
    for (XmlNode t : document.Root().Children()) {
      if (look) static_cast<void>(t.FirstChild());
      t.SetOnlyText("x<y");
      EXPECT_EQ(t.OnlyText(), "x<y");
    }
    EXPECT_EQ(document.Serialize(), "<a><t>x&lt;y</t><t>x&lt;y</t><t>x&lt;y</t></a>");
    EXPECT_EQ(document.Root().FirstChild().FirstChild().Value(), "x<y");
  }
}

TEST(XmlNode, OnlyTextIsNothingWhereThereIsMore) {
  XmlDocument document("<a><t>x&amp;y</t><u/><v><b/></v><w>x<!-- --></w></a>", "part.xml");
  std::vector<XmlNode> nodes;
  for (const XmlNode node : document.Root().Children()) nodes.push_back(node);
  EXPECT_EQ(nodes[0].OnlyText(), "x&y");
  EXPECT_EQ(nodes[1].OnlyText(), "");
  EXPECT_EQ(nodes[2].OnlyText(), std::nullopt);
  EXPECT_EQ(nodes[3].OnlyText(), std::nullopt);
}

TEST(XmlDocument, CDataStaysThatWhereItCanHoldTheText) {
  XmlDocument document("<a><![CDATA[x]]></a>", "part.xml");
  XmlNode data = document.Root().FirstChild();
  data.SetValue("<&]]");
  EXPECT_EQ(data.Value(), "<&]]");
  EXPECT_EQ(document.Serialize(), "<a><![CDATA[<&]]]]></a>");
  data.SetValue("a]]>b");
  EXPECT_EQ(data.Value(), "a]]>b");
  EXPECT_EQ(document.Serialize(), "<a>a]]&gt;b</a>");
}

TEST(XmlNode, ATextsValueIsEscapedWhenItIsWritten) {
  XmlDocument document("<a>old<b/></a>", "part.xml");
  document.Root().FirstChild().SetValue("a & b\r");
  EXPECT_EQ(document.Root().FirstChild().Value(), "a & b\r");
  EXPECT_EQ(document.Serialize(), "<a>a &amp; b&#13;<b/></a>");
}

TEST(XmlNode, ACopyIsItsOwn) {
  XmlDocument document("<a><b k='v'><c><d/>t</c><e/></b></a>", "part.xml");
  XmlNode root = document.Root();
  XmlNode b = root.FirstChild();
  XmlNode copy = root.AppendCopy(b);
  copy.Child("c").RemoveChild(copy.Child("c").FirstChild());
  EXPECT_EQ(document.Serialize(), "<a><b k='v'><c><d/>t</c><e/></b><b k='v'><c>t</c><e/></b></a>");
  // Of what was changed before, and with it inside another.
  root.InsertCopyBefore(copy, b).SetAttribute("k", "w");
  EXPECT_EQ(document.Serialize(),
            "<a><b k=\"w\"><c>t</c><e/></b><b k='v'><c><d/>t</c><e/></b><b k='v'><c>t</c><e/></b></a>");
  EXPECT_EQ(root.FirstChild().Child("c").FirstChild().Value(), "t");
}

TEST(XmlNode, ACopyHasTheShapeOfWhatWasChanged) {
  XmlDocument document("<a><b><c><d>1</d></c><e><f><g/></f></e>2</b></a>", "part.xml");
  XmlNode root = document.Root();
  root.FirstChild().FirstChild().FirstChild().SetAttribute("x", "y");
  root.FirstChild().Child("e").FirstChild().AppendChild(document.Name("h"));
  root.AppendCopy(root.FirstChild());
  const std::string b = "<b><c><d x=\"y\">1</d></c><e><f><g/><h/></f></e>2</b>";
  EXPECT_EQ(document.Serialize(), "<a>" + b + b + "</a>");
  EXPECT_EQ(Told(root.FirstChild()), Told(root.LastChild()));
}

TEST(XmlNode, NodesAreMoved) {
  XmlDocument document("<a><b/><c><d/></c><e/></a>", "part.xml");
  XmlNode root = document.Root();
  XmlNode c = root.Child("c");
  c.AppendMove(root.Child("b"));
  c.PrependMove(root.Child("e"));
  EXPECT_EQ(document.Serialize(), "<a><c><e/><d/><b/></c></a>");
  root.InsertMoveAfter(c.Child("d"), c);
  root.InsertMoveBefore(c.Child("b"), c);
  EXPECT_EQ(document.Serialize(), "<a><b/><c><e/></c><d/></a>");
  root.InsertMoveAfter(root.Child("b"), root.Child("b"));
  root.InsertMoveAfter(root.Child("c"), root.Child("b"));
  EXPECT_EQ(document.Serialize(), "<a><b/><c><e/></c><d/></a>");
}

TEST(XmlNode, InstructionsAreMade) {
  XmlDocument document("<a/>", "part.xml");
  XmlNode mark = document.Root().AppendChild(XmlType::kInstruction);
  mark.SetTarget("kelvarin");
  mark.SetValue("apart");
  EXPECT_EQ(document.Serialize(), "<a><?kelvarin apart?></a>");
  EXPECT_EQ(mark.Name(), "kelvarin");
  EXPECT_EQ(mark.Value(), "apart");
}

TEST(XmlNode, WhatIsNoElementHasNoAttributes) {
  XmlDocument document("<a><?kelvarin keep b='1'?>c='2' &amp; d<!-- e='3' --></a>", "part.xml");
  for (const XmlNode child : document.Root().Children()) {
    static_cast<void>(child.Value());
    EXPECT_FALSE(child.Attributes().begin() != child.Attributes().end());
    EXPECT_FALSE(child.Attribute("b"));
  }
}

TEST(XmlNode, DeepTreesNeedNoStack) {
  constexpr int kDepth = 3900;
  std::string text;
  for (int i = 0; i < kDepth; ++i) text += "<a>";
  text += "<b>t</b>";
  for (int i = 0; i < kDepth; ++i) text += "</a>";
  XmlDocument document(text, "part.xml");
  XmlNode node = document.Root();
  while (node.FirstChild().Name() == "a") node = node.FirstChild();
  node.FirstChild().SetAttribute("x", "1");
  XmlNode root = document.Root();
  root.AppendCopy(root.FirstChild());
  EXPECT_EQ(document.Serialize().size(), 2 * text.size() - 7 + 2 * 6);
}

}  // namespace
