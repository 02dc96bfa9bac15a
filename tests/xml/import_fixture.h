// Documents in a folder of their own, and a library in memory into which they are imported.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "frame/number_text.h"
#include "maint/document_stack.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/frame/temp_folder.h"
#include "tests/support/memory_file_system.h"

namespace zel::test {

class ImportTest : public TempFolderTest {
 protected:
  ImportTest() : library_(std::make_unique<LibFile_i>(files_, accUpdate, "/i.lb1", "Mine")) {
    EXPECT_EQ(library_->CreateNew(libKind11), openOk);
    maint_ = std::make_unique<LibMaint_i>(library_.get());
    maint_->SetLogLevel(1);
    Documents().Clear();
  }
  ~ImportTest() override {
    LibFile::ClearOrdwinNameIndex();
    Documents().Clear();
  }

  LibMaint_i& Maint() { return *maint_; }

  // Runs an import with standard output kept in `lines`.
  template <typename Run>
  bool Caught(Run const& run) {
    ::testing::internal::CaptureStdout();
    bool done = false;
    try {
      done = run();
    } catch (...) {
      lines_ = ::testing::internal::GetCapturedStdout();
      throw;
    }
    lines_ = ::testing::internal::GetCapturedStdout();
    return done;
  }
  bool ImportFile(std::string_view name, bool replace = false) {
    return Caught([&] { return maint_->Import(Path(name).c_str(), replace); });
  }
  // Writes a text to the file doc.xml and imports it.
  bool Import(std::string_view text, bool replace = false) {
    MakeFile("doc.xml", text);
    return ImportFile("doc.xml", replace);
  }
  bool ImportLibrary(std::string const& inner) {
    return Import("<library>" + inner + "</library>");
  }
  bool ImportBank(std::string const& inner, std::string const& attributes = kVanLaar) {
    return Import("<bank " + attributes + ">" + inner + "</bank>");
  }
  // What the last import wrote.
  std::string const& Lines() const { return lines_; }
  static std::string Error(std::string_view text) {
    return "*** doc.xml : error : " + std::string(text) + "\n";
  }
  static std::string Warning(std::string_view text) {
    return "*** doc.xml : warning : " + std::string(text) + "\n";
  }

  // A real field of the item with these key words; an odd value if there is no such item.
  double RealOf(char const* type, char const* name, std::initializer_list<std::int32_t> words,
                char const* field) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    double values[20] = {-777.0};
    if (ReadInto(bank.Get(), name, words)) bank->GetDoubleField(field, values);
    return values[0];
  }
  std::string TextOf(char const* type, char const* name, std::initializer_list<std::int32_t> words,
                     char const* field) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    char text[50] = "nothing";
    if (ReadInto(bank.Get(), name, words)) bank->GetStringField(field, text);
    return text;
  }
  std::vector<std::int32_t> IntsOf(char const* type, char const* name,
                                   std::initializer_list<std::int32_t> words, char const* field,
                                   std::size_t count) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    std::vector<std::int32_t> values(20, -777);
    if (ReadInto(bank.Get(), name, words)) bank->GetIntField(field, values.data());
    values.resize(count);
    return values;
  }
  bool ReadInto(IZelBankDef* bank, char const* name, std::initializer_list<std::int32_t> words) {
    Key_i key;
    key.SetKeyWords(static_cast<long>(words.size()), words.begin());
    return maint_->ReadItem(bank, name, &key);
  }

  static constexpr char const* kVanLaar = "type=\"VANLAAR\" name=\"MINE\"";

  MemoryFileSystem files_;
  std::unique_ptr<LibFile_i> library_;
  std::unique_ptr<LibMaint_i> maint_;

 private:
  std::string lines_;
};

}  // namespace zel::test
