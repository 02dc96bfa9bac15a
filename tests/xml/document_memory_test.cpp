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

// The memory that the parser holds. The parser leaks some of it when a request is refused, which is
// not this library's fault: this set keeps it reachable.
std::set<void*>& FaceRef() {
  static std::set<void*>& held = *new std::set<void*>;
  return held;
}

void* Hold(void* memory) {
  if (memory != nullptr) FaceRef().insert(memory);
  return memory;
}
void GiveBack(void* memory) {
  FaceRef().erase(memory);
  std::free(memory);
}
void* Take(std::size_t size) { return Refused() ? nullptr : Hold(std::malloc(size)); }
void* Retake(void* memory, std::size_t size) {
  if (Refused()) return nullptr;
  FaceRef().erase(memory);
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

TEST_F(DocumentMemoryTest, RefusalIsAnExceptionInAPlainDocument) {
  RefuseAtEachRequest(
      "<?xml version='1.0'?><!-- c --><r xmlns:p='u' p:a='1&lt;'><p:c>one &amp; two "
      "<![CDATA[ three ]]></p:c><d a='x'>four</d><?t u?></r>");
}

}  // namespace
}  // namespace zel
