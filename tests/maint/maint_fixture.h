// A library in memory and a LibMaint on it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/support/memory_file_system.h"

namespace zel::test {

class MaintTest : public ::testing::Test {
 protected:
  MaintTest();
  ~MaintTest() override;

  // Closes and opens the library again, with a new LibMaint.
  void Reopen(accModes mode);
  LibMaint_i& Maint() { return *maint_; }
  LibFile_i& Library() { return *library_; }

  // Add an entry to the character ID or CAS tree.
  void AddId(char const* id, std::int32_t number);
  void AddCas(std::int32_t cas, std::int32_t number);
  static void AddTo(BTree_i& tree, std::int32_t const* key, std::int32_t number);

  // Set and return the parameters of a VANLAAR bank.
  void SetAij(double aij, double aji);
  double Aij();

  MemoryFileSystem files_;
  std::unique_ptr<LibFile_i> library_;
  std::unique_ptr<LibMaint_i> maint_;
  FaceRef<IZelBankDef> vanLaar_{NewBank("VANLAAR")};
  Key_i key_;
};

}  // namespace zel::test
