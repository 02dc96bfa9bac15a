// The two readers of documents make the same events: of two thousand random documents, read from
// their text in pieces of any size, and from the parser's tree.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/frame/temp_folder.h"
#include "xml/tree_events.h"
#include "xml/xml_tokens.h"

namespace zel {
namespace {

std::string Shown(XmlEvents& events) {
  std::string all;
  std::vector<XmlAttribute> attributes;
  for (XmlEvent event;;) {
    events.Next(event);
    all += std::to_string(static_cast<int>(event.kind)) + "|" + std::string(event.name) + "|" +
           std::string(event.text);
    if (event.kind == XmlEvent::Kind::kDocumentEnd) return all;
    if (event.kind == XmlEvent::Kind::kStart) {
      std::string const tag(event.tag);
      all += "|" + std::to_string(event.line);
      std::size_t const count = events.Attributes(tag, event.element, attributes);
      for (std::size_t i = 0; i < count; ++i) {
        all += "|" + attributes[i].name + "=" + attributes[i].value;
      }
      if (event.isEmpty) {
        all += "\n" + std::to_string(static_cast<int>(XmlEvent::Kind::kEnd)) + "||";
      }
    }
    all += "\n";
  }
}

// Well-formed documents without a document type, of all that may be in them.
class RandomDocument {
 public:
  explicit RandomDocument(unsigned seed) : random_(seed) {}

  std::string Text() {
    static constexpr char const* kFronts[] = {"",
                                              "",
                                              "\xEF\xBB\xBF",
                                              "<?xml version='1.0'?>",
                                              "<?xml version='1.0' encoding='UTF-8'?>\n",
                                              "<!-- a --><?p q?>\r\n"};
    return Any(kFronts) + Element(0) + (Below(3) == 0 ? "\n<!-- end -->\n" : "");
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  template <std::size_t N>
  std::string Any(char const* const (&words)[N]) {
    return words[Below(N)];
  }
  std::string Space() {
    static constexpr char const* kSpaces[] = {" ", "\n", "\r\n", "\t", "\r", "  \n "};
    return Any(kSpaces);
  }
  std::string Words() {
    static constexpr char const* kWords[] = {
        "1.5",       " 10000007 ", "x y",   "&lt;",     "&amp;",        "&gt;",        "&#65;",
        "&#x1F600;", "&#13;",      "&#32;", "\xC3\xA9", "\xE4\xB8\xAD", "\r\n",        "\r",
        "]",         ">",          "'",     "\"",       "\n\n",         "&quot;&apos;"};
    std::string text;
    for (std::size_t n = Below(4); n > 0; --n) text += Any(kWords);
    if (std::size_t const at = text.find("]]>"); at != text.npos) text.resize(at);
    return text;
  }
  std::string Value() {
    std::string value = Words();
    for (char& c : value) {
      if (c == '"') c = '_';
    }
    return '"' + value + '"';
  }
  std::string Name() {
    static constexpr char const* kNames[] = {"a", "item", "bank", "n:b", "x-1", "\xC3\xA9", "xml_"};
    return Any(kNames);
  }
  std::string Attributes(bool isRoot) {
    static constexpr char const* kNames[] = {"a", "type", "xmlns:q", "xml:lang", "n:c", "xmlns"};
    std::string text = isRoot ? " xmlns:n='u'" : "";
    std::size_t const skipped = 1 + Below(6);
    for (std::size_t i = 0; i < 6; i += skipped) {
      std::string const value = std::string(kNames[i]).starts_with("xmlns") ? "'v:w'" : Value();
      text += Space() + kNames[i] + (Below(4) == 0 ? " =\n" : "=") + value;
    }
    return text;
  }
  std::string Element(int depth) {
    std::string const name = depth == 0 ? "r" : Name();
    std::string const start =
        "<" + name + (depth == 0 || Below(3) == 0 ? Attributes(depth == 0) : "");
    if (depth > 0 && Below(5) == 0) return start + "/>";
    std::string text = start + (Below(8) == 0 ? "\n" : "") + ">";
    for (std::size_t n = Below(6); n > 0; --n) text += Node(depth);
    return text + "</" + name + (Below(8) == 0 ? " " : "") + ">";
  }
  std::string Node(int depth) {
    switch (Below(8)) {
      case 0: return "<!-- <a> \n -->";
      case 1: return "<?pi x\n?>";
      case 2: return "<![CDATA[" + std::string(Below(2), ' ') + "<&\r\n]]>";
      case 3: return Space();
      case 4:
      case 5: return Words() + "<?end?>";
      default: return depth < 5 ? Element(depth + 1) : "x";
    }
  }

  std::mt19937 random_;
};

class XmlEventsTest : public test::TempFolderTest {};

TEST_F(XmlEventsTest, TextAndTreeOfRandomDocumentsAreTheSame) {
  std::size_t elements = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    std::string const document = RandomDocument(seed).Text();
    DocumentText text(document);
    XmlParsed const checked = CheckXml(text);
    ASSERT_TRUE(checked.isGood && checked.isPlain) << document << checked.problem.reason;
    EXPECT_EQ(checked.rootName, "r");
    XmlParsed const parsed = ParseXml(text);
    ASSERT_TRUE(parsed.isGood);
    TreeEvents tree(parsed.tree);
    std::string const expected = Shown(tree);
    XmlTokens tokens(text);
    ASSERT_EQ(Shown(tokens), expected) << document;
    MakeFile("d.xml", document);
    for (std::size_t const piece : {1U, 5U, 64U}) {
      DocumentText file;
      ASSERT_EQ(file.Open(Path("d.xml"), piece), platform::ReadResult::kRead);
      ASSERT_TRUE(CheckXml(file).isPlain);
      XmlTokens pieces(file);
      ASSERT_EQ(Shown(pieces), expected) << "in pieces of " << piece << ":\n" << document;
    }
    elements += static_cast<std::size_t>(std::count(expected.begin(), expected.end(), '\n'));
  }
  EXPECT_GT(elements, 20'000U);
}

TEST_F(XmlEventsTest, DocumentsThatAreNotPlainNeedTheirTree) {
  for (std::string_view const document :
       {"<!DOCTYPE r><r/>", "<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>", "<a:r/>", "<r xmlns:a=''/>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><r>\xE9</r>"}) {
    DocumentText text(document);
    EXPECT_FALSE(CheckXml(text).isPlain) << document;
    EXPECT_TRUE(ParseXml(text).isGood) << document;
  }
}

// There is room for the digests of as many blocks as the file had when it was opened.
TEST_F(XmlEventsTest, FileThatGrowsBeforeItsFirstReadingCannotBeRead) {
  MakeFile("d.xml", "<r>" + std::string(200, ' ') + "</r>");
  DocumentText file;
  ASSERT_EQ(file.Open(Path("d.xml"), 64), platform::ReadResult::kRead);
  MakeFile("d.xml", "<r>" + std::string(2000, ' ') + "</r>");
  EXPECT_FALSE(CheckXml(file).isGood);
  EXPECT_TRUE(file.HasFailed());
}

// A block that is not the one of the first reading is not handed out.
TEST_F(XmlEventsTest, FileThatChangesIsNoticedBeforeItIsUsed) {
  std::string document = "<r>";
  for (int i = 0; i < 100; ++i) document += "<a>" + std::to_string(1000 + i) + "</a>";
  document += "</r>";
  auto changed = [&](std::size_t at, std::string const& to) {
    std::string text = document;
    return text.replace(at, to.size(), to);
  };
  for (std::string const& later :
       {changed(700, "7"), changed(document.size() - 6, "9"), document + "\n",
        document.substr(0, document.size() - 1), document.substr(0, 640)}) {
    MakeFile("d.xml", document);
    DocumentText file;
    ASSERT_EQ(file.Open(Path("d.xml"), 64), platform::ReadResult::kRead);
    ASSERT_TRUE(CheckXml(file).isGood);
    XmlTokens tokens(file);
    MakeFile("d.xml", later);
    EXPECT_THROW(Shown(tokens), XmlDocumentChanged) << later.size();
    EXPECT_TRUE(file.HasFailed());
  }
}

}  // namespace
}  // namespace zel
