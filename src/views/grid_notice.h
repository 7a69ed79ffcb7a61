#pragma once

#include <wx/grid.h>
#include <wx/stattext.h>

#include <string>

namespace views {

// What a grid says in place of its rows while it has none.
class GridNotice {
 public:
  explicit GridNotice(wxGrid& widget);

  // An empty text takes it away.
  void Show(const std::string& text);

 private:
  void Place();

  wxWindow& cells_;
  wxStaticText& text_;
};

}  // namespace views
