#include "people/frmContacts.h"

#include "forms/text.h"

namespace people {
namespace {

using editing::kContactCodes;
using editing::Side;

// A letter for each of the contact codes.
constexpr std::string_view Mnemonics(Side side) {
  return side == Side::Home ? "m2fcpi" : "wnxlge";
}

forms::OptionGroup Group(std::array<forms::OptionButton, 6>& options) {
  return forms::OptionGroup({&options[0], &options[1], &options[2], &options[3], &options[4], &options[5]});
}

}  // namespace

frmContacts::frmContacts(const session::ScreenContext& context)
    : EditingForm("frmContacts", context), contacts_(context.session), home_(Group(optHome)), work_(Group(optWork)) {
  Caption = "Contact Information";
  Properties["pID"] = {[this] { return std::to_string(pID); },
                       [this](const std::string& id) { pID = session::ToId(session::Value(id)); }};
  for (const auto& [side, options, boxes] : Sides()) {
    const std::string suffix = side == Side::Home ? "Home(" : "Work(";
    for (std::size_t i = 0; i < kContactCodes.size(); ++i) {
      Add("opt" + suffix + std::to_string(i) + ")", options.at(i));
      Add("txt" + suffix + std::to_string(i) + ")", boxes.at(i));
      std::string code = std::string(editing::Prefix(side).Text()) + std::string(kContactCodes.at(i).Text());
      options.at(i).Caption = forms::WithMnemonic(std::string(editing::SideLabel(side)) + editing::ContactLabel(code),
                                                  Mnemonics(side).at(i));
      boxes.at(i).AccessibleName = options.at(i).Caption;
    }
  }
  Add("DialogButtons1", DialogButtons1);
  DialogButtons1.Help.Visible = false;
  DialogButtons1.OK.Click = [this] {
    if (!Unsaved() || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  OnSave([this] { return Differs(); }, [this] { Write(); });
}

void frmContacts::Read() {
  OnlyLook ? contacts_.Read(pID) : contacts_.Setup(pID);
  for (const auto& [side, options, boxes] : Sides()) {
    for (std::size_t i = 0; i < kContactCodes.size(); ++i) {
      const std::string_view code = kContactCodes.at(i).Text();
      boxes.at(i).Text = contacts_.Value(side, code);
      boxes.at(i).MaxLength = contacts_.DefinedSize(side, code);
      options.at(i).Value = code == contacts_.Selected(side);
      options.at(i).Enabled = !OnlyLook;
    }
  }
  shown_at_first_ = Shown();
  for (const auto& [side, typed] : Typed) {
    const SideControls controls = Sides().at(side == Side::Home ? 0 : 1);
    controls.boxes.at(static_cast<std::size_t>(side == Side::Home ? home_.Chosen() : work_.Chosen())).Text = typed;
  }
  if (OnlyLook) {
    MakeReadOnly();
  }
}

// Everything that can be changed, as one text.
std::string frmContacts::Shown() const {
  std::string shown = std::to_string(home_.Chosen()) + "\n" + std::to_string(work_.Chosen());
  for (const auto* boxes : {&txtHome, &txtWork}) {
    for (const forms::TextBox& box : *boxes) {
      shown += "\n" + box.Text.get();
    }
  }
  return shown;
}

bool frmContacts::Differs() const {
  return Shown() != shown_at_first_;
}

void frmContacts::Write() {
  for (const auto& [side, options, boxes] : Sides()) {
    for (std::size_t i = 0; i < kContactCodes.size(); ++i) {
      const std::string_view code = kContactCodes.at(i).Text();
      contacts_.SetValue(side, code, boxes.at(i).Text);
      if (options.at(i).Value) {
        contacts_.Select(side, code);
      }
    }
  }
  contacts_.SaveAll(pID);
}

}  // namespace people
