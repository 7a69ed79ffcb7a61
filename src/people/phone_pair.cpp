#include "people/phone_pair.h"

#include "editing/customary_form.h"
#include "editing/editing_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"
#include "people/frmContacts.h"

namespace people {

using editing::EditingForm;
using editing::Side;

PhonePair::PhonePair(const session::ScreenContext& context, const Parts& parts, data::RecordBinding& record)
    : Rules(context), parts_(parts), record_(record), contacts_(context.session) {
  Adopt(parts_.home);
  Adopt(parts_.work);
  Adopt(parts_.contacts);
  Bind(home_);
  Bind(work_);
  parts_.contacts.Click = [this] { Edit(); };
}

void PhonePair::Bind(SideFields& side) {
  const editing::SideColumns& columns = editing::ColumnsOf(side.side);
  const std::string label(editing::SideLabel(side.side));
  record_.Bind(side.selected, columns.selected);
  record_.Tie(side.selected, side.box);
  side.selected.AccessibleName = label + "contact";
  side.selected.Told = [](const std::string& code) { return std::string(editing::LabelOfContact(code)); };
  for (std::size_t i = 0; i < side.contacts.size(); ++i) {
    record_.Bind(side.contacts.at(i), columns.contacts.at(i));
    side.contacts.at(i).AccessibleName =
        label + std::string(editing::LabelOfContact(editing::kContactCodes.at(i).Text()));
  }
  side.box.Change = [this] { Follow(); };
  side.box.Leave = [this, &side] {
    if (editing::IsNumber(Selected(side))) {
      editing::TakeCustomaryForm(context_.session, record_, side.box, forms::FormatTenDigits);
      Follow();
    }
  };
}

void PhonePair::Setup() {
  if (record_.Id() == 0 || EditingForm::ReadOnly(*this)) {
    contacts_.Read(record_.Id());
  } else if (contacts_.Setup(record_.Id())) {
    Refresh();
  }
  for (SideFields* side : Sides()) {
    if (record_.Id() == 0) {  // a new person's row has its contacts chosen
      side->selected.Caption = std::string(contacts_.Selected(side->side));
      record_.MarkWritten(side->selected);
    }
  }
  Label();
}

void PhonePair::Label() {
  for (const SideFields* side : Sides()) {
    side->box.Heading->Caption =
        forms::WithMnemonic(contacts_.SideCaption(side->side), side->side == Side::Home ? 'm' : 'k');
    side->box.MaxLength = contacts_.SelectedSize(side->side);
  }
}

void PhonePair::Refresh() {
  std::vector<forms::Field*> fields;
  for (SideFields* side : Sides()) {
    fields.insert(fields.end(), {&side->box, &side->selected});
    for (forms::Label& contact : side->contacts) {
      fields.push_back(&contact);
    }
  }
  record_.Refresh(fields);
}

std::size_t PhonePair::Selected(const SideFields& side) const {
  return editing::ContactOf(record_.Stored(side.selected));
}

void PhonePair::Follow() {
  typed_.clear();
  for (SideFields* side : Sides()) {
    const bool typed = record_.Changed(side->box);
    const std::size_t selected = Selected(*side);
    side->selected.Caption =
        typed ? std::string(editing::kContactCodes.at(selected).Text()) : record_.Stored(side->selected);
    for (std::size_t i = 0; i < side->contacts.size(); ++i) {
      forms::Label& contact = side->contacts.at(i);
      contact.Caption = typed && i == selected ? side->box.Text.get() : record_.Stored(contact);
    }
    if (typed) {
      typed_.insert(side->side);
    }
  }
}

std::optional<std::string> PhonePair::NewHomePhone() const {
  const forms::Label& phone = home_.contacts.front();
  return home_phone_entered_ || record_.Changed(phone) ? std::optional(phone.Caption.get()) : std::nullopt;
}

void PhonePair::ShowTaken() {
  for (SideFields* side : Sides()) {
    const forms::Label& contact = side->contacts.at(Selected(*side));
    if (record_.Changed(side->box) && !record_.Changed(contact)) {
      side->box.Text = record_.Stored(contact);
    }
  }
  Follow();
  contacts_.Read(record_.Id());
  Label();
}

void PhonePair::Save() {
  std::map<Side, std::string> shown;
  for (const SideFields* side : Sides()) {
    if (typed_.contains(side->side)) {
      shown[side->side] = side->box.Text;
    }
  }
  if (!contacts_.Save(record_.Id(), shown)) {
    throw editing::Refusal(std::string(editing::kDeletedMeanwhile));
  }
  home_phone_entered_ = false;
}

void PhonePair::Edit() {
  if (record_.Id() == 0 &&
      !(Confirm("Before editing contact information, this new entry must be saved.\r\nDo you want to save now?",
                SaveNewTitle) &&
        SaveNew())) {
    return;
  }
  frmContacts dialog(context_);
  dialog.pID = record_.Id();
  dialog.OnlyLook = EditingForm::ReadOnly(*this);
  for (SideFields* side : Sides()) {
    if (record_.Changed(side->box)) {
      const std::size_t contact = Selected(*side);
      dialog.Typed[side->side] = {contact, record_.Stored(side->contacts.at(contact)), side->box.Text};
    }
  }
  context_.user.Show(dialog);
  if (dialog.Saved) {
    // A change to another field of the screen stays one.
    Attempt([this] {
      const forms::Label& phone = home_.contacts.front();
      const std::string before = record_.Stored(phone);
      Refresh();
      home_phone_entered_ = home_phone_entered_ || record_.Stored(phone) != before;
      Setup();
    });
  }
}

}  // namespace people
