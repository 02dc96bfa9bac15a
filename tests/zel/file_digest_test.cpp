// The digest by which a change of a file is noticed.
#include "desk/files/file_digest.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace fs = std::filesystem;

namespace zel::desk {
namespace {

class FileDigestTest : public testing::Test {
 protected:
  ~FileDigestTest() override { fs::remove(path_); }
  std::string Of(std::string const& bytes) const {
    std::ofstream(path_, std::ios::binary) << bytes;
    return DigestOf(path_);
  }
  fs::path const path_ = fs::path(testing::TempDir()) / ("digest_" + std::to_string(::getpid()));
};

TEST_F(FileDigestTest, EachByteAndItsPlaceCount) {
  std::string const bytes(200000, 'x');
  std::string const digest = Of(bytes);
  EXPECT_EQ(Of(bytes), digest);
  for (std::size_t const at : {0U, 1U, 7U, 8U, 65535U, 65536U, 131071U, 131072U, 199999U}) {
    std::string other = bytes;
    other[at] = 'y';
    EXPECT_NE(Of(other), digest) << at;
    other[at] = '\0';
    EXPECT_NE(Of(other), digest) << at;
  }
  EXPECT_NE(Of(bytes + '\0'), digest);
  EXPECT_NE(Of(bytes.substr(1)), digest);
  EXPECT_NE(Of(""), Of(std::string(1, '\0')));
  // The same bytes one piece further on.
  EXPECT_NE(Of(std::string(65536, '\0') + "abc" + std::string(65536, '\0')),
            Of(std::string(131072, '\0') + "abc"));
}

TEST_F(FileDigestTest, HolesAreZeros) {
  std::string const written = Of(std::string(300000, '\0') + "end");
  fs::remove(path_);
  std::ofstream(path_) << "";
  fs::resize_file(path_, 300000);
  std::ofstream(path_, std::ios::app) << "end";
  EXPECT_EQ(DigestOf(path_), written);
}

TEST_F(FileDigestTest, AFileThatIsNotThereIsAnError) {
  EXPECT_THROW(DigestOf(path_), fs::filesystem_error);
}

}  // namespace
}  // namespace zel::desk
