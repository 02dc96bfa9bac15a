#include "tests/zel/zel_fixture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace zel::test {

namespace fs = std::filesystem;

Contents ContentsOf(fs::path const& folder) {
  Contents contents;
  for (auto const& entry : fs::recursive_directory_iterator(folder)) {
    std::string const name = fs::relative(entry.path(), folder).string();
    contents[name] = entry.is_regular_file() ? FileText(entry.path()) : "";
  }
  return contents;
}

std::string FileText(fs::path const& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

nlohmann::json Row(nlohmann::json const& table, char const* member, nlohmann::json const& value) {
  for (nlohmann::json const& row : table) {
    if (row.at(member) == value) return row;
  }
  return nullptr;
}

std::size_t Rows(nlohmann::json const& table, char const* member, nlohmann::json const& value) {
  return static_cast<std::size_t>(
      std::count_if(table.begin(), table.end(),
                    [&](nlohmann::json const& row) { return row.at(member) == value; }));
}

ZelTest::ZelTest()
    : folder_(fs::canonical(fs::temp_directory_path()) / ("zel_host_" + std::to_string(getpid()))) {
  // The settings of whoever runs the tests do not count.
  ::setenv("ZEL_CONFIG", "", 1);
  for (char const* name : {"ZEL_PATH", "ZEL_NAMES", "ZEL_UNITS"}) ::unsetenv(name);
  fs::remove_all(folder_);
  fs::create_directories(folder_);
  for (char const* name : {"sample", "perry", "crc"}) {
    Good("import " + std::string(name) + ".lb1 '" ZEL_DATA "/" + name + ".xml' --create");
  }
}

ZelTest::~ZelTest() {
  std::error_code ignored;
  fs::permissions(folder_, fs::perms::owner_all, ignored);
  fs::remove_all(folder_, ignored);
}

void ZelTest::MakeFile(std::string const& name, std::string const& text) const {
  std::ofstream(folder_ / name, std::ios::binary) << text;
}

Outcome ZelTest::Shell(std::string const& line) const {
  // Next to the folder, because tests look at its contents.
  fs::path const out = folder_.string() + ".out";
  fs::path const err = folder_.string() + ".err";
  std::string const command = "cd '" + folder_.string() +
                              "' && export ZEL='" ZEL_PROGRAM "' && { " + line + "\n} >'" +
                              out.string() + "' 2>'" + err.string() + "' </dev/null";
  int const status = std::system(command.c_str());
  Outcome outcome;
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  outcome.out = FileText(out);
  outcome.err = FileText(err);
  fs::remove(out);
  fs::remove(err);
  return outcome;
}

Outcome ZelTest::Zel(std::string const& words, std::string const& before) const {
  return Shell(before + " \"$ZEL\" " + words);
}

std::string ZelTest::Good(std::string const& words) const {
  Outcome const outcome = Zel(words);
  EXPECT_EQ(outcome.status, 0) << "zel " << words << "\n" << outcome.err;
  return outcome.out;
}

nlohmann::json ZelTest::Json(std::string const& words) const {
  std::string const text = Good(words + " --json");
  nlohmann::json json = nlohmann::json::parse(text, nullptr, false);
  EXPECT_FALSE(json.is_discarded()) << "zel " << words << "\n" << text;
  return json;
}

}  // namespace zel::test
