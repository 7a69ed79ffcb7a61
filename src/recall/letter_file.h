#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace recall {

// The letters that notices may link: RTF files in the folder "WP" of the practice's data.
class LetterFolder {
 public:
  static constexpr std::size_t kLongestName = 255;

  enum class Verdict {
    May,
    Outside,  // not below the folder
    TooLong,  // for the name that is stored
    Not,      // a device, no RTF file, not there, or a link that leads out of the folder
  };
  struct Link {
    Verdict verdict = Verdict::Not;
    std::string name =
        {};  // what is stored of it: the path below the folder, with '\' between its parts; empty outside
  };

  // The data folder; empty where the session has none.
  explicit LetterFolder(std::string_view data_folder);

  // As a person knows it.
  std::string Path() const;
  // What becomes of a file that a person has picked.
  Link Judge(std::string_view file) const;
  // The file of a stored name, whether it is there or not; empty for a name that leads out of the folder.
  std::filesystem::path FileOf(std::string_view name) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace recall
