// Passes each file of a folder to a fuzz target. Fails when there is no file.
//   <target>_fuzz <folder>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s <folder>\n", argv[0]);
    return 2;
  }
  int inputs = 0;
  for (auto const& entry : std::filesystem::directory_iterator(argv[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
    std::printf("%s\n", entry.path().filename().c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
    ++inputs;
  }
  std::printf("%d inputs\n", inputs);
  return inputs == 0 ? 1 : 0;
}
