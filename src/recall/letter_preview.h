#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "recall/letter_file.h"

namespace recall {

// How a linked letter reads. It is read again when its file has changed.
class LetterPreview {
 public:
  explicit LetterPreview(const LetterFolder& letters) : letters_(letters) {}

  // HTML of the letter with a stored name, or of the reason why there is none to show.
  const std::string& Html(const std::string& name);
  // The next time it is read, whether its file has changed or not.
  void Forget() { read_ = {}; }

 private:
  struct Read {
    std::string name;
    std::filesystem::file_time_type written;
    std::uintmax_t size = 0;
    std::string html;
  };

  const std::string& Told(const std::string& reason, const std::string& name);

  const LetterFolder& letters_;
  Read read_;
};

}  // namespace recall
