// Loading documents while memory runs out: an exception, and never a document that is reported as
// malformed or is incomplete.
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <set>
#include <string>

#include "tests/support/allocations.h"
#include "xml/xml_document.h"

namespace zel {
namespace {

// Requests that are still granted to the parser before all others are refused; -1 for any number.
int left = -1;
bool anyRefused = false;

bool Refused() {
  if (left < 0) return false;
  if (left > 0) {
    --left;
    return false;
  }
  anyRefused = true;
  return true;
}

// For what is kept while the program's own requests are refused.
template <typename Type>
struct OwnMemory {
  using value_type = Type;

  OwnMemory() = default;
  template <typename Other>
  OwnMemory(OwnMemory<Other> const&) {}
  Type* allocate(std::size_t count) {
    return static_cast<Type*>(std::malloc(count * sizeof(Type)));
  }
  void deallocate(Type* memory, std::size_t) { std::free(memory); }
  bool operator==(OwnMemory const&) const = default;
};
using Held = std::set<void*, std::less<>, OwnMemory<void*>>;

// The memory that the parser holds. The parser leaks some of it when a request is refused, which is
// not this library's fault: this set keeps it reachable.
Held& HeldByParser() {
  static Held& held = *new Held;
  return held;
}

void* Hold(void* memory) {
  if (memory != nullptr) HeldByParser().insert(memory);
  return memory;
}
void GiveBack(void* memory) {
  HeldByParser().erase(memory);
  std::free(memory);
}
void* Take(std::size_t size) { return Refused() ? nullptr : Hold(std::malloc(size)); }
void* Retake(void* memory, std::size_t size) {
  if (Refused()) return nullptr;
  HeldByParser().erase(memory);
  return Hold(std::realloc(memory, size));
}
char* Duplicate(char const* text) {
  return Refused() ? nullptr : static_cast<char*>(Hold(::strdup(text)));
}

class DocumentMemoryTest : public ::testing::Test {
 protected:
  DocumentMemoryTest() {
    xmlInitParser();
    xmlMemGet(&free_, &take_, &retake_, &duplicate_);
    xmlMemSetup(GiveBack, Take, Retake, Duplicate);
  }
  // Reads the document with every number of requests that are granted.
  static void RefuseAtEachRequest(std::string const& document);

  ~DocumentMemoryTest() override {
    left = -1;
    xmlMemSetup(free_, take_, retake_, duplicate_);
  }

 private:
  xmlFreeFunc free_ = nullptr;
  xmlMallocFunc take_ = nullptr;
  xmlReallocFunc retake_ = nullptr;
  xmlStrdupFunc duplicate_ = nullptr;
};

// Everything that the document contains, in order.
std::string Shown(XmlNode node) {
  std::string text;
  for (; node; node = node.Next()) {
    text += std::string(node.Name()) + "(";
    for (XmlNode at = node.FirstAttribute(); at; at = at.Next()) {
      text += std::string(at.Name()) + "=" + std::string(at.Value()) + ";";
    }
    // An element without an element in it is shown as its text.
    XmlNode const child = node.Attribute("a") ? XmlNode() : node.FirstChild();
    text += child ? Shown(child) + ")" : ")" + std::string(node.Text());
  }
  return text;
}

void DocumentMemoryTest::RefuseAtEachRequest(std::string const& document) {
  XmlDocument untroubled;
  ASSERT_TRUE(untroubled.Load(document));
  std::string const whole = Shown(untroubled.FirstNode());
  EXPECT_NE(whole.find("four"), std::string::npos) << whole;
  ::testing::internal::CaptureStderr();
  int thrown = 0;
  anyRefused = true;
  for (int allowed = 0; anyRefused; ++allowed) {
    XmlDocument read;
    anyRefused = false;
    left = allowed;
    try {
      bool const good = read.Load(document);
      std::string const shown = good ? Shown(read.FirstNode()) : "no document";
      left = -1;
      ASSERT_EQ(shown, whole) << allowed;
    } catch (std::bad_alloc const&) {
      left = -1;
      ++thrown;
    }
  }
  EXPECT_GT(thrown, 10);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << "what a host did not say";
}

TEST_F(DocumentMemoryTest, RefusalIsAnExceptionWhereverItComes) {
  RefuseAtEachRequest(
      "<?xml version='1.0'?><!DOCTYPE r [<!ENTITY e 'words<b/>'>]><!-- c --><r xmlns:p='u' "
      "p:a='1&lt;'><p:c>one &amp; two &e;<![CDATA[ three ]]></p:c><d a='x'>four</d><?t u?></r>");
}

// A request of the library's own that is refused while the parser runs leaves no memory of the
// parser behind, since no exception passes through it.
TEST_F(DocumentMemoryTest, OwnRequestsThatAreRefusedLeaveNothingOfTheParser) {
  std::string const longName = "r" + std::string(60, 'r');
  for (std::string const& document :
       {"<" + longName + " a='1&lt;2'/>", std::string("<r a='1&lt;2' b='2&lt;1' c='<'/>"),
        std::string("<!DOCTYPE r [<!ENTITY a_name_that_takes_memory 'x'>]><r a='1&lt;2'>"
                    "&a_name_that_takes_memory;</r>"),
        std::string("<!DOCTYPE r [<!ENTITY a_name_that_takes_memory 'x'>]><r a='1&lt;2' "
                    "b='&a_name_that_takes_memory;&another_name_that_takes_memory;'/>")}) {
    bool const isGood = XmlDocument().Load(document);
    xmlResetLastError();
    std::size_t const held = HeldByParser().size();
    int refused = 0;
    for (bool any = true; any; ++refused) {
      any = false;
      try {
        XmlDocument read;
        test::AllocationWatch const watch(refused + 1);
        bool const good = read.Load(document);
        EXPECT_EQ(good, isGood);
      } catch (std::bad_alloc const&) {
        any = true;
      }
      xmlResetLastError();
      ASSERT_EQ(HeldByParser().size(), held) << refused << document;
    }
    EXPECT_GT(refused, 2) << document;
  }
}

TEST_F(DocumentMemoryTest, RefusalIsAnExceptionInAPlainDocument) {
  RefuseAtEachRequest(
      "<?xml version='1.0'?><!-- c --><r xmlns:p='u' p:a='1&lt;'><p:c>one &amp; two "
      "<![CDATA[ three ]]></p:c><d a='x'>four</d><?t u?></r>");
}

}  // namespace
}  // namespace zel
