#include "people/frmContacts.h"

#include <algorithm>

#include "editing/attempt.h"

namespace people {
namespace {

using editing::ContactLabel;
using editing::kContactCodes;
using editing::Prefix;
using editing::Side;
using editing::SideLabel;

template <typename Action>
void Each(Action action) {
  for (std::size_t i = 0; i < kContactCodes.size(); ++i) {
    action(i, kContactCodes.at(i));
  }
}

forms::OptionGroup Group(std::array<forms::OptionButton, 6>& options) {
  return forms::OptionGroup({&options[0], &options[1], &options[2], &options[3], &options[4], &options[5]});
}

}  // namespace

frmContacts::frmContacts(const session::ScreenContext& context)
    : Form("frmContacts"), context_(context), contacts_(context.session), home_(Group(optHome)), work_(Group(optWork)) {
  Properties["pID"] = {[this] { return std::to_string(pID); },
                       [this](const std::string& id) { pID = session::ToId(session::Value(id)); }};
  Caption = "Contact Information";
  Each([this](std::size_t i, std::string_view) {
    Add("optHome(" + std::to_string(i) + ")", optHome.at(i));
    Add("txtHome(" + std::to_string(i) + ")", txtHome.at(i));
  });
  Each([this](std::size_t i, std::string_view) {
    Add("optWork(" + std::to_string(i) + ")", optWork.at(i));
    Add("txtWork(" + std::to_string(i) + ")", txtWork.at(i));
  });
  Add("DialogButtons1", DialogButtons1);
  DialogButtons1.Help.Visible = false;
  DialogButtons1.OK.Click = [this] {
    if (!Unsaved() || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

void frmContacts::OnLoad() {
  if (!editing::Attempt(context_.user, [this] { ReadOnly ? contacts_.Read(pID) : contacts_.Setup(pID); })) {
    Close();
    return;
  }
  const auto fill = [this](Side side, auto& options, auto& boxes, int& chosen) {
    Each([&](std::size_t i, std::string_view code) {
      std::string column = std::string(Prefix(side)) + std::string(code);
      options.at(i).Caption = std::string(SideLabel(side)) + ContactLabel(column);
      options.at(i).Enabled = !ReadOnly;
      boxes.at(i).Text = contacts_.Value(side, code);
      boxes.at(i).MaxLength = contacts_.DefinedSize(side, code);
      boxes.at(i).ReadOnly = ReadOnly;
      boxes.at(i).DataChanged = false;
      if (code == contacts_.Selected(side)) {
        if (const auto typed = Typed.find(side); typed != Typed.end()) {
          boxes.at(i).Text = typed->second;
        }
        options.at(i).Value = true;
        chosen = static_cast<int>(i);
      }
    });
  };
  fill(Side::Home, optHome, txtHome, shown_at_first_[0]);
  fill(Side::Work, optWork, txtWork, shown_at_first_[1]);
}

bool frmContacts::QueryClose() {
  return !Unsaved() || context_.user.Ask({.text = "Are you sure that you want to exit without saving the changes?",
                                          .buttons = forms::kYesNo,
                                          .icon = forms::Icon::Question,
                                          .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

bool frmContacts::Unsaved() const {
  if (ReadOnly) {
    return false;
  }
  const auto changed = [](const forms::TextBox& box) { return box.DataChanged; };
  return std::ranges::any_of(txtHome, changed) || std::ranges::any_of(txtWork, changed) ||
         home_.Chosen() != shown_at_first_[0] || work_.Chosen() != shown_at_first_[1];
}

bool frmContacts::Save() {
  Each([this](std::size_t i, std::string_view code) {
    contacts_.SetValue(Side::Home, code, txtHome.at(i).Text);
    contacts_.SetValue(Side::Work, code, txtWork.at(i).Text);
    if (optHome.at(i).Value) {
      contacts_.Select(Side::Home, code);
    }
    if (optWork.at(i).Value) {
      contacts_.Select(Side::Work, code);
    }
  });
  Saved = editing::Attempt(context_.user, [this] { contacts_.SaveAll(pID); });
  return Saved;
}

}  // namespace people
