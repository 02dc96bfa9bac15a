// Commands of zel, run in a folder with libraries of published data.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace zel::test {

struct Outcome {
  int status = -1;  // 128 and the signal for a program that a signal ended
  std::string out;
  std::string err;
};

// Bytes of all files under a folder, by path from there.
using Contents = std::map<std::string, std::string>;
Contents ContentsOf(std::filesystem::path const& folder);
std::string FileText(std::filesystem::path const& path);

// The row of a table whose member has this value, null if there is none; and the number of such
// rows.
nlohmann::json Row(nlohmann::json const& table, char const* member, nlohmann::json const& value);
std::size_t Rows(nlohmann::json const& table, char const* member, nlohmann::json const& value);

class ZelTest : public ::testing::Test {
 protected:
  // A folder with sample.lb1 (pairs and groups), perry.lb1 and crc.lb1 (components).
  ZelTest();
  ~ZelTest() override;

  std::filesystem::path const& Folder() const { return folder_; }
  void MakeFile(std::string const& name, std::string const& text) const;

  // Runs "zel WORDS" in the folder; the words are read by the shell. `before` goes in front of the
  // program, e.g. "ZEL_NAMES=perry.lb1".
  Outcome Zel(std::string const& words, std::string const& before = "") const;
  // The same, but it must succeed.
  std::string Good(std::string const& words) const;
  // The JSON that "zel WORDS --json" prints.
  nlohmann::json Json(std::string const& words) const;
  // Runs a line of the shell in which $ZEL is the program.
  Outcome Shell(std::string const& line) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace zel::test
