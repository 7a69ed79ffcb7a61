#pragma once

#include <map>
#include <string>

#include "editing/rules.h"
#include "forms/label.h"
#include "forms/user_control.h"

namespace editing {

// The balloon of the field help (`PictureBox1`) beside a field: entering the field shows its text where the office
// wants that, and the help button shows it anyway. A click on the balloon takes it away.
class FieldHelp : public forms::DropPanel, private Rules {
 public:
  explicit FieldHelp(const session::ScreenContext& context);

  forms::Label Label3;  // the text

  // "////" in a text is a line break.
  void Set(const forms::Control& field, std::string text);
  // The text of the field that had the focus last.
  void Show();

 protected:
  std::string Scope() const override { return {}; }
  void OnLoad() override;
  void OnFocus(forms::Control* control) override;

 private:
  std::map<const forms::Control*, std::string> texts_;
  const forms::Control* field_ = nullptr;
  bool pops_up_ = false;
};

}  // namespace editing
