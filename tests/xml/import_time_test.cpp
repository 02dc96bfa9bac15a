// Documents made to keep an import busy: each is either read, or refused with the name of the bound
// that it exceeds, within a second for each 100 KB.
#include <functional>

#include "tests/support/time_limit.h"
#include "tests/xml/import_fixture.h"
#include "xml/import_bounds.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

constexpr std::size_t kSize = 300'000;

// The pieces 0, 1, 2 ... up to the size of the document.
std::string Many(std::function<std::string(std::size_t)> const& piece, std::size_t size = kSize) {
  std::string text;
  for (std::size_t i = 0; text.size() < size; ++i) text += piece(i);
  return text;
}
std::string Many(std::string const& piece, std::size_t size = kSize) {
  return Many([&](std::size_t) { return piece; }, size);
}
std::string Numbered(char const* front, std::size_t i, char const* back) {
  return front + std::to_string(i) + back;
}

class ImportTimeTest : public test::ImportTest {
 protected:
  ImportTimeTest() { InitZelAccess(); }

  // Imports the text with checks; if a bound is given, the import must fail and report it.
  void Costs(std::string const& name, std::string const& text, std::string const& bound = {}) {
    test::TimeLimit const limit(text.size());
    Maint().SetImportChecks(importChecked);
    bool const good = Import(text);
    EXPECT_LT(limit.Used(), limit.Allowed()) << name;
    if (bound.empty()) return;
    EXPECT_FALSE(good) << name;
    EXPECT_NE(Lines().find(bound), std::string::npos) << name << "\n" << Lines().substr(0, 300);
  }
  void CostsInside(std::string const& name, std::string const& inner,
                   std::string const& bound = {}) {
    Costs(name, "<library>" + inner + "</library>", bound);
  }

  std::size_t banks_ = 0;  // made so far, each with its own name
};

TEST_F(ImportTimeTest, ParameterEntitiesAreRefused) {
  std::string text = "<!DOCTYPE library [<!ENTITY % p0 '<!--x-->'>";
  for (int i = 1; i < 6; ++i) {
    std::string const before = Numbered("&#37;p", static_cast<std::size_t>(i - 1), ";");
    text += Numbered("<!ENTITY % p", static_cast<std::size_t>(i), " '");
    for (int k = 0; k < 10; ++k) text += before;
    text += "'>";
  }
  Costs("parameter entities", text + "%p5;]><library/>", "a parameter entity");
  Costs("not even used", "<!DOCTYPE library [<!ENTITY % p ''>]><library/>", "a parameter entity");
}

TEST_F(ImportTimeTest, AttributesOfOneElement) {
  auto const attribute = [](std::size_t i) { return Numbered("a", i, "='' "); };
  Costs("attributes", "<library " + Many(attribute, 1'000'000) + "/>",
        "more than 1000 attributes on one element");
  Costs("namespaces",
        "<library " + Many([](std::size_t i) { return Numbered("xmlns:a", i, "='u' "); }) + "/>",
        "more than 1000");
  Costs(
      "in UTF-16",
      [&] {
        std::string wide = "\xFF\xFE";
        for (char const c : "<library " + Many(attribute) + "/>") wide.append({c, '\0'});
        return wide;
      }(),
      "more than 1000 attributes on one element");
  Costs("in an entity",
        "<!DOCTYPE library [<!ENTITY e \"<a " + Many(attribute) +
            "/>\">]><library><version>&e;</version></library>",
        "a document type of more than 32 KB");
  std::string thousand;
  for (std::size_t i = 0; i < 1000; ++i) thousand += attribute(i);
  Maint().SetImportChecks(importUnchecked);
  EXPECT_TRUE(Import("<library " + thousand + "/>"));
  EXPECT_FALSE(Import("<library " + thousand + "b=''/>"));
  EXPECT_NE(Lines().find("more than 1000 attributes on one element"), std::string::npos)
      << "told without checks too: " << Lines();
}

TEST_F(ImportTimeTest, NamespacesOverAll) {
  std::string text;
  for (int depth = 0; depth < 200; ++depth) {
    text += "<x " +
            Many(
                [&](std::size_t i) {
                  return "xmlns:a" + std::to_string(depth) + Numbered("_", i, "='u' ");
                },
                kSize / 400) +
            ">";
  }
  CostsInside("namespaces of elements in each other",
              text + Many("<a0_0:b/>", kSize / 2) + Many("</x>", 800), "more than 1000 namespaces");
}

TEST_F(ImportTimeTest, Entities) {
  auto const type = [](std::string const& declarations, std::string const& version) {
    return "<!DOCTYPE library [" + declarations + "]><library><version>" + version +
           "</version></library>";
  };
  std::string const bound = "a document type of more than 32 KB";
  Costs("character references", type("<!ENTITY e '" + Many("&#38;", 1'000'000) + "'>", "&e;"),
        bound);
  Costs("fewer of them", type("<!ENTITY e '" + Many("&#38;", 20'000) + "'>", "&e;"));
  Costs("words",
        type("<!ATTLIST a x (" + Many([](std::size_t i) { return Numbered("v", i, "|"); }) +
                 "z) #IMPLIED>",
             ""),
        bound);
  Costs("notations",
        type("<!ATTLIST a x NOTATION (" +
                 Many([](std::size_t i) { return Numbered("v", i, "|"); }) + "z) #IMPLIED>",
             ""),
        bound);
  Costs("references in a text", type("<!ENTITY e 'abcdefgh'>", Many("&e;")),
        "more than 1000 references to entities in one text");
  Costs("references in an attribute",
        "<!DOCTYPE library [<!ENTITY e 'abcdefgh'>]><library a='" + Many("&e;") + "'/>");
  Costs("elements", type("<!ENTITY e '<a/>'>", Many("&e;")), "more than 1000 references");
  Costs("one after the other", type("<!ENTITY e 'abcdefgh'>", Many("<a>&e;</a><b x='&e;&e;'/>")));
}

TEST_F(ImportTimeTest, DocumentsReadAgainAndAgain) {
  MakeFile("inc.xml", "<group>" + Many("<x/>", 40'000) + "</group>");
  CostsInside("imports of one document", Many("<import file='inc.xml'/>"),
              "documents imported again and again");
  CostsInside("of itself", Many("<import file='doc.xml'/>"));
  CostsInside("of none", Many("<import file='none.xml'/>"));
}

TEST_F(ImportTimeTest, ReportsWithLongKeys) {
  CostsInside("errors in an item of a long key", "<bank type='NRTL' name='N'><item><keys>" +
                                                     Many("abc ", kSize / 2) + "</keys>" +
                                                     Many("<x/>", kSize / 2) + "</item></bank>");
}

TEST_F(ImportTimeTest, WhateverIsRepeated) {
  for (char const* piece :
       {"<x/>", "<?p q?>", "<!--c-->", "<bank/>", "<bank type='NRTL' name='N'/>",
        "<version>1</version>", "<memo>\n\n\n\n[</memo>", "x", "&amp;", "&#65;", "<![CDATA[x]]>"}) {
    CostsInside(piece, Many(piece));
  }
  for (char const* piece : {"\n", "[\n", "x<!---->", "&amp;", "<![CDATA[x]]>", "<b/>x"}) {
    CostsInside(piece, "<memo>" + Many(piece) + "</memo>");
  }
  for (char const* piece :
       {"<item/>", "<item><keys>1000001 1000002</keys></item>", "<memo>x</memo>"}) {
    CostsInside(piece,
                Numbered("<bank type='NRTL' name='", ++banks_, "'>") + Many(piece) + "</bank>");
  }
  for (char const* piece :
       {"<aij>1</aij>", "<aij>61x37</aij>", "<keys>1000001 1000002</keys>", "<x/>", "x"}) {
    CostsInside(piece, Numbered("<bank type='NRTL' name='", ++banks_, "'><item>") + Many(piece) +
                           "</item></bank>");
  }
  for (char const* piece :
       {"<property name='TC' value='1'/>", "<property name='TC' value='6137,5' uom='C'/>",
        "<property name='TC' value='1' uom='m/m/m'/>", "<structure>1(1)</structure>",
        "<correlation name='VaporPressure' equation='20'>1 2</correlation>", "<id/>"}) {
    CostsInside(piece, Numbered("<bank type='PURECOMP' name='", ++banks_,
                                "'><comp><id number='7' formula='CH4'> A </id>") +
                           Many(piece) + "</comp></bank>");
  }
  for (char const* piece : {"9", "1 ", "1e9", "-"}) {
    CostsInside(piece, Numbered("<bank type='NRTL' name='", ++banks_,
                                "'><item><keys>1000001 1000002</keys><aij>") +
                           Many(piece) + "</aij></item></bank>");
  }
}

// --- bounds of a whole import --------------------------------------------------------------------

TEST(ImportBoundsTest, DocumentsAreCounted) {
  ImportBounds bounds;
  for (int i = 0; i < ImportBounds::kMostDocuments; ++i) {
    ASSERT_EQ(bounds.Take(std::to_string(i), 100), "") << i;
  }
  EXPECT_EQ(bounds.Take("more", 100), "more than 100000 documents in one import");
}

TEST(ImportBoundsTest, BytesAreCounted) {
  ImportBounds bounds;
  for (int i = 0; i < 40; ++i) {
    ASSERT_EQ(bounds.Take(std::to_string(i), 100'000'000), "") << "100 MB are sensible";
  }
  EXPECT_EQ(bounds.Take("large", 1'000'000'000), "more than 4 GiB of documents in one import");
}

TEST(ImportBoundsTest, RepeatedBytesAreCounted) {
  ImportBounds bounds;
  EXPECT_EQ(bounds.Take("a", 1'000'000), "");
  for (int i = 0; i < 11; ++i) EXPECT_EQ(bounds.Take("a", 1'000'000), "") << i;
  EXPECT_NE(bounds.Take("a", 1'000'000), "");
}

}  // namespace
}  // namespace zel
