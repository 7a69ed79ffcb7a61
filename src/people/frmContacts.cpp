#include "people/frmContacts.h"

#include "editing/customary_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

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

std::string LabelOf(const std::string& code) {
  return std::string(editing::LabelOfContact(code));
}

}  // namespace

frmContacts::frmContacts(const session::ScreenContext& context)
    : EditingForm("frmContacts", context),
      contacts_(context.session),
      record_(context.session, "PATable", "pID"),
      home_(Group(optHome)),
      work_(Group(optWork)) {
  Caption = "Contact Information";
  Properties["pID"] = {[this] { return std::to_string(pID); },
                       [this](const std::string& id) { pID = session::ToId(session::Value(id)); }};
  for (const auto& [side, options, boxes, selected, visible] : Sides()) {
    const editing::SideColumns& columns = editing::ColumnsOf(side);
    const std::string label(editing::SideLabel(side));
    const std::string suffix = side == Side::Home ? "Home(" : "Work(";
    for (std::size_t i = 0; i < kContactCodes.size(); ++i) {
      Add("opt" + suffix + std::to_string(i) + ")", options.at(i));
      Add("txt" + suffix + std::to_string(i) + ")", boxes.at(i));
      record_.Bind(boxes.at(i), columns.contacts.at(i));
      options.at(i).Caption =
          forms::WithMnemonic(label + LabelOf(std::string(kContactCodes.at(i).Text())), Mnemonics(side).at(i));
      boxes.at(i).AccessibleName = options.at(i).Caption;
      boxes.at(i).Change = options.at(i).Click = [this] { Follow(); };
      if (editing::IsNumber(i)) {
        boxes.at(i).Leave = [this, &box = boxes.at(i)] {
          editing::TakeCustomaryForm(context_.session, record_, box, forms::FormatTenDigits);
          Follow();
        };
      }
    }
    record_.Bind(selected, columns.selected);
    record_.Bind(visible, columns.visible);
    selected.AccessibleName = label + "contact";
    selected.Told = LabelOf;
    record_.Repeats(visible);
  }
  Add("DialogButtons1", DialogButtons1);
  DialogButtons1.Help.Visible = false;
  DialogButtons1.OK.Click = [this] {
    if (!Unsaved() || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  Edits(record_);
  OnSave([this] { return Differs(); }, [this] { record_.Update(); });
  for (const auto& controls : Sides()) {
    OnSave([this, &selected = controls.selected] { return record_.Changed(selected); },
           [this, side = controls.side, &selected = controls.selected] {
             contacts_.Mirror(pID, side, selected.Caption.get());
           });
  }
  OnSave([] { return true; }, [this] { context_.session.RecordHandOff("pID", "PaTable", pID); });
}

void frmContacts::Read() {
  if (OnlyLook) {
    MakeReadOnly();
  } else {
    Hold("PATABLE", pID);
  }
  if (!ReadOnly()) {
    contacts_.Setup(pID);
  }
  if (!record_.Read(pID)) {
    Tell("Person " + std::to_string(pID) + " was not found in the database.", forms::Icon::Information);
    Close();
    return;
  }
  ShowSelected();
  for (const auto& [side, options, boxes, selected, visible] : Sides()) {
    if (selected.Caption->empty()) {  // only looked at, it keeps its number there
      boxes.front().Text = boxes.front().Text->empty() ? visible.Caption.get() : boxes.front().Text.get();
    }
  }
  for (const auto& [side, typed] : Typed) {
    forms::TextBox& box = Sides().at(side == Side::Home ? 0 : 1).boxes.at(typed.contact);
    box.Text = typed.read;
    record_.MarkWritten(box);
    box.Text = typed.text;
  }
  Follow();
}

void frmContacts::ShowSelected() {
  for (const auto& [side, options, boxes, selected, visible] : Sides()) {
    const std::size_t chosen = editing::ContactOf(selected.Caption.get());
    for (std::size_t i = 0; i < kContactCodes.size(); ++i) {
      options.at(i).Value = i == chosen;
      options.at(i).Enabled = !ReadOnly();
    }
  }
}

// A side is left alone until something is changed there.
void frmContacts::Follow() {
  for (const auto& [side, options, boxes, selected, visible] : Sides()) {
    const auto chosen = static_cast<std::size_t>(std::max(side == Side::Home ? home_.Chosen() : work_.Chosen(), 0));
    const bool other = chosen != editing::ContactOf(record_.Stored(selected));
    selected.Caption = other ? std::string(kContactCodes.at(chosen).Text()) : record_.Stored(selected);
    visible.Caption =
        other || record_.Changed(boxes.at(chosen)) ? boxes.at(chosen).Text.get() : record_.Stored(visible);
  }
}

void frmContacts::OnTaken() {
  ShowSelected();
  Follow();
}

}  // namespace people
