// The document model: lists, names, texts, and documents that do not load.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "xml/xml_document.h"

namespace zel {
namespace {

std::vector<std::string> NamesFrom(XmlNode node) {
  std::vector<std::string> names;
  for (; node; node = node.Next()) names.emplace_back(node.Name());
  return names;
}

class DocumentTest : public ::testing::Test {
 protected:
  XmlNode RootOf(std::string_view text) {
    EXPECT_TRUE(document_.Load(text)) << text;
    return document_.Root();
  }
  std::string TextOf(std::string_view text) { return std::string(RootOf(text).Text()); }
  bool Loads(std::string_view text) { return document_.Load(text); }

  XmlDocument document_;
};

using Names = std::vector<std::string>;

TEST_F(DocumentTest, ChildNodesStandInOrderWithoutWhiteSpace) {
  XmlNode const root = RootOf("<r>\n <a/>\t<!-- c -->words<B/> <![CDATA[ d ]]><?p q?>\r\n</r>");
  EXPECT_EQ(NamesFrom(root.FirstChild()),
            (Names{"a", "#comment", "#text", "B", "#cdata-section", "p"}));
  EXPECT_FALSE(root.FirstChild()) << "which have been read";
}

TEST_F(DocumentTest, CommentsAreTold) {
  XmlNode const first = RootOf("<r><a/><!-- c --></r>").FirstChild();
  EXPECT_FALSE(first.IsComment());
  EXPECT_TRUE(first.Next().IsComment());
}

TEST_F(DocumentTest, ElementMayBeCalledTextOrComment) {
  EXPECT_EQ(NamesFrom(RootOf("<r><text/><comment/></r>").FirstChild()), (Names{"text", "comment"}));
  EXPECT_FALSE(RootOf("<r><text/><comment/></r>").FirstChild().Next().IsComment());
}

TEST_F(DocumentTest, EmptyElementHasNoChildren) {
  EXPECT_FALSE(RootOf("<r>   </r>").FirstChild());
  EXPECT_FALSE(RootOf("<r/>").FirstAttribute());
}

TEST_F(DocumentTest, TopNodesShowDeclarationAndDocumentType) {
  ASSERT_TRUE(Loads("<?xml version='1.0'?><!DOCTYPE r [<!ENTITY e 'x'>]><!-- c --><r/>"));
  EXPECT_EQ(NamesFrom(document_.FirstNode()), (Names{"xml", "r", "#comment", "r"}));
  ASSERT_TRUE(Loads("<?xml version='1.0' encoding='UTF-8' standalone='yes'?><r/>"));
  EXPECT_EQ(NamesFrom(document_.FirstNode()), (Names{"xml", "r"}));
  ASSERT_TRUE(Loads("<!-- c --><r/><!-- d -->"));
  EXPECT_EQ(NamesFrom(document_.FirstNode()), (Names{"#comment", "r", "#comment"}));
}

TEST_F(DocumentTest, NamesKeepTheirPrefix) {
  XmlNode const root = RootOf("<a:r xmlns:a='u' xmlns='v' a:x='1' y='2'/>");
  EXPECT_EQ(root.Name(), "a:r");
  EXPECT_EQ(NamesFrom(root.FirstAttribute()), (Names{"xmlns:a", "xmlns", "a:x", "y"}));
  EXPECT_EQ(root.FirstAttribute().Value(), "u");
  EXPECT_EQ(root.Attribute("a:x"), "1");
  EXPECT_EQ(root.Attribute("x"), std::nullopt);
  EXPECT_EQ(root.Attribute("xmlns"), "v");
}

TEST_F(DocumentTest, AttributesAreFoundByTheirExactName) {
  XmlNode const root = RootOf("<r File='1' file=''/>");
  EXPECT_EQ(root.Attribute("File"), "1");
  EXPECT_EQ(root.Attribute("file"), "");
  EXPECT_EQ(root.Attribute("FILE"), std::nullopt);
  EXPECT_EQ(RootOf("<r a='&lt;&#65;&amp;&quot;&apos;&gt;'/>").Attribute("a"), "<A&\"'>");
  EXPECT_EQ(RootOf("<!DOCTYPE r [<!ENTITY e 'x'>]><r a='1&e;2'/>").Attribute("a"), "1x2");
}

TEST_F(DocumentTest, PlainTextLosesItsEnds) {
  EXPECT_EQ(TextOf("<r> \n 1  2\t3 \r\n</r>"), "1  2\t3");
  EXPECT_EQ(TextOf("<r>  </r>"), "");
  EXPECT_EQ(TextOf("<r/>"), "");
}

TEST_F(DocumentTest, CdataIsKeptAsItStands) {
  EXPECT_EQ(TextOf("<r>\n  <![CDATA[ a\n  b ]]>\n</r>"), " a\n  b ");
  EXPECT_EQ(TextOf("<r>  x <![CDATA[ y ]]> </r>"), "x  y ");
  EXPECT_EQ(TextOf("<r> <![CDATA[ y ]]> z </r>"), " y  z");
  EXPECT_EQ(TextOf("<r><![CDATA[]]></r>"), "");
}

TEST_F(DocumentTest, SectionsThatFollowEachOtherAreSeveralNodes) {
  for (std::string const front : {"", "<!DOCTYPE r>"}) {
    std::string const text = front + "<r><![CDATA[ a ]]><![CDATA[]]><![CDATA[ b]]>c</r>";
    EXPECT_EQ(NamesFrom(RootOf(text).FirstChild()),
              (Names{"#cdata-section", "#cdata-section", "#cdata-section", "#text"}));
    EXPECT_EQ(TextOf(text), " a  bc");
  }
}

TEST_F(DocumentTest, TextTakesInDescendantsAndNotComments) {
  EXPECT_EQ(TextOf("<r> a<b>c<d>e</d></b><!-- no --><?no no?> f </r>"), "ace f");
  EXPECT_EQ(TextOf("<r>1&lt;2&#x41;</r>"), "1<2A");
}

// The first and last character of each length in UTF-8, read from the text and from the parser's
// tree.
TEST_F(DocumentTest, CharacterReferencesAreUtf8) {
  struct Row {
    char const* reference;
    char const* text;
  };
  for (auto const& [reference, text] :
       {Row{"&#127;", "\x7F"}, Row{"&#x80;", "\xC2\x80"}, Row{"&#2047;", "\xDF\xBF"},
        Row{"&#x800;", "\xE0\xA0\x80"}, Row{"&#xFFFD;", "\xEF\xBF\xBD"},
        Row{"&#65536;", "\xF0\x90\x80\x80"}, Row{"&#x10FFFF;", "\xF4\x8F\xBF\xBF"}}) {
    for (std::string const front : {"", "<!DOCTYPE r>"}) {
      EXPECT_EQ(TextOf(front + "<r>" + reference + "</r>"), text) << front << reference;
      EXPECT_EQ(RootOf(front + "<r a='" + reference + "'/>").Attribute("a"), text) << reference;
    }
  }
}

TEST_F(DocumentTest, TextEndsWithItsElement) {
  for (std::string const front : {"", "<!DOCTYPE r>"}) {
    std::string const text = front + "<r><a>1<b/>2<c></c>3</a><d>4<e><f/></e></d><g/></r>";
    XmlNode at = RootOf(text).FirstChild();
    EXPECT_EQ(at.Text(), "123");
    EXPECT_FALSE(at.FirstChild()) << "which have been read";
    at = at.Next();
    EXPECT_EQ(at.Name(), "d");
    EXPECT_EQ(at.Text(), "4");
    at = at.Next();
    EXPECT_EQ(at.Name(), "g");
    EXPECT_FALSE(at.Next());
  }
}

TEST_F(DocumentTest, NodesAreLeftWithAllThatIsInThem) {
  for (std::string const front : {"", "<!DOCTYPE r>"}) {
    std::string const text = front + "<r><a>1<b/><c><d><e/></d></c></a><f/></r>";
    XmlNode const first = RootOf(text).FirstChild();
    XmlNode const inner = first.FirstChild().Next().Next().FirstChild();
    EXPECT_EQ(inner.Name(), "d");
    EXPECT_EQ(first.Next().Name(), "f") << "from within the first";
  }
}

TEST_F(DocumentTest, EntitiesOfTheDocumentArePutIn) {
  EXPECT_EQ(TextOf("<!DOCTYPE r [<!ENTITY e 'x<b/>y'><!ENTITY f '&e;&e;'>]><r>&f;</r>"), "xyxy");
}

TEST_F(DocumentTest, OtherEncodingsAreRead) {
  EXPECT_EQ(TextOf("<?xml version='1.0' encoding='ISO-8859-1'?><r>\xE9</r>"), "\xC3\xA9");
  std::string wide = "\xFF\xFE";
  for (char c : std::string("<r>ab</r>")) wide.append({c, '\0'});
  EXPECT_EQ(TextOf(wide), "ab");
}

TEST_F(DocumentTest, LineEndsAreOneCharacter) { EXPECT_EQ(TextOf("<r>a\r\nb\rc</r>"), "a\nb\nc"); }

TEST_F(DocumentTest, IllFormedDocumentsDoNotLoad) {
  for (std::string_view text :
       {"", " ", "x", "<r>", "<r></s>", "<r/><r/>", "<r a='1' a='2'/>", "<r>&</r>", "<r>a<</r>",
        "<r>&unknown;</r>", "<r>\x01</r>", "<r>\xFF\xFE</r>", "<r a=1/>", "<r><!-- a -- b --></r>",
        "<?xml version='1.0' encoding='NONE-SUCH'?><r/>", "<r>]]></r>", "<1/>", "</r>"}) {
    EXPECT_FALSE(Loads(text)) << text;
    EXPECT_FALSE(document_.Root()) << text;
    EXPECT_FALSE(document_.FirstNode()) << text;
  }
  EXPECT_FALSE(Loads(std::string_view("<r>\0</r>", 8)));
}

TEST_F(DocumentTest, CutDocumentNeverLoads) {
  std::string const text = "<!-- a --><r x='1'><a>1 2</a><![CDATA[ b ]]>&amp;</r>";
  for (std::size_t n = 0; n < text.size(); ++n) EXPECT_FALSE(Loads(text.substr(0, n))) << n;
  EXPECT_TRUE(Loads(text));
}

TEST_F(DocumentTest, NothingOutsideIsLookedAt) {
  EXPECT_FALSE(Loads("<!DOCTYPE r [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><r>&e;</r>"));
  EXPECT_FALSE(Loads("<!DOCTYPE r [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><r/>"));
  EXPECT_FALSE(Loads("<!DOCTYPE r [<!ENTITY e PUBLIC 'p' 'http://127.0.0.1/'>]><r>&e;</r>"));
  EXPECT_FALSE(Loads("<!DOCTYPE r [<!ENTITY % p SYSTEM 'file:///etc/hostname'>%p;]><r/>"));
  EXPECT_TRUE(Loads("<!DOCTYPE r SYSTEM 'file:///none/such.dtd'><r/>"));
  EXPECT_FALSE(Loads("<!DOCTYPE r SYSTEM 'file:///none/such.dtd'><r>&e;</r>"));
  EXPECT_FALSE(Loads("<!DOCTYPE r SYSTEM 'file:///none/such.dtd'><r a='&e;'/>"));
}

TEST_F(DocumentTest, GrowthOfEntitiesIsBounded) {
  std::string laughs = "<!DOCTYPE r [<!ENTITY e0 'ha'>";
  for (int i = 1; i < 30; ++i) {
    std::string const before = "&e" + std::to_string(i - 1) + ";";
    laughs += "<!ENTITY e" + std::to_string(i) + " '";
    for (int k = 0; k < 10; ++k) laughs += before;
    laughs += "'>";
  }
  EXPECT_FALSE(Loads(laughs + "]><r>&e29;</r>"));
  EXPECT_FALSE(Loads(laughs + "]><r a='&e29;'/>"));

  std::string quadratic = "<!DOCTYPE r [<!ENTITY e '" + std::string(100'000, 'a') + "'>]><r>";
  for (int i = 0; i < 20'000; ++i) quadratic += "&e;";
  EXPECT_FALSE(Loads(quadratic + "</r>"));
  EXPECT_FALSE(Loads("<!DOCTYPE r [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><r>&a;</r>"));
}

TEST_F(DocumentTest, EntitiesThatGrowInTwoStepsOrInAttributesAreBounded) {
  auto const times = [](int count, std::string const& piece) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
  };
  auto const withInner = [&](std::string const& inner, int count, std::string const& piece) {
    return "<!DOCTYPE r [<!ENTITY d '" + inner + "'><!ENTITY e '" + times(10, "&d;") + "'>]><r>" +
           times(count, piece) + "</r>";
  };
  std::string const elements = times(1000, "<a/>");
  std::string const longText(100'000, 'a');
  EXPECT_FALSE(Loads(withInner(elements, 300, "&e;")));
  EXPECT_FALSE(Loads(withInner(longText, 20, "<a>&e;</a>")));
  EXPECT_FALSE(Loads(withInner(longText, 200, "<a x='&d;'/>")));
  // Smaller expansion is accepted; a larger document may expand more.
  EXPECT_TRUE(Loads(withInner(elements, 20, "&e;")));
  EXPECT_TRUE(Loads(withInner("word", 20'000, "<a x='&e;'>&e;</a>")));
}

TEST_F(DocumentTest, DepthOfElementsIsBounded) {
  auto const nested = [](int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "<a>";
    text += "x";
    for (int i = 0; i < depth; ++i) text += "</a>";
    return text;
  };
  EXPECT_EQ(TextOf(nested(200)), "x");
  EXPECT_FALSE(Loads(nested(100'000)));
  for (std::string const front : {"", "<!DOCTYPE a>"}) {
    EXPECT_TRUE(Loads(front + nested(256)));
    EXPECT_FALSE(Loads(front + nested(258)));
  }
}

TEST_F(DocumentTest, TextOfTenMegaBytesLoadsAndALongerOneDoesNot) {
  for (std::string const front : {"", "<!DOCTYPE r>"}) {
    for (char const c : {'x', ' '}) {
      std::string text;
      text.resize(10'000'000, c);
      EXPECT_TRUE(Loads(front + "<r>" + text + "</r>"));
      EXPECT_TRUE(Loads(front + "<r>" + text + "<a/>" + text + "</r>")) << "counted anew";
      text += c;
      EXPECT_FALSE(Loads(front + "<r>" + text + "</r>"));
    }
  }
}

TEST_F(DocumentTest, ManyNodesAndLongTextsLoad) {
  std::string text = "<r>";
  for (int i = 0; i < 100'000; ++i) text += "<a>" + std::string(100, 'x') + "</a>";
  EXPECT_TRUE(Loads(text + "</r>"));
}

// A hundred attributes may be declared, each with a default; more are refused.
TEST(XmlDocumentTest, DeclaredAttributesAreCounted) {
  for (int const count : {100, 101}) {
    std::string text = "<!DOCTYPE a [";
    for (int i = 0; i < count; ++i) {
      text += "<!ATTLIST a x" + std::to_string(i) + " CDATA '1'>";
    }
    XmlDocument document;
    EXPECT_EQ(document.Load(text + "]><a/>"), count == 100) << count;
  }
}

}  // namespace
}  // namespace zel
