#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "views/form_dialog.h"

namespace views {

// How each form is laid out, by the form's class name.
class ViewRegistry {
 public:
  // The views of every screen.
  static ViewRegistry Standard();

  // `lay_out` fills the dialog of a loaded form of that class.
  template <typename T>
  void Add(const std::string& form_name, void (*lay_out)(FormDialog&, T&)) {
    views_[form_name] = [lay_out](FormDialog& dialog) { lay_out(dialog, dynamic_cast<T&>(dialog.Form())); };
  }

  // False when the form has no view.
  bool LayOut(FormDialog& dialog) const;
  std::vector<std::string> Names() const;

 private:
  std::map<std::string, std::function<void(FormDialog&)>, std::less<>> views_;
};

}  // namespace views
