// Runs a fuzz target on the files of folders, without a fuzzer: the ordinary
// test of the committed inputs, and of a finding.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

// The file itself, or the files of a folder in the order of their names.
std::vector<fs::path> findInputs(const fs::path& place) {
  if (fs::is_regular_file(place)) return {place};
  std::vector<fs::path> inputs;
  if (!fs::is_directory(place)) return inputs;
  for (const auto& entry : fs::directory_iterator(place)) {
    if (entry.is_regular_file()) inputs.push_back(entry.path());
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

bool replay(const fs::path& input) {
  // The last line names the input that ended the program.
  std::cout << input.string() << std::endl;
  std::ifstream file(input, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  if (!file) {
    std::cerr << input.string() << ": cannot be read\n";
    return false;
  }
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: " << argv[0] << " FOLDER-OR-FILE...\n";
    return 2;
  }
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    const std::vector<fs::path> inputs = findInputs(argv[i]);
    if (inputs.empty()) {
      std::cerr << argv[i] << ": there is no input; give a folder with files, or a file\n";
      return 1;
    }
    for (const fs::path& input : inputs) {
      if (!replay(input)) return 1;
      ++count;
    }
  }
  std::cout << count << " inputs replayed\n";
  return 0;
}
