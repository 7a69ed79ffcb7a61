#pragma once

#include <wx/bmpbndl.h>

#include <string>
#include <vector>

namespace views {

// The pictures of buttons, by the file names that forms give them ("ICO/Large/New_32.png").
class Pictures {
 public:
  // Folders in the order in which they are searched: the practice's own may come before the program's.
  explicit Pictures(std::vector<std::string> folders) : folders_(std::move(folders)) {}

  // With the "@2x" of it where there is one, and in a dark theme the "-dark" of both; not `IsOk` when no folder has it.
  wxBitmapBundle Find(const std::string& name) const;

 private:
  std::vector<std::string> folders_;
};

}  // namespace views
