#include "people/phone_pair.h"

#include "editing/editing_form.h"
#include "forms/text.h"
#include "people/frmContacts.h"

namespace people {

using editing::EditingForm;
using editing::Side;

PhonePair::PhonePair(const session::ScreenContext& context, const Parts& parts, data::RecordBinding& record)
    : Rules(context), parts_(parts), record_(record), contacts_(context.session) {
  Adopt(parts_.home);
  Adopt(parts_.work);
  Adopt(parts_.contacts);
  parts_.contacts.Click = [this] { Edit(); };
}

void PhonePair::Setup() {
  if (record_.Id() != 0 && !EditingForm::ReadOnly(*this)) {
    contacts_.Setup(record_.Id());
  } else {
    contacts_.Read(record_.Id());
  }
  for (const auto& [side, box] : Boxes()) {
    box.Heading->Caption = forms::WithMnemonic(contacts_.SideCaption(side), side == Side::Home ? 'm' : 'w');
    box.MaxLength = contacts_.DefinedSize(side, contacts_.Selected(side));
  }
}

void PhonePair::Save() {
  if (!contacts_.Save(record_.Id(), {{Side::Home, parts_.home.Text}, {Side::Work, parts_.work.Text}})) {
    throw editing::Refusal("Another user has deleted this patient. Your entries are still on the screen.");
  }
}

void PhonePair::Edit() {
  if (record_.Id() == 0 &&
      !(Confirm("Before editing contact information, this new entry must be saved.\r\nDo you want to save now?") &&
        SaveNew())) {
    return;
  }
  frmContacts dialog(context_);
  dialog.pID = record_.Id();
  dialog.OnlyLook = EditingForm::ReadOnly(*this);
  for (const auto& [side, box] : Boxes()) {
    if (record_.Changed(box)) {
      dialog.Typed[side] = box.Text;
    }
  }
  context_.user.Show(dialog);
  if (dialog.Saved) {
    // A change to another field of the screen stays one.
    Attempt([this] {
      Setup();
      for (const auto& [side, box] : Boxes()) {
        box.Text = contacts_.Value(side, contacts_.Selected(side));
        record_.MarkWritten(box);
      }
    });
  }
}

}  // namespace people
