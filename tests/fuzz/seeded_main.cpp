#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"

namespace {

std::vector<std::string> ReadCorpus(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  std::ranges::copy(std::filesystem::directory_iterator(folder), std::back_inserter(files));
  std::ranges::sort(files);
  std::vector<std::string> inputs;
  for (const auto& file : files) {
    std::ifstream stream(file, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
  }
  return inputs;
}

void Run(const std::string& input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

}  // namespace

// Runs a fuzzer over its corpus, and over what chance makes of it: the same inputs in every run.
int main(int count, char** words) {
  if (count != 2) {
    std::cerr << "usage: FUZZER CORPUS-FOLDER\n";
    return 2;
  }
  const std::vector<std::string> corpus = ReadCorpus(words[1]);
  fuzz::Expect(!corpus.empty(), "has no inputs", words[1]);
  std::ranges::for_each(corpus, Run);
  std::mt19937 chance(20261122);
  const auto below = [&chance](std::size_t limit) {
    return limit == 0 ? 0 : static_cast<std::size_t>(chance()) % limit;
  };
  constexpr int kRuns = 5000;
  for (int run = 0; run < kRuns; ++run) {
    std::string input = corpus[below(corpus.size())];
    for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
      const std::string& other = corpus[below(corpus.size())];
      const std::size_t from = below(other.size());
      const std::size_t at = below(input.size() + 1);
      switch (below(4)) {
        case 0:
          input.insert(at, other, from, below(40));
          break;
        case 1:
          input.erase(at, below(20));
          break;
        case 2:
          input.insert(at, 1, static_cast<char>(below(256)));
          break;
        default:
          input.resize(at);
      }
    }
    Run(input);
  }
  return 0;
}
