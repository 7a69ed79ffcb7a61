#include "console/describe_command.h"

#include <array>
#include <stdexcept>
#include <string_view>

#include "console/control_state.h"
#include "console/interpreter.h"
#include "console/line_source.h"
#include "console/practice_line.h"
#include "entry/form_catalog.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/check_list_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/list_chooser.h"
#include "forms/panels.h"
#include "forms/rich_text_box.h"
#include "forms/text.h"
#include "forms/text_box.h"
#include "forms/tool_bar.h"
#include "forms/user_control.h"

namespace host {
namespace {

using forms::Control;

struct Kind {
  std::string_view name;
  bool (*holds)(const Control&);
};

template <typename T>
bool Is(const Control& control) {
  return dynamic_cast<const T*>(&control) != nullptr;
}

// A derived kind before the one it is made of.
constexpr std::array kKinds = {
    Kind{"RichTextBox", Is<forms::RichTextBox>},
    Kind{"TextBox", Is<forms::TextBox>},
    Kind{"ComboBox", Is<forms::ComboBox>},
    Kind{"CheckListBox", Is<forms::CheckListBox>},
    Kind{"ListChooser", Is<forms::ListChooser>},
    Kind{"ListBox", Is<forms::ListBox>},
    Kind{"PictureBox", Is<forms::PictureBox>},
    Kind{"MenuItem", Is<forms::MenuItem>},
    Kind{"Button", Is<forms::Button>},
    Kind{"CheckBox", Is<forms::CheckBox>},
    Kind{"OptionButton", Is<forms::OptionButton>},
    Kind{"Label", Is<forms::Label>},
    Kind{"Grid", Is<forms::Grid>},
    Kind{"TabStrip", Is<forms::TabStrip>},
    Kind{"Slider", Is<forms::Slider>},
    Kind{"Timer", Is<forms::Timer>},
    Kind{"DropPanel", Is<forms::DropPanel>},
    Kind{"UserControl", Is<forms::UserControl>},
    Kind{"Panel", Is<forms::Panel>},
    Kind{"ToolBar", Is<forms::ToolBar>},
    Kind{"DialogButtons", Is<forms::DialogButtons>},
};

std::string_view KindOf(const Control& control) {
  for (const Kind& kind : kKinds) {
    if (kind.holds(control)) {
      return kind.name;
    }
  }
  return "Control";
}

std::string CaptionOf(const Control& control) {
  if (const auto* grid = dynamic_cast<const forms::Grid*>(&control); grid != nullptr) {
    return ColumnCaptions(*grid);
  }
  if (const auto* tabs = dynamic_cast<const forms::TabStrip*>(&control); tabs != nullptr) {
    std::string captions;
    for (const std::string& tab : tabs->Tabs.get()) {
      captions += (captions.empty() ? "" : "|") + forms::WithoutMnemonic(tab);
    }
    return captions;
  }
  const auto caption = ReadProperty(control, "caption");
  return caption ? forms::WithoutMnemonic(caption->text) : "";
}

std::string ColumnOf(const Control& control) {
  const auto* field = dynamic_cast<const forms::Field*>(&control);
  return field == nullptr ? std::string() : field->DataField;
}

std::string OneLine(std::string_view text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') {
      i += text.substr(i, 2) == "\r\n" ? 1U : 0U;
      line += "\\n";
    } else {
      line += text[i] == '\t' ? "\\t" : std::string(1, text[i]);
    }
  }
  return line;
}

}  // namespace

std::string DescribeControls(const forms::Form& form) {
  std::string lines;
  for (const Control* control : form.ReadingOrder()) {
    lines += control->Name() + "\t" + std::string(KindOf(*control)) + "\t" + OneLine(CaptionOf(*control)) + "\t" +
             ColumnOf(*control) + "\t" + OneLine(control->ToolTip.get()) + "\t" +
             (control->Container == nullptr ? "" : control->Container->Name()) + "\n";
  }
  return lines;
}

void RunDescribe(const std::optional<std::string>& form_name, std::ostream& output) {
  // Forms are made over a practice, though none is asked of anything before it is shown.
  BlockLines no_lines({});
  Interpreter nobody(no_lines, nullptr);
  Stage stage(MakePractice({}), FirstClock(), nobody.Person(), nobody.Heard());
  if (form_name) {
    const auto form = entry::MakeForm(*form_name, stage.Context());
    if (form == nullptr) {
      throw std::invalid_argument("there is no form " + *form_name);
    }
    output << DescribeControls(*form);
    return;
  }
  std::string_view before;
  for (const std::string& name : entry::FormNames()) {
    output << before << name << "\n" << DescribeControls(*entry::MakeForm(name, stage.Context()));
    before = "\n";
  }
}

}  // namespace host
